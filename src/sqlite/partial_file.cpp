#include "sqlite/partial_file.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

#include "base/error.h"
#include "base/text.h"

namespace cu::sqlite {
namespace {

constexpr unsigned kOwnerAlone = 0600;

[[noreturn]] void refuseCopy(DatabaseErrorKind kind, int code, const std::string& text) {
  throw DatabaseError(kind, code, "", text);
}

std::string folderOf(const std::string& file) {
  const std::string folder = std::filesystem::path(file).parent_path().string();
  return folder.empty() ? "." : folder;
}

std::string followedPlace(const std::string& place) {
  std::error_code error;
  if (!std::filesystem::is_symlink(place, error)) return place;
  const auto target = std::filesystem::canonical(place, error);
  return error ? place : target.string();
}

void flushFolder(const std::string& file) {
  const int folder = ::open(folderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  // Some file systems do not support this call on a folder; the file itself is already on the disk.
  ::fsync(folder);
  ::close(folder);
}

bool exchanged(const std::string& one, const std::string& other) {
  return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

// File systems without the call, of a network above all, do not know whether they replace a file.
int renamedAnew(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) return errno;
  struct stat found {};
  if (::lstat(to.c_str(), &found) == 0) return EEXIST;
  return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

class OpenFile {
 public:
  explicit OpenFile(int number) : number_(number) {}
  ~OpenFile() {
    if (number_ >= 0) ::close(number_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  int number() const { return number_; }

 private:
  int number_;
};

// Returns the system's error code.
int copiedBytes(int from, int to) {
  std::vector<char> block(std::size_t{1} << 20U);
  for (;;) {
    const ssize_t read = ::read(from, block.data(), block.size());
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) return errno;
    if (read == 0) return ::fsync(to) == 0 ? 0 : errno;
    for (ssize_t written = 0; written < read;) {
      const ssize_t step = ::write(to, block.data() + written, static_cast<std::size_t>(read - written));
      if (step < 0 && errno != EINTR) return errno;
      if (step > 0) written += step;
    }
  }
}

void copyAll(int from, const std::string& kept) {
  const OpenFile to(::open(kept.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerAlone));
  if (to.number() < 0) refusePlace(kept, errno);
  const int code = copiedBytes(from, to.number());
  if (code == 0) return;
  ::unlink(kept.c_str());
  refusePlace(kept, code);
}

}  // namespace

void refusePlace(const std::string& file, int systemCode) {
  using enum DatabaseErrorKind;
  switch (systemCode) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      refuseCopy(Full, SQLITE_FULL,
                 "Sul disco non c'è spazio per «" + file + "»: liberarne, o scegliere un'altra cartella.");
    case ENOENT:
    case ENOTDIR:
      refuseCopy(Unavailable, SQLITE_CANTOPEN, "La cartella «" + folderOf(file) + "» non esiste.");
    case EEXIST:
      refuseCopy(Exists, SQLITE_CANTOPEN, "Il file «" + file + "» esiste già.");
    case EACCES:
    case EPERM:
    case EROFS:
      refuseCopy(ReadOnly, SQLITE_READONLY,
                 "Nella cartella «" + folderOf(file) +
                     "» non si può scrivere. Verificarne i permessi, o scegliere un'altra cartella.");
    case EWOULDBLOCK:
      refuseCopy(Locked, SQLITE_BUSY,
                 "Un altro programma sta già scrivendo «" + file + "»: attendere che finisca.");
    default:
      refuseCopy(
          Other, SQLITE_IOERR,
          "Il file «" + file + "» non si può scrivere (codice di sistema " + fromInteger(systemCode) + ").");
  }
}

PartialFile::PartialFile(const std::string& place, const std::string& ending)
    : place_(followedPlace(place)), path_(place_ + ending), file_(open()) {
  // Of one that was left; the mode may be another one, too.
  for (const char* const side : {"-wal", "-shm", "-journal"}) ::unlink((path_ + side).c_str());
  if (::fchmod(file_, kOwnerAlone) == 0 && ::ftruncate(file_, 0) == 0) return;
  const int code = errno;
  ::close(file_);
  refusePlace(place_, code);
}

// The file that is locked is the one with the name: another process may have renamed it in between.
int PartialFile::open() const {
  constexpr int kTries = 10;
  for (int i = 0; i < kTries; ++i) {
    const int file =
        ::open(path_.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, kOwnerAlone);
    if (file < 0 && errno == EINTR) continue;
    if (file < 0) refusePlace(place_, errno);
    struct stat opened {};
    struct stat named {};
    int code = ::flock(file, LOCK_EX | LOCK_NB) == 0 && ::fstat(file, &opened) == 0 ? 0 : errno;
    if (code == 0 && !S_ISREG(opened.st_mode)) code = EEXIST;
    if (code == 0 && ::stat(path_.c_str(), &named) == 0 && named.st_ino == opened.st_ino &&
        named.st_dev == opened.st_dev) {
      return file;
    }
    ::close(file);
    if (code != 0) refusePlace(place_, code);
  }
  refusePlace(place_, EWOULDBLOCK);
}

PartialFile::~PartialFile() {
  if (file_ < 0) return;
  for (const char* const side : {"", "-wal", "-shm", "-journal"}) ::unlink((path_ + side).c_str());
  ::close(file_);
}

void PartialFile::takeRights() {
  struct stat before {};
  if (::stat(place_.c_str(), &before) != 0) return;
  // Without the right to give the file away it stays with the one who restores; a group that cannot be kept
  // gets no rights by another one's.
  const bool given = ::fchown(file_, before.st_uid, before.st_gid) == 0 ||
                     ::fchown(file_, static_cast<uid_t>(-1), before.st_gid) == 0;
  const auto mode = given ? before.st_mode & 0777U : before.st_mode & 0700U;
  if (::fchmod(file_, mode) != 0) refusePlace(place_, errno);
}

void PartialFile::flush() const {
  if (::fsync(file_) != 0) refusePlace(place_, errno);
}

void PartialFile::done() {
  flushFolder(place_);
  ::close(file_);
  file_ = -1;
}

void PartialFile::takePlace(Existing existing) {
  flush();
  const int code = existing == Existing::Rejected                 ? renamedAnew(path_, place_)
                   : ::rename(path_.c_str(), place_.c_str()) == 0 ? 0
                                                                  : errno;
  if (code != 0) refusePlace(place_, code);
  done();
}

void PartialFile::takePlaceOf(const std::string& kept, Swap swap) {
  flush();
  if (swap == Swap::Exchange) {
    // Under the other's name at first: what has that name is whole at every moment, and never taken for a
    // part.
    if (const int code = renamedAnew(path_, kept)) refusePlace(kept, code);
    if (exchanged(kept, place_)) return done();
    if (::rename(kept.c_str(), path_.c_str()) != 0) refusePlace(place_, errno);
  }
  // The engine's lock on the file in the place goes with this descriptor, and is needed until the file has
  // another name.
  const OpenFile former(::open(place_.c_str(), O_RDONLY | O_CLOEXEC));
  if (former.number() < 0) refusePlace(place_, errno);
  copyAll(former.number(), kept);
  if (::rename(path_.c_str(), place_.c_str()) != 0) {
    const int code = errno;
    ::unlink(kept.c_str());
    refusePlace(place_, code);
  }
  done();
}

}  // namespace cu::sqlite
