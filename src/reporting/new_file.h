#pragma once

#include <QIODevice>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "host/filesystem.h"

namespace cu::reporting {

// A file that appears under its name only when it is complete: written under a temporary name in the same
// folder, renamed at the end. An existing file is kept until then, and an abandoned file is deleted.
class NewFile {
 public:
  NewFile(FileSystem& files, const std::string& path);  // raises FileError
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  void write(std::string_view bytes) { file_->write(bytes); }
  void commit();

 private:
  FileSystem& files_;
  std::string path_;
  std::string temporary_;
  std::unique_ptr<OutputFile> file_;
};

// A NewFile as a device for the toolkit. An exception cannot propagate through the toolkit: it is stored, and
// later data is dropped, until check() raises it.
class NewFileDevice : public QIODevice {
 public:
  explicit NewFileDevice(NewFile& file) : file_(file) { open(QIODevice::WriteOnly); }
  bool isSequential() const override { return true; }
  void check() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override;

 private:
  NewFile& file_;
  std::exception_ptr failure_;
};

}  // namespace cu::reporting
