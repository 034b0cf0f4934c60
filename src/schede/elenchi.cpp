#include "schede/elenchi.h"

#include <algorithm>

#include "base/collation.h"
#include "base/text.h"
#include "schede/righe.h"
#include "schede/scrittura.h"

namespace cu::schede {

ElencoCodici::ElencoCodici(Connection& connessione, std::string_view tabella, std::string_view id,
                           std::string_view codice, std::string_view nome) {
  std::string domanda = "SELECT ";
  domanda.append(id).append(", ").append(codice);
  if (!nome.empty()) domanda.append(", ").append(nome);
  domanda.append(" FROM ").append(tabella).append(" ORDER BY ").append(id);
  RowStore righe;
  connessione.Query(domanda, righe);
  std::array<CellView, 3> celle;
  voci_.reserve(righe.size());
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    voci_.push_back({idIn(celle[0]), celle[1].toText(), nome.empty() ? std::string() : celle[2].toText()});
  }
}

const VoceElenco* ElencoCodici::diCodice(std::string_view codice) const {
  const auto trovata = std::find_if(voci_.begin(), voci_.end(), [&](const VoceElenco& voce) {
    return compareItalian(trim(voce.codice), trim(codice)) == 0;
  });
  return trovata == voci_.end() ? nullptr : &*trovata;
}

const VoceElenco* ElencoCodici::diId(std::int32_t id) const {
  const auto trovata =
      std::find_if(voci_.begin(), voci_.end(), [&](const VoceElenco& voce) { return voce.id == id; });
  return trovata == voci_.end() ? nullptr : &*trovata;
}

const std::string& ElencoCodici::codice(std::int32_t id) const {
  static const std::string kNiente;
  const VoceElenco* const voce = diId(id);
  return voce == nullptr ? kNiente : voce->codice;
}

std::string ElencoCodici::codici() const {
  std::string testo;
  for (const VoceElenco& voce : voci_) {
    if (!testo.empty()) testo += ", ";
    testo += voce.codice;
  }
  return testo;
}

Elenchi::Elenchi(Connection& connessione)
    : causali(connessione, "CausalePagamento", "IDCausalePagamento", "Codice", "CausalePagamento"),
      categorie(connessione, "CategoriaParticolare", "IDCategoriaParticolare", "CodiceCategoriaParticolare",
                ""),
      eventi(connessione, "EventoEccezionale", "IDEventoEccezionale", "CodiceEventoEccezionale", ""),
      cariche(connessione, "CodiceCarica", "IDCodiceCarica", "Codice", "CodiceCarica"),
      nonSoggette(connessione, "CodicePerNonSoggetti", "IDCodicePerNonSoggetti", "Codice", "Descrizione"),
      categorieEnti(connessione, "CUCategoriaEntePrevidenziale", "IDCUCategoriaEntePrevidenziale",
                    "CUCodiceCategoriaEntePrevidenziale", "") {
  perOgniRiga(connessione, kEnte, " ORDER BY IDCUEntePrevidenziale", [&](const CellView* riga) {
    enti.push_back({idIn(riga[0]), riga[1].toText(), riga[2].toText(), riga[3].toText()});
  });
}

const Ente* Elenchi::ente(std::int32_t id) const {
  const auto trovato = std::find_if(enti.begin(), enti.end(), [&](const Ente& uno) { return uno.id == id; });
  return trovato == enti.end() ? nullptr : &*trovato;
}

}  // namespace cu::schede
