#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace cu {

// A drawing of data/desktop/ embedded in the program.
struct IconFile {
  std::string_view name;
  const unsigned char* bytes;
  std::size_t size;
};

std::span<const IconFile> iconFiles();

}  // namespace cu
