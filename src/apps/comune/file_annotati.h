#pragma once

#include <string>
#include <vector>

#include "suite/file_system.h"

namespace cu {

// The machine's files, with a note of each one that was opened for output.
class FileSystemAnnotato : public FileSystemPiattaforma {
 public:
  std::unique_ptr<OutputFile> openForOutput(const std::string& path) override {
    auto file = FileSystemPiattaforma::openForOutput(path);
    aperti_.push_back(path);
    return file;
  }
  const std::vector<std::string>& aperti() const { return aperti_; }

 private:
  std::vector<std::string> aperti_;
};

}  // namespace cu
