#include "suite/logged_file_system.h"

#include <utility>

#include "suite/file_system.h"
#include "suite/support_log.h"

namespace cu {
namespace {

constexpr const char* kFileOperation = "file";

// One line when the file is closed, or when a write has failed.
class LoggedOutputFile : public OutputFile {
 public:
  explicit LoggedOutputFile(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}
  void write(std::string_view bytes) override {
    try {
      file_->write(bytes);
      written_ += bytes.size();
    } catch (const std::exception& error) {
      logFailure("file scrittura", error);
      throw;
    }
  }
  void close() override {
    logged({.operation = kFileOperation, .detail = "scrittura", .bytes = written_}, [&] { file_->close(); });
  }

 private:
  std::unique_ptr<OutputFile> file_;
  std::uint64_t written_ = 0;
};

}  // namespace

std::unique_ptr<OutputFile> LoggedFileSystem::openForOutput(const std::string& path) {
  return std::make_unique<LoggedOutputFile>(logged({.operation = kFileOperation, .detail = "apertura"},
                                                   [&] { return files_->openForOutput(path); }));
}

void LoggedFileSystem::createFolder(const std::string& path) {
  logged({.operation = kFileOperation, .detail = "nuova cartella"}, [&] { files_->createFolder(path); });
}

void LoggedFileSystem::copy(const std::string& from, const std::string& to) {
  logged({.operation = kFileOperation, .detail = "copia"}, [&] { files_->copy(from, to); });
}

void LoggedFileSystem::replace(const std::string& path, std::string_view content) {
  logged({.operation = kFileOperation, .detail = "sostituzione", .bytes = content.size()},
         [&] { files_->replace(path, content); });
}

std::string LoggedFileSystem::readAll(const std::string& path) {
  LogEntry entry{.operation = kFileOperation, .detail = "lettura"};
  return logged(SupportLog::active(), entry, [&] {
    std::string content = files_->readAll(path);
    entry.bytes = content.size();
    return content;
  });
}

void LoggedFileSystem::remove(const std::string& path) {
  logged({.operation = kFileOperation, .detail = "eliminazione"}, [&] { files_->remove(path); });
}

void LoggedFileSystem::rename(const std::string& from, const std::string& to) {
  logged({.operation = kFileOperation, .detail = "cambio di nome"}, [&] { files_->rename(from, to); });
}

std::unique_ptr<FileSystem> machineFiles() {
  auto files = std::make_unique<FileSystemPiattaforma>();
  if (SupportLog::active() == nullptr) return files;
  return std::make_unique<LoggedFileSystem>(std::move(files));
}

}  // namespace cu
