#pragma once

// Shared by all programs of this folder. Each prints its figures as lines of tab-separated fields; `tavola`
// makes one table of the lines of all. A figure is printed with its limit, measured alternately in the same
// run: a disturbance of the machine then affects both sides alike.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace cu::bench {

inline double seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Figure {
  std::string name;
  double ours = 0;
  double limit = 0;
  std::string limitName = {};  // describes the limit
  std::string promise = {};    // "ratio:1.2" to the limit, "value:0.3" alone; empty without a promise
  std::string unit = "s";
  // Figures of one series differ in their size, and the table shows their growth between the sizes.
  std::string series = {};
  double size = 0;
  bool held = false;  // required to grow no faster than its limit
};

inline void section(const std::string& title) {
  std::printf("section\t%s\n", title.c_str());
  std::fflush(stdout);
}

inline void print(const Figure& figure) {
  std::printf("figure\t%s\t%s\t%.9g\t%.9g\t%s\t%s\t%s\t%.0f\t%d\n", figure.name.c_str(), figure.unit.c_str(),
              figure.ours, figure.limit, figure.limitName.c_str(), figure.promise.c_str(),
              figure.series.c_str(), figure.size, figure.held ? 1 : 0);
  std::fflush(stdout);
}

struct Pair {
  double ours = 0;
  double limit = 0;
};

// The best of some rounds, measured alternately.
inline Pair best(int rounds, const std::function<void()>& ours, const std::function<void()>& limit) {
  Pair result{1e9, 1e9};
  for (int i = 0; i < rounds; ++i) {
    result.limit = std::min(result.limit, seconds(limit));
    result.ours = std::min(result.ours, seconds(ours));
  }
  return result;
}

inline double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// 100000 as "100,000".
inline std::string grouped(long long number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, ",");
  return text;
}

// The peak memory of this process, in MiB.
inline double peakMiB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
  }
  return 0;
}

class Folder {
 public:
  explicit Folder(std::filesystem::path path) : path_(std::move(path)) {}
  std::string file(const std::string& name) const { return (path_ / name).string(); }
  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

// Deleted with the object.
class ScratchFolder : public Folder {
 public:
  explicit ScratchFolder(const std::string& name) : Folder(std::filesystem::temp_directory_path() / name) {
    std::filesystem::remove_all(path());
    std::filesystem::create_directories(path());
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path(), ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
};

}  // namespace cu::bench
