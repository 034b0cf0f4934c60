#pragma once

// One table for all that is measured against a limit taken in the same run: the machine's noise then falls on
// both sides alike.

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

namespace cu::bench {

inline double seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline void heading() { std::printf("%-58s %12s %12s %8s\n", "", "ours (s)", "limit (s)", "ratio"); }

inline void row(const std::string& name, double ours, double limit) {
  std::printf("%-58s %12.4f %12.4f %8.2f\n", name.c_str(), ours, limit, ours / limit);
}

inline void row(const std::string& name, double ours) { std::printf("%-58s %12.4f\n", name.c_str(), ours); }

// SQLite as it comes, with the settings a careful program gives it.
class BareDatabase {
 public:
  explicit BareDatabase(const std::string& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) throw std::runtime_error("cannot open " + path);
    execute("PRAGMA journal_mode=WAL");
    execute("PRAGMA synchronous=NORMAL");
  }
  ~BareDatabase() { sqlite3_close(handle_); }
  BareDatabase(const BareDatabase&) = delete;
  BareDatabase& operator=(const BareDatabase&) = delete;
  void execute(const std::string& text) {
    char* message = nullptr;
    if (sqlite3_exec(handle_, text.c_str(), nullptr, nullptr, &message) == SQLITE_OK) return;
    const std::string told = message == nullptr ? "" : message;
    sqlite3_free(message);
    throw std::runtime_error(told + ": " + text.substr(0, 200));
  }
  sqlite3* handle() { return handle_; }

 private:
  sqlite3* handle_ = nullptr;
};

// A folder that goes with the object.
class ScratchFolder {
 public:
  explicit ScratchFolder(const std::string& name) : path_(std::filesystem::temp_directory_path() / name) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace cu::bench
