#include "reporting/new_file.h"

#include "base/error.h"
#include "base/text.h"

namespace cu::reporting {
namespace {

std::string freeName(FileSystem& files, const std::string& path) {
  for (std::int64_t number = 1;; ++number) {
    std::string name = path + "." + fromInteger(number) + ".tmp";
    if (!files.fileExists(name) && !files.folderExists(name)) return name;
  }
}

}  // namespace

NewFile::NewFile(FileSystem& files, const std::string& path)
    : files_(files), path_(path), temporary_(freeName(files, path)) {
  if (files.folderExists(path))
    throw FileError(kErrorPathAccess, "Il nome della stampa è di una cartella: " + path);
  try {
    file_ = files.openForOutput(temporary_);
  } catch (const FileError& error) {
    std::string why = error.description();
    if (const auto at = why.find(temporary_); at != std::string::npos)
      why.replace(at, temporary_.size(), path);
    throw FileError(error.number(), "Impossibile creare la stampa " + path + ". " + why);
  }
}

NewFile::~NewFile() {
  if (temporary_.empty()) return;
  file_.reset();
  try {
    files_.remove(temporary_);
  } catch (const Error&) {
    // The exception being raised already reports that the file could not be written.
    temporary_.clear();
  }
}

void NewFile::commit() {
  file_->close();
  file_.reset();
  files_.rename(temporary_, path_);
  temporary_.clear();
}

qint64 NewFileDevice::writeData(const char* data, qint64 size) {
  if (!failure_) {
    try {
      file_.write({data, static_cast<std::size_t>(size)});
    } catch (...) {
      failure_ = std::current_exception();
    }
  }
  return size;
}

}  // namespace cu::reporting
