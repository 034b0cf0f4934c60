#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace cu {

// A file of data/ that the program carries.
struct RisorsaIncorporata {
  std::string_view nome;  // its path below data/, such as "liste/comuni.tsv"
  const unsigned char* dati;
  std::size_t lunghezza;
};

std::span<const RisorsaIncorporata> risorseIncorporate();

// The content of one of them; std::out_of_range for a name that the program does not carry.
std::string_view risorsa(std::string_view nome);

}  // namespace cu
