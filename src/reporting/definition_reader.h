#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "toml/toml.h"

namespace cu::reporting {

// Reads the keys of one table of a definition. Anything invalid raises Error with the file, the place and the
// expected value.
class DefinitionReader {
 public:
  DefinitionReader(const toml::table& table, std::string place) : table_(table), place_(std::move(place)) {}

  void only(std::initializer_list<std::string_view> keys) const;
  bool has(std::string_view key) const { return table_.contains(key); }
  std::string text(std::string_view key) const;  // not empty
  std::string textOr(std::string_view key, std::string_view otherwise) const;
  std::int32_t integer(std::string_view key) const;  // from 1
  bool flagOr(std::string_view key, bool otherwise) const;
  double number(std::string_view key) const;                   // above 0
  std::vector<std::string> texts(std::string_view key) const;  // at least one
  std::vector<std::string> textsOr(
      std::string_view key) const;  // a text or several; none where it is missing
  std::vector<DefinitionReader> tables(std::string_view key) const;  // [[key]]; none where it is missing
  std::vector<std::vector<DefinitionReader>> rows(std::string_view key) const;  // arrays of tables

  // The value of a word in this list, by its index.
  template <class T>
  T choice(std::string_view key, std::span<const std::pair<std::string_view, T>> words) const {
    const std::string found = text(key);
    std::string known;
    for (const auto& [word, value] : words) {
      if (word == found) return value;
      known += (known.empty() ? "" : ", ") + std::string(word);
    }
    refuse(key, "valore \"" + found + "\" sconosciuto", "uno di questi: " + known);
  }

  [[noreturn]] void refuse(std::string_view key, std::string_view fault, std::string_view expected) const;

 private:
  const toml::node& node(std::string_view key, std::string_view expected) const;
  const toml::table& table_;
  std::string place_;
};

[[noreturn]] void refuseDefinition(const std::string& text);

}  // namespace cu::reporting
