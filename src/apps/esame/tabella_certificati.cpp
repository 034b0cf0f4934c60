#include "apps/esame/tabella_certificati.h"

#include <cstdint>
#include <utility>

#include "base/decimal.h"
#include "suite/platform_file.h"

namespace cu {
namespace {

Value testo(std::string valore) { return valore.empty() ? Value() : Value::ofText(std::move(valore)); }

Value importo(std::int64_t centesimi) {
  return centesimi == 0 ? Value() : Value::ofDecimal(Decimal::fromScaled(centesimi * 100));
}

Value importo(const std::string& valore) { return importo(lettura::centesimiDi(valore)); }

}  // namespace

TabellaCertificati::TabellaCertificati(lettura::Ascoltatore* altro) : altro_(altro) {
  tabella_.foglio = "Certificazioni";
  tabella_.colonne = {"Sostituto",       "Numero", "Riga",        "CodiceFiscale", "Nome",
                      "Causale",         "Lordo",  "NonSoggette", "Imponibile",    "RitenutaAcconto",
                      "RitenutaImposta", "Moduli", "Operazione",  "Protocollo",    "Progressivo"};
}

void TabellaCertificati::fornitura(const lettura::Fornitura& fornitura) {
  if (altro_ != nullptr) altro_->fornitura(fornitura);
}

void TabellaCertificati::sostituto(const lettura::Sostituto& sostituto) {
  sostituto_ = sostituto.codiceFiscale;
  if (altro_ != nullptr) altro_->sostituto(sostituto);
}

void TabellaCertificati::certificato(const lettura::Certificato& c) {
  tabella_.righe.push_back(
      {testo(sostituto_), Value::ofInteger(c.numero), Value::ofInteger(c.riga), testo(c.percipiente),
       testo(c.nome), testo(c.causale()), importo(c.valore("AU001004")), importo(lettura::nonSoggette(c)),
       importo(c.valore("AU001008")), importo(c.valore("AU001009")), importo(c.valore("AU001010")),
       Value::ofInteger(static_cast<std::int64_t>(c.moduli.size())), testo(c.operazione), testo(c.protocollo),
       testo(c.progressivo)});
  if (altro_ != nullptr) altro_->certificato(c);
}

void TabellaCertificati::scriviCsv(const std::string& percorso) const {
  replaceFile(percorso, tabelle::scriviCsv(tabella_), NewFile::OwnerOnly);
}

void TabellaCertificati::scriviXlsx(const std::string& percorso) const {
  replaceFile(percorso, tabelle::componiXlsx(tabella_, {.file = percorso}), NewFile::OwnerOnly);
}

}  // namespace cu
