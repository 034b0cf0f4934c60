#include "suite/platform_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "base/text.h"
#include "platform/owner_only.h"

namespace cu {
namespace {

constexpr int kNumberOfTries = 100;

struct Meaning {
  int number;
  const char* text;
};

Meaning meaning(int systemCode) {
  switch (systemCode) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
    case EINVAL:
      return {kErrorPathNotFound, "Percorso non trovato"};
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EEXIST:
    case ENOTEMPTY:
      return {kErrorPathAccess, "Impossibile accedere al percorso o al file"};
    case EBUSY:
    case ETXTBSY:
    case EWOULDBLOCK:
      return {kErrorFileInUse, "Il file è in uso"};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return {kErrorDiskFull, "Spazio su disco esaurito"};
    default:
      return {kErrorDeviceIo, "Errore del dispositivo durante la lettura o la scrittura"};
  }
}

mode_t modeOf(NewFile readers) {
  constexpr mode_t kAsUsual = 0666;
  constexpr mode_t kOwnerOnly = 0600;
  return readers == NewFile::OwnerOnly ? kOwnerOnly : kAsUsual;
}

Descriptor openFile(const std::string& path, int flags, NewFile readers) {
  if (path.find('\0') != std::string::npos) throw fileError(EINVAL, path);
  int number = -1;
  do {
    number = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, modeOf(readers));
  } while (number < 0 && errno == EINTR);
  if (number < 0) throw fileError(errno, path);
  return Descriptor(number);
}

void syncFolder(const std::string& file) {
  const std::string folder = std::filesystem::path(file).parent_path().string();
  const int number = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (number < 0) return;
  // Some file systems do not support this call on a folder; the file itself is already on the disk.
  ::fsync(number);
  ::close(number);
}

// A new file next to `path`: it replaces `path` when it is complete, otherwise it is deleted.
class Substitute {
 public:
  explicit Substitute(const std::string& path, NewFile readers)
      : target_(followed(path)), file_(create(modeOf(readers))) {
    struct stat before {};
    if (::stat(target_.c_str(), &before) == 0) {
      // Where the mode cannot be copied the file keeps the default mode.
      if (::fchmod(file_.number(), before.st_mode & 07777U) != 0) errno = 0;
    }
  }
  ~Substitute() {
    if (!name_.empty()) ::unlink(name_.c_str());
  }
  Substitute(const Substitute&) = delete;
  Substitute& operator=(const Substitute&) = delete;

  void write(std::string_view bytes) {
    int code = 0;
    if (file_.write(bytes, code) < bytes.size()) throw fileError(code, target_);
  }
  void takePlace() {
    if (::fsync(file_.number()) != 0) throw fileError(errno, target_);
    if (const int code = file_.close()) throw fileError(code, target_);
    if (::rename(name_.c_str(), target_.c_str()) != 0) throw fileError(errno, target_);
    name_.clear();
    syncFolder(target_);
  }

 private:
  // A symbolic link is kept: its target is replaced.
  static std::string followed(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error)) return path;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
  }
  Descriptor create(mode_t mode) {
    static std::atomic<unsigned> count{0};
    if (target_.empty() || target_.find('\0') != std::string::npos) throw fileError(ENOENT, target_);
    for (int attempt = 0; attempt < kNumberOfTries; ++attempt) {
      name_ = target_ + "." + fromInteger(::getpid()) + "-" + fromInteger(++count) + ".tmp";
      const int number = ::open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
      if (number >= 0) return Descriptor(number);
      if (errno != EEXIST && errno != EINTR) break;
    }
    const int code = errno;
    name_.clear();
    throw fileError(code, target_);
  }

  std::string target_;
  std::string name_;
  Descriptor file_;
};

}  // namespace

FileError fileError(int systemCode, const std::string& path) {
  const Meaning known = meaning(systemCode);
  std::string text = std::string(known.text) + ": " + path.substr(0, path.find('\0'));
  if (known.number == kErrorDeviceIo) text += " (codice di sistema " + fromInteger(systemCode) + ")";
  return {known.number, text};
}

Descriptor::~Descriptor() { close(); }

std::size_t Descriptor::write(std::string_view bytes, int& systemCode) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t step = ::write(number_, bytes.data() + written, bytes.size() - written);
    if (step < 0 && errno == EINTR) continue;
    if (step <= 0) {
      systemCode = step < 0 ? errno : ENOSPC;
      break;
    }
    written += static_cast<std::size_t>(step);
  }
  return written;
}

int Descriptor::close() {
  if (number_ < 0) return 0;
  const int number = number_;
  number_ = -1;
  return ::close(number) == 0 || errno == EINTR ? 0 : errno;
}

Descriptor openForWriting(const std::string& path, NewFile readers) {
  return openFile(path, O_WRONLY | O_CREAT | O_TRUNC, readers);
}
Descriptor openForAppending(const std::string& path, NewFile readers) {
  return openFile(path, O_WRONLY | O_CREAT | O_APPEND, readers);
}

void replaceFile(const std::string& path, std::string_view content, NewFile readers) {
  Substitute substitute(path, readers);
  substitute.write(content);
  substitute.takePlace();
}

void replaceFileInPieces(const std::string& path, const std::function<void(const PieceWriter&)>& make,
                         NewFile readers) {
  Substitute substitute(path, readers);
  make([&](std::string_view piece) { substitute.write(piece); });
  substitute.takePlace();
}

void copyFile(const std::string& from, const std::string& to) {
  const Descriptor source = openFile(from, O_RDONLY, NewFile::AsUsual);
  Substitute substitute(to, NewFile::AsUsual);
  std::string block(std::size_t{1} << 18, '\0');
  for (;;) {
    const ssize_t step = ::read(source.number(), block.data(), block.size());
    if (step < 0 && errno == EINTR) continue;
    if (step < 0) throw fileError(errno, from);
    if (step == 0) break;
    substitute.write(std::string_view(block.data(), static_cast<std::size_t>(step)));
  }
  substitute.takePlace();
}

void createFolders(const std::string& path) {
  if (const int code = createOwnerOnlyFolder(path)) throw fileError(code, path);
}

bool canCreateFile(const std::string& folder) {
  std::string name = folder + "/.prova-XXXXXX";
  const int number = ::mkstemp(name.data());
  if (number < 0) return false;
  ::close(number);
  ::unlink(name.c_str());
  return true;
}

bool canOpenFile(const std::string& path) {
  // O_NONBLOCK: does not wait for the other end of a pipe either.
  const int number = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (number < 0) return false;
  ::close(number);
  return true;
}

FileLock::FileLock(const std::string& path) : file_(openForAppending(path, NewFile::OwnerOnly)) {
  while (::flock(file_.number(), LOCK_EX) != 0) {
    if (errno != EINTR) throw fileError(errno, path);
  }
}

}  // namespace cu
