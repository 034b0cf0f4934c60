#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "lettura/esame.h"

namespace cu {

// The places of birth of the lists that the program carries: municipalities, former ones too, and countries.
class ElencoLuoghi : public lettura::Luoghi {
 public:
  ElencoLuoghi();
  // Case, accents, apostrophes and blanks do not count; of a name in two languages either will do.
  std::optional<bool> haNome(std::string_view catastale, std::string_view nome) const override;

 private:
  std::unordered_map<std::string, std::vector<std::string>> nomi_;  // by cadastral code
};

}  // namespace cu
