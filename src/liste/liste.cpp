#include "liste/liste.h"

#include <stdexcept>
#include <string>

#include "base/text.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

std::int32_t idScritto(std::string_view testo) { return static_cast<std::int32_t>(leadingInteger(testo)); }

std::vector<VoceInLista> voci(std::string_view risorsaLista) {
  const Tabella tabella(risorsa(risorsaLista));
  std::vector<VoceInLista> elenco;
  elenco.reserve(tabella.righe());
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    elenco.push_back({idScritto(tabella.campo(i, "ID")), tabella.campo(i, "Codice")});
  }
  return elenco;
}

}  // namespace

std::vector<ComuneInLista> comuni() {
  const Tabella tabella(risorsa("liste/comuni.tsv"));
  std::vector<ComuneInLista> elenco;
  elenco.reserve(tabella.righe());
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    const std::string_view catasto = tabella.campo(i, "CodiceCatastale");
    elenco.push_back({idComune(catasto), tabella.campo(i, "Comune"), catasto, tabella.campo(i, "Provincia"),
                      static_cast<int>(leadingInteger(tabella.campo(i, "Soppresso")))});
  }
  return elenco;
}

std::vector<NazioneInLista> nazioni() {
  const Tabella tabella(risorsa("liste/nazioni.tsv"));
  std::vector<NazioneInLista> elenco;
  elenco.reserve(tabella.righe());
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    const std::string_view codice = tabella.campo(i, "CodiceStato");
    elenco.push_back(
        {idScritto(codice), codice, tabella.campo(i, "Nazione"), tabella.campo(i, "CodiceCatastale")});
  }
  return elenco;
}

std::vector<VoceInLista> causaliPagamento() { return voci("liste/causali_pagamento.tsv"); }
std::string_view descrizioneCausale(std::string_view codice) {
  const Tabella tabella(risorsa("liste/causali_pagamento.tsv"));
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    if (tabella.campo(i, "Codice") == codice) return tabella.campo(i, "CausalePagamento");
  }
  return {};
}

std::vector<VoceInLista> categorieParticolari() { return voci("liste/categorie_particolari.tsv"); }
std::vector<VoceInLista> eventiEccezionali() { return voci("liste/eventi_eccezionali.tsv"); }

std::vector<VoceInLista> categorieEntiPrevidenziali() {
  return voci("liste/categorie_enti_previdenziali.tsv");
}

std::vector<EnteInLista> entiPrevidenziali() {
  const Tabella tabella(risorsa("liste/enti_previdenziali.tsv"));
  std::vector<EnteInLista> elenco;
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    elenco.push_back({idScritto(tabella.campo(i, "ID")), tabella.campo(i, "CodiceFiscale"),
                      tabella.campo(i, "Denominazione"), tabella.campo(i, "CodiceEnte")});
  }
  return elenco;
}

std::int32_t idComune(std::string_view catasto) {
  const bool valido = catasto.size() == 4 && catasto[0] >= 'A' && catasto[0] <= 'Z' &&
                      catasto.find_first_not_of("0123456789", 1) == std::string_view::npos;
  if (!valido) throw std::invalid_argument("codice catastale non valido: " + std::string(catasto));
  return (catasto[0] - 'A' + 1) * 1000 + idScritto(catasto.substr(1));
}

}  // namespace cu
