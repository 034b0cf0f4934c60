#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/error.h"
#include "data/recordset.h"
#include "support/fake_connection.h"
#include "support/table.h"

namespace cu::test {

// An open recordset on rows of Numero, Nome, Importo, Scelto, Data.
class OpenRows {
 public:
  explicit OpenRows(std::vector<std::vector<Value>> rows, LockType lock = LockType::BatchOptimistic) {
    connection.answer("RIGHE", Table({{"Numero", ValueType::Integer},
                                      {"Nome", ValueType::Text},
                                      {"Importo", ValueType::Decimal},
                                      {"Scelto", ValueType::Integer},
                                      {"Data", ValueType::Date}},
                                     std::move(rows)));
    set.Open(connection, "RIGHE", lock);
  }

  FakeConnection connection;
  Recordset set;
};

inline std::vector<Value> line(std::int64_t number, std::string name, std::string_view sum = "0",
                               std::int64_t chosen = 0) {
  return {whole(number), text(std::move(name)), amount(sum), whole(chosen), null()};
}

inline std::vector<std::vector<Value>> lines(std::int64_t count) {
  std::vector<std::vector<Value>> rows;
  for (std::int64_t i = 1; i <= count; ++i) rows.push_back(line(i, "Nome " + std::to_string(i)));
  return rows;
}

// The numbers of the visible rows, in order; leaves the cursor after the last one.
inline std::vector<std::int64_t> numbers(Recordset& set) {
  std::vector<std::int64_t> result;
  if (set.RecordCount() == 0) return result;
  for (set.MoveFirst(); !set.Eof(); set.MoveNext()) result.push_back(set.Get("Numero").integer());
  return result;
}

template <class Operation>
int errorOf(Operation operation) {
  try {
    operation();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

}  // namespace cu::test
