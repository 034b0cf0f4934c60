#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cu {

struct LibreriaUsata {
  std::string uso;   // what it is for, in a word or two
  std::string nome;  // with its version
};

// The version alone, such as "0.1.0".
const char* versioneBreve();

// What a support desk asks first, for users: the program with its version and date, then a line for each
// database engine and library, as they run; of the prints the library with which they were built. `altre` are
// those of the calling program alone.
std::string testoVersione(std::string_view programma, const std::vector<LibreriaUsata>& altre = {});

}  // namespace cu
