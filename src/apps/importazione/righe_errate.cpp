#include "apps/importazione/righe_errate.h"

#include <algorithm>
#include <string>
#include <utility>

#include "apps/importazione/colonne_scelte.h"
#include "apps/importazione/parole_finestra.h"

namespace cu {
namespace {

bool fermaImportazione(const intake::Piano& piano, const intake::RigaPiano& riga) {
  using intake::StatoRiga;
  if (riga.stato == StatoRiga::Errore || riga.stato == StatoRiga::DaDecidere) return true;
  return riga.stato == StatoRiga::Diverso && piano.richiesta.diversi == intake::SuDiversi::Rifiuta;
}

std::string motivi(const intake::RigaPiano& riga) {
  std::string testo;
  for (const intake::Messaggio& uno : riga.messaggi) {
    const bool ferma = uno.gravita == intake::Gravita::Errore || uno.gravita == intake::Gravita::DaDecidere;
    if (!ferma) continue;
    if (!testo.empty()) testo += "; ";
    if (!uno.colonna.empty()) testo += uno.colonna + ": ";
    testo += perLaFinestra(uno.testo) + " (" + std::string(intake::voce(uno.codice).sigla) + ")";
  }
  return testo;
}

}  // namespace

std::vector<std::size_t> fileConRigheErrate(const intake::Piano& piano) {
  std::vector<std::size_t> file;
  for (const intake::RigaPiano& riga : piano.righe) {
    if (!file.empty() && file.back() == riga.posizione.file) continue;
    if (fermaImportazione(piano, riga)) file.push_back(riga.posizione.file);
  }
  return file;
}

tabelle::TabellaDaScrivere righeErrate(const intake::Piano& piano, std::size_t file,
                                       const tabelle::Tabella& tabella) {
  tabelle::TabellaDaScrivere scritta;
  scritta.colonne = intestazioniDi(tabella);
  const std::size_t larga = scritta.colonne.size();
  scritta.colonne.emplace_back("Errore");
  for (const intake::RigaPiano& riga : piano.righe) {
    if (riga.posizione.file != file || !fermaImportazione(piano, riga)) continue;
    const tabelle::RigaTabella& originale = tabella.righe.at(riga.posizione.riga);
    std::vector<Value>& celle = scritta.righe.emplace_back();
    for (std::size_t i = 0; i < larga; ++i) {
      const std::string_view testo = originale.cella(i).testo;
      celle.push_back(testo.empty() ? Value() : Value::ofText(std::string(testo)));
    }
    celle.push_back(Value::ofText(motivi(riga)));
  }
  return scritta;
}

}  // namespace cu
