#include "editors/casella.h"

#include <utility>

#include "base/text.h"

namespace cu {
namespace {

Control::Loaded lettoIn(NumericBox& casella, Decimal numero) {
  Control::Loaded letto{casella.inFull(numero), {}};
  if (const auto scritto = casella.typed(numero))
    letto.enter = [&casella, testo = *scritto] { casella.enter(testo); };
  return letto;
}

Control::Loaded lettoIn(TextBox& casella, std::string testo) {
  Control::Loaded letto{testo, {}};
  const bool intero = casella.maxLength() == 0 || codePoints(testo) <= casella.maxLength();
  if (intero) letto.enter = [&casella, testo = std::move(testo)] { casella.enter(testo); };
  return letto;
}

Control::Loaded lettoIn(Check& casella, bool acceso) {
  return {acceso ? "Sì" : "No", [&casella, acceso] {
            if (casella.value() != acceso) casella.click();
          }};
}

// An id without an entry in the list cannot be chosen.
Control::Loaded lettoIn(ListBox& casella, std::int64_t id) {
  const int indice = id == 0 ? -1 : casella.indexOfRecord(id);
  if (indice < 0 && id != 0) return {fromInteger(id), {}};
  return {indice < 0 ? std::string() : casella.entries()[static_cast<std::size_t>(indice)].text,
          [&casella, indice] { casella.setIndex(indice); }};
}

}  // namespace

Control* Casella::controllo() const {
  if (importo != nullptr) return importo;
  if (testo != nullptr) return testo;
  if (flag != nullptr) return flag;
  if (elenco != nullptr) return elenco;
  return numero;
}

void Casella::mostra(const CellView& valore, const UtilitaSuite& utilita) {
  // An amount is passed as stored: a double cannot represent the fourth decimal place of a large one.
  if (importo != nullptr) importo->setNumber(valore.decimal());
  if (testo != nullptr) testo->setText(utilita.toText(valore));
  if (flag != nullptr) flag->setValue(valore.flag());
  if (elenco != nullptr) elenco->setRecord(utilita.toLong(valore));
  if (numero != nullptr) numero->setValue(utilita.toLong(valore));
}

void Casella::svuota() {
  if (importo != nullptr) importo->setText("");
  if (testo != nullptr) testo->setText("");
  if (flag != nullptr) flag->setValue(false);
  if (elenco != nullptr) elenco->setRecord(0);
  if (numero != nullptr) numero->setText("");
}

Value Casella::valore() const {
  if (importo != nullptr) return Value::ofDecimal(importo->number());
  if (testo != nullptr) return Value::ofText(testo->stored());
  if (flag != nullptr) return Value::ofInteger(flag->value() ? 1 : 0);
  if (elenco != nullptr) return Value::ofInteger(elenco->storedRecord().value_or(0));
  if (numero != nullptr) return Value::ofInteger(numero->value());
  return {};
}

bool Casella::pieno() const {
  if (importo != nullptr) return !importo->number().isZero();
  if (testo != nullptr) return !trim(testo->text()).empty();
  if (flag != nullptr) return flag->value();
  if (elenco != nullptr) return elenco->record().value_or(0) != 0;
  return numero != nullptr && numero->value() != 0;
}

bool Casella::diversa(const CellView& riga, const UtilitaSuite& utilita) const {
  if (importo != nullptr) return importo->number() != riga.decimal();
  if (testo != nullptr) return testo->stored() != utilita.toText(riga);
  if (flag != nullptr) return flag->value() != riga.flag();
  if (elenco != nullptr) return elenco->storedRecord().value_or(0) != utilita.toLong(riga);
  return numero != nullptr && numero->value() != utilita.toLong(riga);
}

Control::Loaded Casella::letto(const CellView& valore, const UtilitaSuite& utilita) const {
  if (importo != nullptr) return lettoIn(*importo, valore.decimal());
  if (testo != nullptr) return lettoIn(*testo, utilita.toText(valore));
  if (flag != nullptr) return lettoIn(*flag, valore.flag());
  if (elenco != nullptr) return lettoIn(*elenco, utilita.toLong(valore));
  return lettoIn(*numero, Decimal::fromInteger(utilita.toLong(valore)));
}

}  // namespace cu
