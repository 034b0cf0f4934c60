#include "apps/esame/ricevuta_letta.h"

#include <algorithm>
#include <array>
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

constexpr std::array<const char*, 4> kOccorrono = {"CodiceFiscale", "Protocollo", "Progressivo", "Esito"};

// The columns by their normalised names; those that are required are there.
using Colonne = std::map<std::string, std::size_t>;

Colonne colonneDi(const tabelle::Tabella& tabella) {
  Colonne colonne;
  for (std::size_t i = 0; i < tabella.intestazione.celle.size(); ++i) {
    colonne.emplace(tabelle::normalizza(tabella.intestazione.celle[i].testo), i);
  }
  const tabelle::Posto posto{tabella.file, tabella.foglio, tabella.intestazione.numero, 0};
  const auto manca = [&](const char* nome) { return !colonne.contains(tabelle::normalizza(nome)); };
  if (std::all_of(kOccorrono.begin(), kOccorrono.end(), manca)) {
    throw tabelle::ErroreTabella("C01", posto,
                                 "non è la tabella di una ricevuta, nessuna intestazione è nota: occorrono "
                                 "CodiceFiscale, Protocollo, Progressivo ed Esito; Causale e Motivo possono "
                                 "mancare");
  }
  const auto prima = std::find_if(kOccorrono.begin(), kOccorrono.end(), manca);
  if (prima != kOccorrono.end()) {
    throw tabelle::ErroreTabella("C01", posto, std::string("manca la colonna \"") + *prima + "\"");
  }
  return colonne;
}

std::vector<RigaRicevuta> righeDi(const tabelle::Tabella& tabella) {
  const Colonne colonne = colonneDi(tabella);
  if (tabella.righe.empty()) {
    throw tabelle::ErroreTabella("F01", {tabella.file, tabella.foglio, 0, 0},
                                 "la ricevuta è vuota: sotto le intestazioni non c'è nessuna riga");
  }
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
