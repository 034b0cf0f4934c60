#pragma once

#include <string>
#include <string_view>

namespace cu {

inline constexpr std::string_view kMenuSettings = "MenuSettings";

// Persisted user settings, by application key, section and name.
class Settings {
 public:
  virtual ~Settings() = default;
  virtual std::string get(std::string_view application, std::string_view section, std::string_view name,
                          std::string_view otherwise) = 0;
  virtual void set(std::string_view application, std::string_view section, std::string_view name,
                   std::string_view value) = 0;
  virtual void deleteSection(std::string_view application, std::string_view section) = 0;
};

}  // namespace cu
