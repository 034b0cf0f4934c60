#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace cu {

// Prints rows of cells, each column as wide as its longest cell, separated by " | ". The first row is the
// heading.
void stampaTavola(const std::vector<std::vector<std::string>>& tavola, std::ostream& uscita);

// A text whose control characters, line breaks above all, are blanks: of a name that is shown within a line.
std::string suUnaRiga(std::string testo);

}  // namespace cu
