#pragma once

#include <string>
#include <string_view>

#include "base/error.h"

namespace cu {

// Calls of the operating system on files; paths are UTF-8. What fails raises FileError with one of the
// numbers of host/filesystem.h.

// The error that a system's error code stands for.
FileError fileError(int systemCode, const std::string& path);

// An open file descriptor; it is closed when the object goes.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : number_(other.number_) { other.number_ = -1; }
  Descriptor& operator=(Descriptor&& other) = delete;

  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  // Bytes from the head of `bytes` that are written; all of them, or fewer and an error.
  std::size_t write(std::string_view bytes, int& systemCode);
  int close();  // 0, or the system's error code

 private:
  int number_;
};

Descriptor openForWriting(const std::string& path);  // created, or emptied
Descriptor openForAppending(const std::string& path);

// The content stands on the disk under the name, or what was there before stays.
void replaceFile(const std::string& path, std::string_view content);
void copyFile(const std::string& from, const std::string& to);

// Tries it with a file that is gone at once: rights alone say too little of a network's or a read-only disk.
bool canCreateFile(const std::string& folder);
// The same of a file that exists, which is opened for writing and closed as it was.
bool canOpenFile(const std::string& path);

// Held by one process at a time, from the constructor on.
class FileLock {
 public:
  explicit FileLock(const std::string& path);

 private:
  Descriptor file_;
};

}  // namespace cu
