#include "reporting/definition_reader.h"

#include <algorithm>
#include <limits>

#include "base/text.h"
#include "reporting/report_error.h"

namespace cu::reporting {
namespace {

constexpr std::string_view kText = "un testo tra virgolette";
constexpr std::string_view kTexts = "un elenco di testi";

std::string ordinal(std::size_t index) { return fromInteger(static_cast<std::int64_t>(index + 1)); }

}  // namespace

void refuseDefinition(const std::string& text) {
  std::string line = "Definizione della stampa " + text + ".";
  // Names and values of a definition may contain line breaks and control characters.
  std::replace_if(
      line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
  throw Error(kErrorReportDefinition, line);
}

void DefinitionReader::refuse(std::string_view key, std::string_view fault, std::string_view expected) const {
  refuseDefinition(place_ + ": " + std::string(key) + ": " + std::string(fault) + ", atteso " +
                   std::string(expected));
}

void DefinitionReader::only(std::initializer_list<std::string_view> keys) const {
  for (const auto& [key, value] : table_) {
    if (std::find(keys.begin(), keys.end(), key.str()) != keys.end()) continue;
    std::string known;
    for (const std::string_view each : keys) known += (known.empty() ? "" : ", ") + std::string(each);
    refuse(key.str(), "chiave sconosciuta", "uno di questi nomi: " + known);
  }
}

const toml::node& DefinitionReader::node(std::string_view key, std::string_view expected) const {
  const toml::node* const found = table_.get(key);
  if (found == nullptr) refuse(key, "manca", expected);
  return *found;
}

std::string DefinitionReader::text(std::string_view key) const {
  const auto* const found = node(key, kText).as_string();
  if (found == nullptr) refuse(key, "tipo sbagliato", kText);
  if (found->get().empty()) refuse(key, "è vuoto", kText);
  return found->get();
}

std::string DefinitionReader::textOr(std::string_view key, std::string_view otherwise) const {
  return has(key) ? text(key) : std::string(otherwise);
}

std::int32_t DefinitionReader::integer(std::string_view key) const {
  constexpr std::string_view kExpected = "un numero intero maggiore di zero";
  const auto* const found = node(key, kExpected).as_integer();
  if (found == nullptr) refuse(key, "tipo sbagliato", kExpected);
  if (found->get() < 1 || found->get() > std::numeric_limits<std::int32_t>::max()) {
    refuse(key, "valore non ammesso", kExpected);
  }
  return static_cast<std::int32_t>(found->get());
}

bool DefinitionReader::flagOr(std::string_view key, bool otherwise) const {
  if (!has(key)) return otherwise;
  const auto* const found = node(key, "").as_boolean();
  if (found == nullptr) refuse(key, "tipo sbagliato", "true o false");
  return found->get();
}

double DefinitionReader::number(std::string_view key) const {
  constexpr std::string_view kExpected = "un numero maggiore di zero";
  const auto found = node(key, kExpected).value<double>();
  if (!found) refuse(key, "tipo sbagliato", kExpected);
  if (!(*found > 0 && *found < 1e6)) refuse(key, "valore non ammesso", kExpected);
  return *found;
}

std::vector<std::string> DefinitionReader::texts(std::string_view key) const {
  const auto* const list = node(key, kTexts).as_array();
  if (list == nullptr || list->empty()) refuse(key, list == nullptr ? "tipo sbagliato" : "è vuoto", kTexts);
  std::vector<std::string> result;
  for (const toml::node& each : *list) {
    const auto* const found = each.as_string();
    if (found == nullptr || found->get().empty()) refuse(key, "tipo sbagliato", kTexts);
    result.push_back(found->get());
  }
  return result;
}

std::vector<std::string> DefinitionReader::textsOr(std::string_view key) const {
  if (!has(key)) return {};
  if (node(key, kTexts).is_string()) return {text(key)};
  return texts(key);
}

std::vector<DefinitionReader> DefinitionReader::tables(std::string_view key) const {
  constexpr std::string_view kExpected = "un elenco di sezioni";
  if (!has(key)) return {};
  const auto* const list = node(key, kExpected).as_array();
  if (list == nullptr) refuse(key, "tipo sbagliato", kExpected);
  std::vector<DefinitionReader> result;
  for (std::size_t i = 0; i < list->size(); ++i) {
    const auto* const table = (*list)[i].as_table();
    if (table == nullptr) refuse(key, "tipo sbagliato", kExpected);
    result.emplace_back(*table, place_ + ": " + std::string(key) + " " + ordinal(i));
  }
  return result;
}

std::vector<std::vector<DefinitionReader>> DefinitionReader::rows(std::string_view key) const {
  constexpr std::string_view kExpected = "righe di caselle, come [ [ { field = ..., width = 1 } ] ]";
  const auto* const list = node(key, kExpected).as_array();
  if (list == nullptr || list->empty()) refuse(key, "tipo sbagliato", kExpected);
  std::vector<std::vector<DefinitionReader>> result;
  for (std::size_t i = 0; i < list->size(); ++i) {
    const auto* const row = (*list)[i].as_array();
    if (row == nullptr || row->empty()) refuse(key, "tipo sbagliato", kExpected);
    std::vector<DefinitionReader> boxes;
    for (std::size_t j = 0; j < row->size(); ++j) {
      const auto* const table = (*row)[j].as_table();
      if (table == nullptr) refuse(key, "tipo sbagliato", kExpected);
      boxes.emplace_back(*table, place_ + ", riga " + ordinal(i) + ", casella " + ordinal(j));
    }
    result.push_back(std::move(boxes));
  }
  return result;
}

}  // namespace cu::reporting
