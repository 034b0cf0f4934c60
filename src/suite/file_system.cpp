#include "suite/file_system.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "suite/platform_file.h"

namespace cu {
namespace {

namespace fs = std::filesystem;

FileError missing(const std::string& path) { return {kErrorFileNotFound, "File non trovato: " + path}; }

void check(const std::error_code& error, const std::string& path) {
  if (error) throw fileError(error.value(), path);
}

// std::filesystem truncates a path at a zero byte.
bool isPath(const std::string& path) { return path.find('\0') == std::string::npos; }

class FileUscita : public OutputFile {
 public:
  explicit FileUscita(const std::string& path) : path_(path), file_(openForWriting(path)) {
    block_.reserve(FileSystemPiattaforma::kBlocco);
  }
  ~FileUscita() override {
    int ignored = 0;
    if (file_.isOpen() && !block_.empty()) file_.write(block_, ignored);
  }
  FileUscita(const FileUscita&) = delete;
  FileUscita& operator=(const FileUscita&) = delete;

  void write(std::string_view bytes) override {
    if (!file_.isOpen()) throw FileError(kErrorBadFile, "Il file non è aperto: " + path_);
    if (block_.size() + bytes.size() > FileSystemPiattaforma::kBlocco) flush();
    block_.append(bytes);
  }
  void close() override {
    if (!file_.isOpen()) return;
    int code = 0;
    const std::size_t written = file_.write(block_, code);
    const bool complete = written == block_.size();
    block_.clear();
    const int closing = file_.close();
    if (!complete) throw fileError(code, path_);
    if (closing != 0) throw fileError(closing, path_);
  }

 private:
  // Bytes that could not be written stay in the block, so that a later attempt continues there.
  void flush() {
    int code = 0;
    const std::size_t written = file_.write(block_, code);
    const bool complete = written == block_.size();
    block_.erase(0, written);
    if (!complete) throw fileError(code, path_);
  }

  std::string path_;
  Descriptor file_;
  std::string block_;
};

}  // namespace

std::unique_ptr<OutputFile> FileSystemPiattaforma::openForOutput(const std::string& path) {
  return std::make_unique<FileUscita>(path);
}

bool FileSystemPiattaforma::fileExists(const std::string& path) {
  std::error_code error;
  return isPath(path) && fs::exists(path, error) && !fs::is_directory(path, error);
}

bool FileSystemPiattaforma::folderExists(const std::string& path) {
  std::error_code error;
  return isPath(path) && fs::is_directory(path, error);
}

bool FileSystemPiattaforma::canWriteIn(const std::string& folder) {
  return folderExists(folder) && canCreateFile(folder);
}

bool FileSystemPiattaforma::canWrite(const std::string& path) {
  return fileExists(path) && canOpenFile(path);
}

void FileSystemPiattaforma::createFolder(const std::string& path) {
  if (!isPath(path)) throw fileError(EINVAL, path);
  std::error_code error;
  if (fs::exists(path, error)) throw fileError(EEXIST, path);
  fs::create_directory(path, error);
  check(error, path);
}

void FileSystemPiattaforma::copy(const std::string& from, const std::string& to) {
  if (!fileExists(from)) throw missing(from);
  copyFile(from, to);
}

void FileSystemPiattaforma::replace(const std::string& path, std::string_view content) {
  replaceFile(path, content, NewFile::OwnerOnly);
}

std::string FileSystemPiattaforma::readAll(const std::string& path) {
  if (!fileExists(path)) throw missing(path);
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw fileError(EACCES, path);
  std::string content((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  if (stream.bad()) throw fileError(EIO, path);
  return content;
}

void FileSystemPiattaforma::remove(const std::string& path) {
  if (!fileExists(path)) throw missing(path);
  std::error_code error;
  fs::remove(path, error);
  check(error, path);
}

void FileSystemPiattaforma::rename(const std::string& from, const std::string& to) {
  if (!isPath(from) || !isPath(to)) throw fileError(EINVAL, isPath(from) ? to : from);
  std::error_code error;
  if (!fs::exists(from, error)) throw missing(from);
  fs::rename(from, to, error);
  check(error, to);
}

std::string FileSystemPiattaforma::join(std::string_view folder, std::string_view name) const {
  constexpr char kSeparator = static_cast<char>(fs::path::preferred_separator);
  std::string path(folder);
  if (path.empty() || path.back() != kSeparator) path += kSeparator;
  return path.append(name);
}

}  // namespace cu
