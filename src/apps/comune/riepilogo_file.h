#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace cu {

// What a telematic file of any size holds, counted from the file itself as it passes by.
struct RiepilogoFile {
  std::uint64_t byte = 0;
  std::map<char, std::uint64_t> record;  // how many lines begin with each type
  std::vector<std::string> prime;        // the first lines, without their end
};

inline constexpr std::size_t kPrimeRighe = 4;  // A, B, and the first certificate's D and H

// Nothing counted of a file that cannot be read.
RiepilogoFile riepiloga(const std::string& percorso);

}  // namespace cu
