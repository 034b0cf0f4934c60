#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace cu {

// A file of data/reports/ embedded in the program.
struct EmbeddedFile {
  std::string_view name;  // its path below that folder
  const unsigned char* bytes;
  std::size_t size;
};

std::span<const EmbeddedFile> embeddedFiles();

}  // namespace cu
