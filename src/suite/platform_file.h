#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/error.h"

namespace cu {

// Operating system calls on files; paths are UTF-8. Failures raise FileError with one of the numbers of
// host/filesystem.h.

// The error for a system error code.
FileError fileError(int systemCode, const std::string& path);

// An open file descriptor, closed by the destructor.
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
  // Returns the number of bytes written from the head of `bytes`; fewer than all means an error in
  // `systemCode`.
  std::size_t write(std::string_view bytes, int& systemCode);
  int close();  // returns 0, or the system's error code

 private:
  int number_;
};

// Who can read a file that is created. An existing file keeps its mode.
enum class NewFile {
  AsUsual,    // whom the user's umask permits: files that are handed on
  OwnerOnly,  // files that the program keeps, or that are about people and not meant for others
};

// Creates or truncates the file.
Descriptor openForWriting(const std::string& path, NewFile readers = NewFile::AsUsual);
Descriptor openForAppending(const std::string& path, NewFile readers = NewFile::AsUsual);

// Atomic: the file on the disk has the whole new content, or keeps the old one.
void replaceFile(const std::string& path, std::string_view content, NewFile readers = NewFile::AsUsual);
// The same for a content that is made in pieces: `make` passes each of them on.
using PieceWriter = std::function<void(std::string_view)>;
void replaceFileInPieces(const std::string& path, const std::function<void(const PieceWriter&)>& make,
                         NewFile readers = NewFile::AsUsual);
void copyFile(const std::string& from, const std::string& to);

// Creates the folder, and those above it that are missing, for their owner alone.
void createFolders(const std::string& path);

// Tests by creating a file and deleting it at once: access rights alone are not conclusive for a network's or
// a read-only disk.
bool canCreateFile(const std::string& folder);
// Tests an existing file by opening it for writing; its content is not changed.
bool canOpenFile(const std::string& path);

// A lock held by one process at a time for the lifetime of the object.
class FileLock {
 public:
  explicit FileLock(const std::string& path);

 private:
  Descriptor file_;
};

}  // namespace cu
