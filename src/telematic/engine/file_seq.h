#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/per_chiamanti.h"
#include "host/filesystem.h"
#include "telematic/engine/layout.h"

namespace cu {

class RecordImage;

// A file of fixed-width lines, written from the first to the last. Errors rise as they are, and the object
// stays as it was: 55 for a file already open, 5 for a mode or an offset that does not exist, 52 for a write
// to a file that is not open, FileError for what the file system rejects.
class FileSeq : public per_chiamanti::DiFileSeq<FileSeq> {
 public:
  FileSeq(FileSystem& files, TextViewer& visore) : files_(files), visore_(visore) {}
  FileSeq(const FileSeq&) = delete;
  FileSeq& operator=(const FileSeq&) = delete;

  void setFileName(std::string_view name) { fileName_ = name; }  // kept for the owner, unused here
  void setFilePathName(std::string_view path) { filePathName_ = path; }
  bool IsOpen() const { return isOpen_; }

  static constexpr std::int32_t kSequentialOutput = 0;
  void OpenFile(std::int32_t mode);
  void CloseFile();
  void WriteRecord(const IRecord& record);
  void WriteImage(const RecordImage& image);

  // Places at most `length` characters of the value, and none beyond the buffer's end. Raises Error 5 when
  // the offset is outside the buffer.
  static void CopyMemory(std::string& buffer, std::int32_t offset, std::string_view value,
                         std::int32_t length);
  // Writes the record's line, without its end, to a cleared buffer.
  static void Compose(const IRecord& record, std::string& buffer);

 private:
  friend per_chiamanti::DiFileSeq<FileSeq>;

  void write(std::string_view line);

  std::string fileName_;
  std::string filePathName_;
  std::int16_t fileNumber_ = 0;
  bool isOpen_ = false;
  FileSystem& files_;
  TextViewer& visore_;
  std::unique_ptr<OutputFile> file_;
  std::string line_;
};

inline constexpr std::string_view kLineEnd = "\r\n";

}  // namespace cu
