#pragma once

#include <exception>
#include <string>

namespace cu {

// The text of an error as a window says it: what is wrong with a database has the remedies of somebody who
// has neither profile nor command line.
std::string dettoInFinestra(const std::exception& errore);

}  // namespace cu
