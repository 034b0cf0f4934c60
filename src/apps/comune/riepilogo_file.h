#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace cu {

// A summary of a telematic file of any size, counted while the file is read as a stream.
struct RiepilogoFile {
  std::uint64_t byte = 0;
  std::map<char, std::uint64_t> record;  // number of lines by record type
  std::vector<std::string> prime;        // the first lines, without their end
};

inline constexpr std::size_t kPrimeRighe = 4;  // A, B, and the first certificate's D and H

// Returns zero counts for a file that cannot be read.
RiepilogoFile riepiloga(const std::string& percorso);

}  // namespace cu
