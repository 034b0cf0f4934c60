#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace cu {

// A file open for sequential output. What is written may be gathered into blocks; it is written out at
// close() and when the object goes, so that what was written stays after an error elsewhere. Destruction
// never raises.
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
  virtual void viewText(const std::string& path) = 0;  // without waiting
};

// The files and folders of the machine. Paths are UTF-8. Failures raise FileError with the platform's number:
// 61 disk full, 70 in use or denied, 75 path or file access, 76 path not found, 57 anything else.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // Created, or emptied if it exists.
  virtual std::unique_ptr<OutputFile> openForOutput(const std::string& path) = 0;
  virtual bool fileExists(const std::string& path) = 0;
  virtual bool folderExists(const std::string& path) = 0;
  // Whether a file could be made there; false for a folder that does not exist.
  virtual bool canWriteIn(const std::string& folder) = 0;
  // Whether the file, which stays as it is, could be opened for output; false where there is none.
  virtual bool canWrite(const std::string& path) = 0;
  virtual void createFolder(const std::string& path) = 0;                 // one level
  virtual void copy(const std::string& from, const std::string& to) = 0;  // overwrites
  // The whole content appears under the name, or what was there before stays.
  virtual void replace(const std::string& path, std::string_view content) = 0;
  virtual std::string readAll(const std::string& path) = 0;  // Error 53 when there is none
  virtual void remove(const std::string& path) = 0;
  virtual void rename(const std::string& from, const std::string& to) = 0;
  // Folder and name with the platform's separator; no second one where the folder ends with it.
  virtual std::string join(std::string_view folder, std::string_view name) const = 0;
};

}  // namespace cu
