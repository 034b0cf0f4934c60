#include "apps/esame/ricevuta_letta.h"

#include <map>

#include "apps/comune/file_letto.h"
#include "base/text.h"
#include "tabelle/errore.h"
#include "tabelle/lettura.h"

namespace cu {
namespace {

using riscontro::RigaRicevuta;

std::string contenuto(const std::string& percorso) {
  FileLetto file(percorso);
  std::string testo;
  std::vector<char> blocco(std::size_t{1} << 16U);
  while (const std::size_t letti = file.leggi(blocco.data(), blocco.size()))
    testo.append(blocco.data(), letti);
  return testo;
}

// The columns by their normalised names; those that are required are there.
using Colonne = std::map<std::string, std::size_t>;

Colonne colonneDi(const tabelle::Tabella& tabella) {
  Colonne colonne;
  for (std::size_t i = 0; i < tabella.intestazione.celle.size(); ++i) {
    colonne.emplace(tabelle::normalizza(tabella.intestazione.celle[i].testo), i);
  }
  for (const char* occorre : {"CodiceFiscale", "Protocollo", "Progressivo", "Esito"}) {
    if (colonne.contains(tabelle::normalizza(occorre))) continue;
    throw tabelle::ErroreTabella("C01", {tabella.file, tabella.foglio, tabella.intestazione.numero, 0},
                                 std::string("manca la colonna \"") + occorre + "\"");
  }
  return colonne;
}

std::vector<RigaRicevuta> righeDi(const tabelle::Tabella& tabella) {
  const Colonne colonne = colonneDi(tabella);
  std::vector<RigaRicevuta> righe;
  for (const tabelle::RigaTabella& riga : tabella.righe) {
    const auto testo = [&](const char* nome) {
      const auto colonna = colonne.find(tabelle::normalizza(nome));
      return colonna == colonne.end() ? std::string() : std::string(trim(riga.cella(colonna->second).testo));
    };
    righe.push_back({static_cast<std::int64_t>(riga.numero), testo("CodiceFiscale"), testo("Causale"),
                     testo("Protocollo"), testo("Progressivo"), testo("Esito"), testo("Motivo")});
  }
  return righe;
}

}  // namespace

std::vector<RigaRicevuta> righeRicevuta(const std::string& percorso) {
  return righeDi(tabelle::leggiTabella(contenuto(percorso), percorso));
}

}  // namespace cu
