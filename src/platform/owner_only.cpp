#include "platform/owner_only.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

namespace cu {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kOwnerFile = 0600;
constexpr mode_t kOwnerFolder = 0700;
constexpr mode_t kOwnerRights = 0700;

// Rights of the group and of everybody to one file or folder.
struct Rights {
  bool group;
  bool everybody;
};

// Debian gives each user a group of the same name: its members are the owner alone.
bool isOwnersGroup(const struct stat& file) {
  const passwd* const owner = ::getpwuid(file.st_uid);
  if (owner == nullptr) return false;
  const std::string name = owner->pw_name;
  const group* const its = ::getgrgid(file.st_gid);
  return its != nullptr && name == its->gr_name && its->gr_mem[0] == nullptr;
}

// The folder of the file and all above it can be passed.
Rights waysTo(const fs::path& file) {
  Rights rights{true, true};
  for (fs::path folder = file.parent_path();; folder = folder.parent_path()) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0) return {false, false};
    const bool everybody = (status.st_mode & S_IXOTH) != 0;
    rights.everybody = rights.everybody && everybody;
    rights.group = rights.group && (everybody || (status.st_mode & S_IXGRP) != 0);
    if (folder == folder.root_path()) return rights;
  }
}

}  // namespace

int createOwnerOnlyFile(const std::string& path) {
  const int number = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, kOwnerFile);
  if (number < 0) return errno;
  // The umask may have removed rights of the owner.
  const int code = ::fchmod(number, kOwnerFile) == 0 ? 0 : errno;
  ::close(number);
  return code;
}

int createOwnerOnlyFolder(const std::string& path) {
  std::vector<fs::path> missing;
  std::error_code error;
  for (fs::path folder = fs::path(path).lexically_normal(); !folder.empty() && !fs::exists(folder, error);
       folder = folder.parent_path()) {
    if (folder.has_filename()) missing.push_back(folder);
  }
  for (; !missing.empty(); missing.pop_back()) {
    // Another program may be creating the same one.
    if (::mkdir(missing.back().c_str(), kOwnerFolder) != 0) {
      if (errno == EEXIST) continue;
      return errno;
    }
    if (::chmod(missing.back().c_str(), kOwnerFolder) != 0) return errno;
  }
  return fs::is_directory(path, error) ? 0 : ENOTDIR;
}

int restrictToOwner(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return errno;
  return ::chmod(path.c_str(), status.st_mode & kOwnerRights) == 0 ? 0 : errno;
}

OtherReaders otherReaders(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return OtherReaders::None;
  const Rights own{(status.st_mode & S_IRGRP) != 0, (status.st_mode & S_IROTH) != 0};
  if (!own.group && !own.everybody) return OtherReaders::None;
  std::error_code error;
  const fs::path file = fs::canonical(path, error);
  const Rights ways = error ? Rights{false, false} : waysTo(file);
  if (own.everybody && ways.everybody) return OtherReaders::Everybody;
  return own.group && ways.group && !isOwnersGroup(status) ? OtherReaders::Group : OtherReaders::None;
}

}  // namespace cu
