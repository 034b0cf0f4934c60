#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The commands that read what was filed. docs/automazione.md describes their answers.
namespace cu {

struct OpzioniInspect {
  std::string file;
  bool json = false;
  std::optional<std::int64_t> certificazione;  // counted over the whole file, from 1
};
int comandoInspect(const OpzioniInspect& opzioni);

struct OpzioniValidate {
  std::vector<std::string> file;
  bool json = false;
  bool severo = false;  // warnings count as errors
};
int comandoValidate(const OpzioniValidate& opzioni);

}  // namespace cu
