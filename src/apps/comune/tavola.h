#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace cu {

// Rows of cells, each column as wide as its longest cell, parted by " | ". The first row is the heading.
void stampaTavola(const std::vector<std::vector<std::string>>& tavola, std::ostream& uscita);

}  // namespace cu
