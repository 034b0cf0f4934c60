#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string>

namespace cu::test {

// What `ask` returns in a process without superuser rights: of those that the test runs with, otherwise of
// nobody. Its first 4,000 characters.
inline std::string askedAsNobody(const std::function<std::string()>& ask) {
  constexpr unsigned kNobody = 65534;
  constexpr std::size_t kMost = 4000;
  int ends[2] = {-1, -1};
  if (::pipe(ends) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    std::string answer = "superuser rights could not be given up";
    if (::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0)) answer = ask();
    const ssize_t written = ::write(ends[1], answer.data(), std::min(answer.size(), kMost));
    ::_exit(written < 0 ? 1 : 0);
  }
  ::close(ends[1]);
  std::string answer(kMost, '\0');
  std::size_t length = 0;
  for (ssize_t step = 1; step > 0 && length < kMost;) {
    step = ::read(ends[0], answer.data() + length, kMost - length);
    if (step > 0) length += static_cast<std::size_t>(step);
  }
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  answer.resize(length);
  return answer;
}

}  // namespace cu::test
