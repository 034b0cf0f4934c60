#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace cu {

// Prints rows of cells, each column as wide as its longest cell, separated by " | ". The first row is the
// heading.
void stampaTavola(const std::vector<std::vector<std::string>>& tavola, std::ostream& uscita);

}  // namespace cu
