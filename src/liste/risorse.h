#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace cu {

// A file of data/ embedded in the program.
struct RisorsaIncorporata {
  std::string_view nome;  // its path below data/, such as "liste/comuni.tsv"
  const unsigned char* dati;
  std::size_t lunghezza;
};

std::span<const RisorsaIncorporata> risorseIncorporate();

// The content of an embedded file; raises std::out_of_range for an unknown name.
std::string_view risorsa(std::string_view nome);

}  // namespace cu
