// Any table as companies, payees or payments: a reading whose fields keep their kinds and whose messages are
// lines, and which is the same once its fields have been written as a table and read again.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "intake/lettura_righe.h"
#include "tabelle/scrittura.h"

namespace {

using cu::intake::Campo;
using cu::intake::Colonna;
using cu::intake::Elenco;
using cu::intake::Lettura;
using cu::intake::RigaLetta;
using cu::intake::StatoCampo;
using cu::intake::TipoColonna;

[[noreturn]] void fault(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

void check(bool kept, const char* what) {
  if (!kept) fault(what);
}

void checkMessage(const Lettura& reading, std::size_t row, const cu::intake::Messaggio& message) {
  check(!message.testo.empty(), "a message without a text");
  for (const char c : row == 0 ? cu::intake::dettoMessaggio(message)
                               : cu::intake::dettoMessaggio({reading.file, reading.foglio, row}, message)) {
    check(static_cast<unsigned char>(c) >= 0x20, "a message of several lines");
  }
}

void checkText(std::string_view text) {
  check(!text.empty() && text.front() != ' ' && text.back() != ' ', "a text with blanks at its ends");
  check(cu::codePoints(text) <= cu::intake::kMassimoCaratteri, "a text that is too long");
  for (const char c : text) check(static_cast<unsigned char>(c) >= 0x20, "a control character");
}

void checkField(const Lettura& reading, const Campo& field) {
  const Colonna& column = cu::intake::colonne(reading.elenco)[field.colonna];
  if (field.stato == StatoCampo::Svuotato) {
    check(field.valore.isNull(), "an emptied field with a value");
    return;
  }
  switch (column.tipo) {
    case TipoColonna::Importo: {
      check(field.valore.type() == cu::ValueType::Decimal, "an amount that is none");
      const cu::Decimal amount = field.valore.decimal();
      check(amount == amount.rounded(2), "an amount with more than two decimals");
      check(amount.abs() < cu::Decimal::fromInteger(100'000'000'000), "an amount beyond the limit");
      break;
    }
    case TipoColonna::Percentuale:
      check(field.valore.type() == cu::ValueType::Decimal, "a percentage that is none");
      check(
          field.valore.decimal() >= cu::Decimal() && field.valore.decimal() <= cu::Decimal::fromInteger(100),
          "a percentage beyond the limits");
      break;
    case TipoColonna::Data:
      check(field.valore.type() == cu::ValueType::Date, "a date that is none");
      check(field.valore.date().year() >= 1900 && field.valore.date().year() < 2200,
            "a date of another time");
      break;
    case TipoColonna::Logico:
      check(field.valore.integer() == 0 || field.valore.integer() == 1, "a flag that is none");
      break;
    default:
      checkText(field.valore.text());
  }
}

void checkReading(const Lettura& reading) {
  for (const auto& message : reading.messaggi) checkMessage(reading, 0, message);
  std::size_t number = 0;
  for (const RigaLetta& row : reading.righe) {
    check(row.numero > number, "rows out of order");
    number = row.numero;
    for (const auto& message : row.messaggi) checkMessage(reading, row.numero, message);
    int column = -1;
    for (const Campo& field : row.campi) {
      check(field.colonna > column, "fields out of order");
      column = field.colonna;
      checkField(reading, field);
    }
  }
}

// The rows that have a field: a row without one is not written as one.
std::vector<const RigaLetta*> withFields(const Lettura& reading) {
  std::vector<const RigaLetta*> rows;
  for (const RigaLetta& row : reading.righe) {
    if (!row.campi.empty()) rows.push_back(&row);
  }
  return rows;
}

// What a rejected cell would have given is derived from the others once that cell is empty.
bool wrong(const RigaLetta* row) {
  return std::any_of(row->messaggi.begin(), row->messaggi.end(),
                     [](const auto& message) { return message.gravita == cu::intake::Gravita::Errore; });
}

void checkAgain(const Lettura& reading, cu::Date today) {
  std::vector<const RigaLetta*> rows = withFields(reading);
  std::erase_if(rows, wrong);
  cu::tabelle::TabellaDaScrivere written;
  for (const Colonna& column : cu::intake::colonne(reading.elenco)) written.colonne.emplace_back(column.nome);
  for (const RigaLetta* row : rows) {
    auto& values = written.righe.emplace_back(written.colonne.size());
    for (const Campo& field : row->campi) {
      values[field.colonna] =
          field.stato == StatoCampo::Svuotato ? cu::Value::ofText("-") : cu::Value::of(field.valore);
    }
  }
  cu::intake::Mappatura wide;
  wide.lettura.separatore = ';';
  wide.lettura.limiti.byte *= 4;
  const Lettura again =
      cu::intake::leggiFile(cu::tabelle::scriviCsv(written), "again", reading.elenco, wide, today);
  check(again.messaggi.empty(), "a message about the columns of what was written");
  const std::vector<const RigaLetta*> others = withFields(again);
  check(others.size() == rows.size(), "another number of rows");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    check(others[i]->campi.size() == rows[i]->campi.size(), "another number of fields");
    for (std::size_t j = 0; j < rows[i]->campi.size(); ++j) {
      const Campo& before = rows[i]->campi[j];
      const Campo& after = others[i]->campi[j];
      check(before.colonna == after.colonna && before.stato == after.stato, "another field");
      check(cu::Value::of(before.valore) == cu::Value::of(after.valore), "another value");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  const unsigned choice = data[0];
  const auto kind = static_cast<Elenco>(choice % 3);
  cu::intake::Mappatura mapping;
  if ((choice & 4U) != 0) mapping.decimali = ',';
  if ((choice & 8U) != 0) mapping.migliaia = '.';
  if ((choice & 16U) != 0) mapping.date = static_cast<cu::intake::OrdineData>(choice / 32 % 3);
  const cu::Date today = *cu::Date::fromYmd(2018, 3, 5);
  const Lettura reading = cu::intake::leggiFile(bytes, "file.csv", kind, mapping, today);
  checkReading(reading);
  checkAgain(reading, today);
  return 0;
}
