#pragma once

#include <memory>

#include "host/filesystem.h"

namespace cu {

// Records what is done to files, never their names: those of forms contain fiscal codes.
class LoggedFileSystem : public FileSystem {
 public:
  explicit LoggedFileSystem(std::unique_ptr<FileSystem> files) : files_(std::move(files)) {}
  std::unique_ptr<OutputFile> openForOutput(const std::string& path) override;
  bool fileExists(const std::string& path) override { return files_->fileExists(path); }
  bool folderExists(const std::string& path) override { return files_->folderExists(path); }
  bool canWriteIn(const std::string& folder) override { return files_->canWriteIn(folder); }
  bool canWrite(const std::string& path) override { return files_->canWrite(path); }
  void createFolder(const std::string& path) override;
  void copy(const std::string& from, const std::string& to) override;
  void replace(const std::string& path, std::string_view content) override;
  std::string readAll(const std::string& path) override;
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  std::string join(std::string_view folder, std::string_view name) const override {
    return files_->join(folder, name);
  }

 private:
  std::unique_ptr<FileSystem> files_;
};

// The machine's files, recorded where the process has a log.
std::unique_ptr<FileSystem> machineFiles();

}  // namespace cu
