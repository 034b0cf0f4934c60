#include "archive/riempi_liste.h"

#include <string>
#include <vector>

#include "base/text.h"
#include "data/inserimento.h"
#include "liste/liste.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

std::int32_t idScritto(std::string_view testo) { return static_cast<std::int32_t>(leadingInteger(testo)); }

// A list whose first column is the id and whose other columns are texts.
struct Lista {
  std::string_view risorsa;
  std::string_view tabella;
  std::string_view id;
  struct Colonna {
    std::string_view colonna;
    std::string_view campo;
    bool intero = false;
  };
  std::vector<Colonna> colonne;
};

void riempi(Connection& connessione, const Lista& lista) {
  const Tabella tabella(risorsa(lista.risorsa));
  std::vector<std::string> nomi{std::string(lista.id)};
  for (const Lista::Colonna& colonna : lista.colonne) nomi.emplace_back(colonna.colonna);
  Inserimento inserimento(connessione, lista.tabella, nomi);
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    inserimento.intero(idScritto(tabella.campo(i, std::size_t{0})));
    for (const Lista::Colonna& colonna : lista.colonne) {
      const std::string_view campo = tabella.campo(i, colonna.campo);
      if (colonna.intero) {
        inserimento.intero(idScritto(campo));
      } else {
        inserimento.testo(campo);
      }
    }
    inserimento.riga();
  }
  inserimento.chiudi();
}

void riempiComuni(Connection& connessione) {
  const Tabella province(risorsa("liste/province.tsv"));
  const auto idProvincia = [&](std::string_view sigla) {
    for (std::size_t i = 0; i < province.righe(); ++i) {
      if (province.campo(i, 1) == sigla) return idScritto(province.campo(i, std::size_t{0}));
    }
    throw std::out_of_range("provincia sconosciuta: " + std::string(sigla));
  };
  Inserimento inserimento(connessione, "Comune",
                          {"IDComune", "Comune", "IDProvincia", "CodiceComuneDiNascita"});
  for (const ComuneInLista& comune : comuni()) {
    inserimento.intero(comune.id)
        .testo(comune.nome)
        .intero(idProvincia(comune.provincia))
        .testo(comune.catasto);
    inserimento.riga();
  }
  inserimento.chiudi();
}

}  // namespace

void riempiListe(Connection& connessione) {
  riempi(connessione, {"liste/province.tsv", "Provincia", "IDProvincia", {{"Provincia", "Provincia"}}});
  riempiComuni(connessione);
  riempi(connessione, {"liste/nazioni.tsv",
                       "Nazione",
                       "IDNazione",
                       {{"Nazione", "Nazione"}, {"PrefissoInternazionale", "CodiceStato"}}});
  riempi(connessione, {"liste/causali_pagamento.tsv",
                       "CausalePagamento",
                       "IDCausalePagamento",
                       {{"Codice", "Codice"},
                        {"CausalePagamento", "CausalePagamento"},
                        {"IDTipoCausalePagamento", "IDTipoCausalePagamento", true}}});
  riempi(connessione, {"liste/codici_non_soggetti.tsv",
                       "CodicePerNonSoggetti",
                       "IDCodicePerNonSoggetti",
                       {{"Codice", "Codice"}, {"Descrizione", "Descrizione"}}});
  riempi(connessione, {"liste/codici_carica.tsv",
                       "CodiceCarica",
                       "IDCodiceCarica",
                       {{"Codice", "Codice"}, {"CodiceCarica", "CodiceCarica"}}});
  riempi(connessione, {"liste/categorie_particolari.tsv",
                       "CategoriaParticolare",
                       "IDCategoriaParticolare",
                       {{"CodiceCategoriaParticolare", "Codice"}}});
  riempi(connessione, {"liste/eventi_eccezionali.tsv",
                       "EventoEccezionale",
                       "IDEventoEccezionale",
                       {{"CodiceEventoEccezionale", "Codice"}}});
  riempi(connessione, {"liste/enti_previdenziali.tsv",
                       "CUEntePrevidenziale",
                       "IDCUEntePrevidenziale",
                       {{"CUCodiceFiscale", "CodiceFiscale"},
                        {"CUDenominazioneEntePrevidenziale", "Denominazione"},
                        {"CUCodiceEntePrevidenziale", "CodiceEnte"}}});
  riempi(connessione, {"liste/categorie_enti_previdenziali.tsv",
                       "CUCategoriaEntePrevidenziale",
                       "IDCUCategoriaEntePrevidenziale",
                       {{"CUCodiceCategoriaEntePrevidenziale", "Codice"}}});
}

}  // namespace cu
