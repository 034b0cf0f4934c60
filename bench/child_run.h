#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "misura.h"

// The program itself as a user's own process.
namespace cu::bench {

using Arguments = std::vector<std::string>;

// Time and peak memory of a process.
struct Cost {
  double seconds = 1e9;
  double mebibytes = 0;
  double processor = 0;  // seconds, of the program and of the system for it
};

inline Cost run(const Arguments& arguments) {
  std::vector<char*> texts;
  for (const std::string& each : arguments) texts.push_back(const_cast<char*>(each.c_str()));
  texts.push_back(nullptr);
  Cost cost;
  rusage usage{};
  int status = 0;
  cost.seconds = seconds([&] {
    const pid_t child = ::fork();
    if (child == 0) {
      if (std::freopen("/dev/null", "r", stdin) == nullptr) ::_exit(126);
      for (std::FILE* stream : {stdout, stderr}) {
        if (std::freopen("/dev/null", "w", stream) == nullptr) ::_exit(126);
      }
      ::execv(texts.front(), texts.data());
      ::_exit(127);
    }
    ::wait4(child, &status, 0, &usage);
  });
  if (status != 0) throw std::runtime_error("has failed: " + arguments.front() + " " + arguments[1]);
  const auto inSeconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  cost.processor = inSeconds(usage.ru_utime) + inSeconds(usage.ru_stime);
  cost.mebibytes = static_cast<double>(usage.ru_maxrss) / 1024;
  return cost;
}

}  // namespace cu::bench
