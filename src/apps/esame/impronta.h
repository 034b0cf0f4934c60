#pragma once

#include <string>

namespace cu {

// The SHA-256 of a file, 64 hexadecimal digits. FileIlleggibile where it cannot be read.
std::string improntaFile(const std::string& percorso);

}  // namespace cu
