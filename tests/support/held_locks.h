#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace cu::test {

// Whether this process holds a lock on a database's file, as another process sees it. This one does not open
// the file: closing it would release the lock.
inline bool holdsLock(const std::string& database) {
  const pid_t other = ::fork();
  if (other == 0) {
    const int file = ::open(database.c_str(), O_RDWR);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = 0x40000000;  // where the engine locks
    lock.l_len = 512;
    ::_exit(::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 1 : 0);
  }
  int status = 0;
  ::waitpid(other, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

}  // namespace cu::test
