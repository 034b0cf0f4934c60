#include "suite/registro_errori.h"

#include <algorithm>

namespace cu {
namespace {

constexpr std::string_view kProprie[] = {"MessageType", "Message"};

}  // namespace

void RegistroErrori::addColumn(const std::string& name, int, int) { colonne_.push_back(name); }

void RegistroErrori::newRow() { riga_.assign(colonne_.size() + std::size(kProprie), Value()); }

void RegistroErrori::put(const std::string& column, const Value& value) {
  if (riga_.empty()) throw Error(kErrorNoCurrentRow, "Nessuna riga corrente.");
  const auto aggiunta = std::find(colonne_.begin(), colonne_.end(), column);
  if (aggiunta != colonne_.end()) {
    riga_[static_cast<std::size_t>(aggiunta - colonne_.begin())] = value;
    return;
  }
  const auto* const propria = std::find(std::begin(kProprie), std::end(kProprie), column);
  if (propria == std::end(kProprie)) {
    throw Error(kErrorItemNotFound, "La colonna \"" + column + "\" non esiste nel registro.");
  }
  riga_[colonne_.size() + static_cast<std::size_t>(propria - std::begin(kProprie))] = value;
}

void RegistroErrori::confirmRow() {
  if (riga_.empty()) throw Error(kErrorNoCurrentRow, "Nessuna riga corrente.");
  righe_.push_back(std::move(riga_));
  riga_.clear();
}

void RegistroErrori::show(int) {
  LogTable tabella{colonne_, righe_};
  tabella.columns.insert(tabella.columns.end(), std::begin(kProprie), std::end(kProprie));
  frontEnd_.showLog(tabella);
}

}  // namespace cu
