#include "completamento.h"

#include <algorithm>

#include "comandi.h"
#include "intake/messaggi.h"
#include "liste/liste.h"

namespace cu {
namespace {

std::vector<std::string> causaliNote() {
  std::vector<std::string> codici;
  for (const VoceInLista& voce : causaliPagamento()) codici.emplace_back(voce.codice);
  return codici;
}

std::vector<std::string> avvisiAccettabili() {
  std::vector<std::string> sigle;
  for (const intake::VoceCodice& voce : intake::kVociCodici) {
    if (intake::accettabile(voce.codice)) sigle.emplace_back(voce.sigla);
  }
  return sigle;
}

void aggiungiParole(Proposta& proposta, const std::vector<std::string>& parole) {
  proposta.parole.insert(proposta.parole.end(), parole.begin(), parole.end());
}

void aggiungiEstensioni(Proposta& proposta, std::initializer_list<const char*> estensioni) {
  proposta.estensioni.insert(proposta.estensioni.end(), estensioni.begin(), estensioni.end());
}

bool parolaDaScrivere(const std::string& tipo) {
  return !tipo.empty() && std::none_of(tipo.begin(), tipo.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

void aggiungiTipo(Proposta& proposta, const std::string& tipo) {
  if (parolaDaScrivere(tipo)) return aggiungiParole(proposta, {tipo});
  if (tipo.starts_with("FILE.")) return aggiungiEstensioni(proposta, {tipo.substr(5).c_str()});
  if (tipo == "TABELLA") return aggiungiEstensioni(proposta, {"csv", "tsv", "txt", "xlsx"});
  if (tipo == "FATTURA") return aggiungiEstensioni(proposta, {"xml", "p7m"});
  if (tipo == "STAMPA") return aggiungiParole(proposta, {kStampe.begin(), kStampe.end()});
  if (tipo == "CAUSALE") return aggiungiParole(proposta, causaliNote());
  if (tipo == "CODICI") return aggiungiParole(proposta, avvisiAccettabili());
  proposta.file = proposta.file || tipo == "FILE";
  proposta.cartelle = proposta.cartelle || tipo == "CARTELLA";
  proposta.indirizzo = proposta.indirizzo || tipo == "URL";
}

}  // namespace

Proposta propostaDi(const CLI::Option& opzione) {
  Proposta proposta;
  if (!prendeValore(opzione)) return proposta;
  const std::string tipi = opzione.get_type_name();
  for (std::size_t inizio = 0; inizio <= tipi.size();) {
    const std::size_t fine = std::min(tipi.find('|', inizio), tipi.size());
    aggiungiTipo(proposta, tipi.substr(inizio, fine - inizio));
    inizio = fine + 1;
  }
  return proposta;
}

std::vector<const CLI::App*> comandiMostrati(const CLI::App& comando) {
  return comando.get_subcommands([](const CLI::App* uno) { return !uno->get_group().empty(); });
}

std::vector<const CLI::Option*> opzioniMostrate(const CLI::App& comando) {
  return comando.get_options(
      [](const CLI::Option* una) { return una->nonpositional() && !una->get_group().empty(); });
}

std::vector<const CLI::Option*> argomentiMostrati(const CLI::App& comando) {
  return comando.get_options([](const CLI::Option* uno) { return uno->get_positional(); });
}

std::vector<std::string> nomiScritti(const CLI::Option& opzione) {
  std::vector<std::string> nomi;
  for (const std::string& lungo : opzione.get_lnames()) nomi.push_back("--" + lungo);
  for (const std::string& corto : opzione.get_snames()) nomi.push_back("-" + corto);
  return nomi;
}

bool prendeValore(const CLI::Option& opzione) { return opzione.get_items_expected_max() > 0; }

}  // namespace cu
