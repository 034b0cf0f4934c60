#include "editors/casella.h"

#include "base/text.h"

namespace cu {

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

}  // namespace cu
