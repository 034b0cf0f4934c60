#include "apps/importazione/modello_tabella.h"

#include <string>
#include <string_view>

#include "apps/importazione/scrittura_tabella.h"
#include "base/decimal.h"
#include "liste/liste.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

using intake::Colonna;
using intake::ColonnaAzienda;
using intake::ColonnaCompenso;
using intake::ColonnaPercipiente;
using intake::Elenco;
using intake::Obbligo;
using intake::TipoColonna;
using Righe = std::vector<std::vector<Value>>;

Value testo(std::string_view valore) { return valore.empty() ? Value() : Value::ofText(std::string(valore)); }

Value esempio(const Colonna& colonna) {
  switch (colonna.tipo) {
    case TipoColonna::Importo:
    case TipoColonna::Percentuale: {
      const auto importo = Decimal::parse(colonna.esempio);
      return importo && !colonna.esempio.empty() ? Value::ofDecimal(*importo) : Value();
    }
    case TipoColonna::Data: {
      const auto giorno = Date::parseIso(colonna.esempio);
      return giorno ? Value::ofDate(*giorno) : Value();
    }
    default:
      return testo(colonna.esempio);
  }
}

std::string_view dettoObbligo(Obbligo obbligo) {
  switch (obbligo) {
    case Obbligo::Nessuno:
      return "no";
    case Obbligo::Sempre:
      return "sì";
    case Obbligo::UnaDelleChiavi:
      return "una fra CodicePercipiente, CodiceFiscale e PartitaIva";
    case Obbligo::UnoDegliImporti:
      return "una fra Onorario, SommeNonSoggette, SommeRegimeConvenzionale e Lordo";
    case Obbligo::SeNonPersona:
      return "se l'azienda non è una persona fisica";
    case Obbligo::SeItaliano:
      break;
  }
  return "se è italiano e senza partita IVA";
}

// The entries of a list under a column's name: code and meaning.
void aggiungiLista(Righe& righe, std::string_view colonna, std::string_view lista, const char* codice,
                   const char* significato) {
  const Tabella tabella(risorsa(lista));
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    righe.push_back(
        {testo(colonna), Value(), testo(tabella.campo(i, codice)), testo(tabella.campo(i, significato))});
  }
}

void aggiungiListe(Righe& righe, Elenco elenco) {
  const auto nome = [](auto colonna) { return intake::colonna(colonna).nome; };
  switch (elenco) {
    case Elenco::Aziende:
      aggiungiLista(righe, nome(ColonnaAzienda::RappresentanteCarica), "liste/codici_carica.tsv", "Codice",
                    "CodiceCarica");
      aggiungiLista(righe, nome(ColonnaAzienda::EventoEccezionale), "liste/eventi_eccezionali.tsv", "Codice",
                    "Descrizione");
      return;
    case Elenco::Percipienti:
      aggiungiLista(righe, nome(ColonnaPercipiente::CategoriaParticolare), "liste/categorie_particolari.tsv",
                    "Codice", "Descrizione");
      aggiungiLista(righe, nome(ColonnaPercipiente::EventoEccezionale), "liste/eventi_eccezionali.tsv",
                    "Codice", "Descrizione");
      aggiungiLista(righe, nome(ColonnaPercipiente::EntePrevidenziale), "liste/enti_previdenziali.tsv",
                    "Denominazione", "CodiceFiscale");
      aggiungiLista(righe, nome(ColonnaPercipiente::CategoriaEnte), "liste/categorie_enti_previdenziali.tsv",
                    "Codice", "Descrizione");
      aggiungiLista(righe, nome(ColonnaPercipiente::Nazione), "liste/nazioni.tsv", "Nazione", "CodiceStato");
      return;
    case Elenco::Compensi:
      aggiungiLista(righe, nome(ColonnaCompenso::Causale), "liste/causali_pagamento.tsv", "Codice",
                    "CausalePagamento");
      aggiungiLista(righe, nome(ColonnaCompenso::CodiceNonSoggette), "liste/codici_non_soggetti.tsv",
                    "Codice", "Descrizione");
      return;
  }
}

std::string conIniziale(std::string_view nome) {
  std::string grande(nome);
  grande.front() = static_cast<char>(grande.front() - 'a' + 'A');
  return grande;
}

tabelle::TabellaDaScrivere daCompilare(Elenco elenco) {
  tabelle::TabellaDaScrivere dati;
  dati.foglio = conIniziale(intake::nome(elenco));
  dati.righe.emplace_back();
  for (const Colonna& colonna : intake::colonne(elenco)) {
    if (colonna.rara) continue;
    dati.colonne.emplace_back(colonna.nome);
    dati.righe.front().push_back(esempio(colonna));
  }
  return dati;
}

tabelle::TabellaDaScrivere valoriAmmessi(Elenco elenco) {
  tabelle::TabellaDaScrivere ammessi;
  ammessi.foglio = "Valori ammessi";
  ammessi.colonne = {"Colonna", "Obbligatoria", "Valore", "Significato"};
  for (const Colonna& colonna : intake::colonne(elenco)) {
    if (colonna.rara) continue;
    ammessi.righe.push_back(
        {testo(colonna.nome), testo(dettoObbligo(colonna.obbligo)), Value(), testo(colonna.ammessi)});
  }
  aggiungiListe(ammessi.righe, elenco);
  return ammessi;
}

}  // namespace

std::vector<tabelle::TabellaDaScrivere> modelloTabella(Elenco elenco) {
  std::vector<tabelle::TabellaDaScrivere> fogli;
  fogli.push_back(daCompilare(elenco));
  fogli.push_back(valoriAmmessi(elenco));
  return fogli;
}

void scriviModello(const std::string& file, Elenco elenco) {
  if (fileDiUnaTabella(file)) {
    scriviTabelle(file, {daCompilare(elenco)}, NewFile::AsUsual);
  } else {
    scriviTabelle(file, modelloTabella(elenco), NewFile::AsUsual);
  }
}

}  // namespace cu
