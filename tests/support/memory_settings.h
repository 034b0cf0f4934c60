#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "base/error.h"
#include "host/settings.h"

namespace cu::test {

// Settings in memory; writes can be made to fail.
class MemorySettings : public Settings {
 public:
  using Key = std::tuple<std::string, std::string, std::string>;  // application, section, name

  std::map<Key, std::string> values;
  std::vector<Key> asked;                                    // in order
  std::vector<std::pair<std::string, std::string>> deleted;  // application, section
  bool refuses = false;

  std::string get(std::string_view application, std::string_view section, std::string_view name,
                  std::string_view otherwise) override {
    asked.emplace_back(application, section, name);
    const auto found = values.find(asked.back());
    return found == values.end() ? std::string(otherwise) : found->second;
  }
  void set(std::string_view application, std::string_view section, std::string_view name,
           std::string_view value) override {
    if (refuses) throw FileError(kErrorPathAccess, "Le impostazioni non si possono scrivere.");
    values[Key(application, section, name)] = value;
  }
  void deleteSection(std::string_view application, std::string_view section) override {
    deleted.emplace_back(application, section);
    std::erase_if(values, [&](const auto& entry) {
      return std::get<0>(entry.first) == application && std::get<1>(entry.first) == section;
    });
  }
};

}  // namespace cu::test
