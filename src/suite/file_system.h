#pragma once

#include "host/filesystem.h"

namespace cu {

// The machine's files. Output collects whole writes into blocks.
class FileSystemPiattaforma : public FileSystem {
 public:
  // 552 lines of 1900 bytes. A block of exactly 1 MiB is slower in the system's page cache.
  static constexpr std::size_t kBlocco = std::size_t{552} * 1900;

  std::unique_ptr<OutputFile> openForOutput(const std::string& path) override;
  bool fileExists(const std::string& path) override;
  bool folderExists(const std::string& path) override;
  bool canWriteIn(const std::string& folder) override;
  bool canWrite(const std::string& path) override;
  void createFolder(const std::string& path) override;
  void copy(const std::string& from, const std::string& to) override;
  // Settings: a new file is its owner's alone, an existing one keeps its mode.
  void replace(const std::string& path, std::string_view content) override;
  std::string readAll(const std::string& path) override;
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  std::string join(std::string_view folder, std::string_view name) const override;
};

}  // namespace cu
