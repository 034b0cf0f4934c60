#include "apps/importazione/righe_errate.h"

#include <algorithm>
#include <string>
#include <utility>

#include "apps/importazione/parole_finestra.h"
#include "base/text.h"
#include "intake/corrispondenza.h"
#include "intake/testo_cella.h"

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
  // A column of an earlier such table is replaced.
  std::vector<std::size_t> proprie;
  std::string appoggio;
  for (std::size_t i = 0; i < tabella.intestazione.celle.size(); ++i) {
    const std::string titolo(intake::pulito(tabella.intestazione.celle[i].testo, appoggio));
    if (equalsNoCase(titolo, intake::kColonnaErrori)) continue;
    proprie.push_back(i);
    scritta.colonne.push_back(titolo);
  }
  scritta.colonne.emplace_back(intake::kColonnaErrori);
  for (const intake::RigaPiano& riga : piano.righe) {
    if (riga.posizione.file != file || !fermaImportazione(piano, riga)) continue;
    const tabelle::RigaTabella& originale = tabella.righe.at(riga.posizione.riga);
    std::vector<Value>& celle = scritta.righe.emplace_back();
    for (const std::size_t i : proprie) {
      const std::string_view testo = originale.cella(i).testo;
      celle.push_back(testo.empty() ? Value() : Value::ofText(std::string(testo)));
    }
    celle.push_back(Value::ofText(motivi(riga)));
  }
  return scritta;
}

}  // namespace cu
