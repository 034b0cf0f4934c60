#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace cu {

// What a telematic file holds, counted from the file itself.
struct RiepilogoFile {
  std::uint64_t byte = 0;
  std::map<char, std::uint64_t> record;  // how many lines begin with each type
  bool completo = false;                 // whole lines, the last one of type Z
};

// Nothing counted of a file that cannot be read.
RiepilogoFile riepiloga(const std::string& percorso);

}  // namespace cu
