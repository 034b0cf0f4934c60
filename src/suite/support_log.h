#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "suite/platform_file.h"

namespace cu {

// One operation of the program, as the log for support shows it. Nothing here has room for a value: a word
// that is no plain word (letters, digits, blanks and _ . - : # ( ), at most 48 characters) is written as "?".
struct LogEntry {
  const char* operation;         // what was done: a literal
  std::string_view detail = {};  // which kind of it, such as SELECT
  std::string_view object = {};  // on which table, window or form
  std::optional<std::chrono::microseconds> duration = {};
  std::optional<std::int64_t> rows = {};
  std::optional<std::uint64_t> bytes = {};
  std::optional<int> exitCode = {};
  const std::exception* error = nullptr;  // its kind and numbers are written, never its text
};

// The log for support, written only where the user asks for it. It has a line for each operation, written to
// the file at once; equal short operations within a second of the first are counted on one line, also where a
// few kinds of them alternate. A full file becomes FILE.1, the one before it FILE.2, and so on. Any thread
// may write, and several processes into one file. An error ends the log, never the work: it is reported once.
class SupportLog {
 public:
  struct Settings {
    std::string path;
    std::uint64_t fileBytes = 1U << 20;  // of a full file
    int files = 3;                       // with the present one
    std::function<void(const std::string&)> warn =
        {};  // receives one line in Italian; called from any thread
  };
  // Continues an existing log. A file that is none is not touched.
  explicit SupportLog(Settings settings);
  ~SupportLog();
  SupportLog(const SupportLog&) = delete;
  SupportLog& operator=(const SupportLog&) = delete;

  void record(const LogEntry& entry);
  bool works() const;
  // Writes what has only been counted so far.
  void flush();

  // The log of the process; null where none was asked for.
  static SupportLog* active();
  // Replaces it, or ends it. The earlier one stays in memory: another thread may be about to write.
  static void activate(std::unique_ptr<SupportLog> log);

 private:
  // A short operation that has a line, and what has been counted since.
  struct Repeated {
    std::string subject;
    std::chrono::steady_clock::time_point since;
    std::uint64_t times = 0;
    std::chrono::microseconds duration{0};
    std::optional<std::int64_t> rows = {};
  };
  static constexpr std::size_t kAlternating = 8;
  bool count(const std::string& subject, const LogEntry& entry, std::chrono::steady_clock::time_point now);
  void open();
  void rotate();
  bool makeRoom();
  void writeRepeated();
  void writeLine(const std::string& text);
  bool fits(std::size_t more) const;
  void fail(const std::string& text);

  Settings settings_;
  mutable std::mutex mutex_;
  std::optional<Descriptor> file_;
  std::vector<Repeated> repeated_;  // the oldest first
  int process_ = 0;                 // what a process has counted is not written by its children
};

// Records an error that has ended an operation. Nothing without a log.
void logFailure(const char* operation, const std::exception& error);

// Runs the work and records it with its duration, or its error, which is passed on. The work may add to the
// entry. Without a log it only runs the work.
template <class Work>
auto logged(SupportLog* log, LogEntry& entry, const Work& work) {
  if (log == nullptr) return work();
  const auto start = std::chrono::steady_clock::now();
  const auto note = [&](const std::exception* error) {
    entry.error = error;
    entry.duration =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    log->record(entry);
  };
  try {
    if constexpr (std::is_void_v<decltype(work())>) {
      work();
      note(nullptr);
    } else {
      auto result = work();
      note(nullptr);
      return result;
    }
  } catch (const std::exception& error) {
    note(&error);
    throw;
  }
}

// The same with the process's log.
template <class Work>
auto logged(LogEntry entry, const Work& work) {
  return logged(SupportLog::active(), entry, work);
}

}  // namespace cu
