#include "sqlite/own_files.h"

#include <array>
#include <filesystem>
#include <mutex>
#include <set>
#include <system_error>

namespace cu {
namespace {

namespace fs = std::filesystem;

constexpr std::array kEndings = {"", "-wal", "-shm", "-journal"};

// The real name, as far as there is a file or folder; that of what a dangling link leads to, too.
fs::path realName(const std::string& path) {
  std::error_code error;
  fs::path name = path;
  constexpr int kLinks = 16;
  for (int i = 0; i < kLinks && fs::is_symlink(name, error) && !fs::exists(name, error); ++i) {
    const fs::path target = fs::read_symlink(name, error);
    if (error) break;
    name = target.is_absolute() ? target : name.parent_path() / target;
  }
  const fs::path whole = fs::absolute(name, error);
  fs::path real = fs::weakly_canonical(error ? name : whole, error);
  return error ? whole : real;
}

struct OwnDatabases {
  std::mutex mutex;
  std::set<std::string> names;
};

OwnDatabases& ownDatabases() {
  static OwnDatabases all;
  return all;
}

bool sameFile(const std::string& one, const std::string& other) {
  std::error_code error;
  return fs::equivalent(one, other, error) && !error;
}

bool belongs(const std::string& path, const fs::path& name, const std::string& database) {
  for (const char* const ending : kEndings) {
    const std::string file = database + ending;
    if (name == fs::path(file) || sameFile(path, file)) return true;
  }
  return false;
}

}  // namespace

std::string realFileName(const std::string& path) { return realName(path).string(); }

bool belongsToDatabase(const std::string& path, const std::string& database) {
  return !path.empty() && !database.empty() && belongs(path, realName(path), realName(database).string());
}

bool belongsToOwnDatabase(const std::string& path) {
  OwnDatabases& own = ownDatabases();
  const std::lock_guard lock(own.mutex);
  if (path.empty() || own.names.empty()) return false;
  const fs::path name = realName(path);
  for (const std::string& database : own.names) {
    if (belongs(path, name, database)) return true;
  }
  return false;
}

void rememberOwnDatabase(const std::string& database) {
  if (database.empty() || database == ":memory:") return;
  const std::string name = realName(database).string();
  OwnDatabases& own = ownDatabases();
  const std::lock_guard lock(own.mutex);
  own.names.insert(name);
}

}  // namespace cu
