#pragma once

#include <sys/stat.h>

#include <string>

namespace cu::test {

// The process's umask, for the lifetime of the object.
class Umask {
 public:
  explicit Umask(mode_t mask) : before_(::umask(mask)) {}
  ~Umask() { ::umask(before_); }
  Umask(const Umask&) = delete;
  Umask& operator=(const Umask&) = delete;

 private:
  mode_t before_;
};

// The rights of a file or folder; 07777 where there is none.
inline unsigned modeOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 07777U;
}

}  // namespace cu::test
