#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/error.h"
#include "host/filesystem.h"

namespace cu::test {

// Files and folders in memory, with '/' as separator. The root exists; every other folder has to be created.
// Any operation can be made to fail, and the space can be limited.
class MemoryFileSystem : public FileSystem {
 public:
  enum class Operation { Open, Write, Close, CreateFolder, Copy, Replace, Read, Remove, Rename };

  std::map<std::string, std::string> files;
  std::set<std::string> folders;
  std::set<std::string> closed;     // read-only folders and files
  std::vector<std::string> opened;  // paths, in order
  int openNow = 0;                  // number of files open now

  // The n-th operation of that kind from now on (counted from 1) fails with the number, once.
  void failNth(Operation operation, int nth, int number, std::string message = "guasto provocato") {
    failures_.push_back({operation, nth, number, std::move(message)});
  }
  // The number of bytes that can still be written; a write that does not fit is partial and fails with 61.
  void limitSpace(std::size_t bytes) { space_ = bytes; }
  void freeSpace() { space_.reset(); }

  // Damages a file.
  void truncate(const std::string& path, std::size_t size) { files.at(path).resize(size); }
  void setByte(const std::string& path, std::size_t at, char value) { files.at(path).at(at) = value; }

  std::unique_ptr<OutputFile> openForOutput(const std::string& path) override {
    check(Operation::Open);
    if (!folderExists(parent(path))) throw FileError(kErrorPathNotFound, "Percorso inesistente.");
    if (folders.contains(path)) throw FileError(kErrorPathAccess, "È una cartella.");
    if (closed.contains(path) || closed.contains(parent(path)))
      throw FileError(kErrorPathAccess, "Accesso negato.");
    opened.push_back(path);
    files[path].clear();
    return std::make_unique<File>(*this, path);
  }
  bool fileExists(const std::string& path) override { return files.contains(path); }
  bool folderExists(const std::string& path) override {
    return path.empty() || path == "/" || folders.contains(path);
  }
  bool canWriteIn(const std::string& folder) override {
    return folderExists(folder) && !closed.contains(folder);
  }
  bool canWrite(const std::string& path) override {
    return fileExists(path) && !closed.contains(path) && !closed.contains(parent(path));
  }
  void createFolder(const std::string& path) override {
    check(Operation::CreateFolder);
    if (!folderExists(parent(path))) throw FileError(kErrorPathNotFound, "Percorso inesistente.");
    folders.insert(path);
  }
  void copy(const std::string& from, const std::string& to) override {
    check(Operation::Copy);
    const std::string content = existing(from);
    if (!folderExists(parent(to))) throw FileError(kErrorPathNotFound, "Percorso inesistente.");
    files[to] = content;
  }
  void replace(const std::string& path, std::string_view content) override {
    check(Operation::Replace);
    if (!folderExists(parent(path))) throw FileError(kErrorPathNotFound, "Percorso inesistente.");
    files[path] = content;
  }
  std::string readAll(const std::string& path) override {
    check(Operation::Read);
    return existing(path);
  }
  void remove(const std::string& path) override {
    check(Operation::Remove);
    existing(path);
    files.erase(path);
  }
  void rename(const std::string& from, const std::string& to) override {
    check(Operation::Rename);
    files[to] = existing(from);
    files.erase(from);
  }
  std::string join(std::string_view folder, std::string_view name) const override {
    std::string path(folder);
    if (path.empty() || path.back() != '/') path += '/';
    return path.append(name);
  }

 private:
  class File : public OutputFile {
   public:
    File(MemoryFileSystem& owner, std::string path) : owner_(owner), path_(std::move(path)) {
      ++owner_.openNow;
    }
    ~File() override {
      if (open_) --owner_.openNow;
    }
    void write(std::string_view bytes) override {
      owner_.check(Operation::Write);
      const bool fits = !owner_.space_ || *owner_.space_ >= bytes.size();
      const std::string_view written = fits ? bytes : bytes.substr(0, *owner_.space_);
      owner_.files[path_].append(written);
      if (owner_.space_) *owner_.space_ -= written.size();
      if (!fits) throw FileError(kErrorDiskFull, "Spazio su disco esaurito.");
    }
    void close() override {
      owner_.check(Operation::Close);
      if (open_) --owner_.openNow;
      open_ = false;
    }

   private:
    MemoryFileSystem& owner_;
    std::string path_;
    bool open_ = true;
  };

  struct Failure {
    Operation operation;
    int left;
    int number;
    std::string message;
  };

  void check(Operation operation) {
    for (auto failure = failures_.begin(); failure != failures_.end(); ++failure) {
      if (failure->operation != operation || --failure->left > 0) continue;
      const Failure due = *failure;
      failures_.erase(failure);
      throw FileError(due.number, due.message);
    }
  }
  static std::string parent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
  }
  std::string existing(const std::string& path) const {
    const auto found = files.find(path);
    if (found == files.end()) throw FileError(kErrorFileNotFound, "File inesistente.");
    return found->second;
  }

  std::vector<Failure> failures_;
  std::optional<std::size_t> space_;
};

}  // namespace cu::test
