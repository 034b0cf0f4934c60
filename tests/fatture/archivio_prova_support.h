#pragma once

#include <string>
#include <utility>
#include <vector>

namespace cu::fatture::prova {

// Names and bytes of what an archive holds, in order.
using Membri = std::vector<std::pair<std::string, std::string>>;

// The bytes of a ZIP archive.
std::string zipDi(const Membri& membri);

}  // namespace cu::fatture::prova
