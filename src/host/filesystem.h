#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace cu {

// A file open for sequential output. Writes may be buffered; the buffer is written by close() and by the
// destructor, so that the data is kept after an error elsewhere. The destructor never raises.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  virtual void write(std::string_view bytes) = 0;
  virtual void close() = 0;
};

// The suite's text viewer.
class TextViewer {
 public:
  virtual ~TextViewer() = default;
  virtual void viewText(const std::string& path) = 0;  // does not wait
};

// The machine's files and folders. Paths are UTF-8. Failures raise FileError with the platform's number: 61
// disk full, 70 in use or denied, 75 path or file access, 76 path not found, 57 anything else.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // Creates the file, or truncates an existing one.
  virtual std::unique_ptr<OutputFile> openForOutput(const std::string& path) = 0;
  virtual bool fileExists(const std::string& path) = 0;
  virtual bool folderExists(const std::string& path) = 0;
  // Whether a file could be created in the folder; false for a folder that does not exist.
  virtual bool canWriteIn(const std::string& folder) = 0;
  // Whether an existing file could be opened for output; does not change it. False where there is no file.
  virtual bool canWrite(const std::string& path) = 0;
  virtual void createFolder(const std::string& path) = 0;                 // one level
  virtual void copy(const std::string& from, const std::string& to) = 0;  // overwrites
  // Atomic: the file has the whole new content, or keeps the old one.
  virtual void replace(const std::string& path, std::string_view content) = 0;
  virtual std::string readAll(const std::string& path) = 0;  // raises Error 53 when there is none
  virtual void remove(const std::string& path) = 0;
  virtual void rename(const std::string& from, const std::string& to) = 0;
  // Joins folder and name with the platform's separator, which is not doubled where the folder ends with it.
  virtual std::string join(std::string_view folder, std::string_view name) const = 0;
};

}  // namespace cu
