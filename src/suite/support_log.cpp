#include "suite/support_log.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <utility>
#include <vector>

#include "base/ascii.h"
#include "base/text.h"
#include "platform/owner_only.h"
#include "suite/log_text.h"

namespace cu {
namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr microseconds kShort = std::chrono::milliseconds(100);
constexpr auto kTogether = std::chrono::seconds(1);

std::atomic<SupportLog*> activeLog = nullptr;

std::string numbered(const std::string& path, int number) { return path + "." + fromInteger(number); }

// The first line of each of its files starts as every line does, with its moment and the process. A new file
// has none.
bool isLog(int file) {
  std::array<char, 48> head{};
  const ssize_t size = ::pread(file, head.data(), head.size(), 0);
  if (size < 0) return false;
  return size == 0 || isLogLine(std::string_view(head.data(), static_cast<std::size_t>(size)));
}

// There is no file of the name, or it is an older part of the log.
bool mayReplace(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  return file.isOpen() ? isLog(file.number()) : errno == ENOENT;
}

bool isPresent(int file, const std::string& path) {
  struct stat open {};
  struct stat named {};
  return ::fstat(file, &open) == 0 && ::stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
         open.st_ino == named.st_ino;
}

}  // namespace

SupportLog::SupportLog(Settings settings) : settings_(std::move(settings)) {
  const std::scoped_lock lock(mutex_);
  open();
}

SupportLog::~SupportLog() { flush(); }

void SupportLog::flush() {
  const std::scoped_lock lock(mutex_);
  writeRepeated();
}

SupportLog* SupportLog::active() { return activeLog; }

void SupportLog::activate(std::unique_ptr<SupportLog> log) {
  static std::vector<std::unique_ptr<SupportLog>> kept;
  if (!kept.empty()) kept.back()->flush();
  if (log == nullptr) {
    activeLog = nullptr;
    return;
  }
  kept.push_back(std::move(log));
  activeLog = kept.back().get();
}

void logFailure(const char* operation, const std::exception& error) {
  if (SupportLog* const log = SupportLog::active(); log != nullptr)
    log->record({.operation = operation, .error = &error});
}

bool SupportLog::works() const {
  const std::scoped_lock lock(mutex_);
  return file_.has_value();
}

void SupportLog::record(const LogEntry& entry) {
  const std::scoped_lock lock(mutex_);
  if (!file_) return;
  const std::string subject = logSubject(entry);
  const auto now = steady_clock::now();
  if (std::exchange(process_, ::getpid()) != ::getpid()) repeated_.clear();
  const bool isShort = entry.error == nullptr && entry.duration && *entry.duration < kShort && !entry.bytes;
  if (isShort && count(subject, entry, now)) return;
  writeRepeated();
  writeLine(subject + logMeasures(entry));
  if (!isShort) {
    repeated_.clear();
    return;
  }
  std::erase_if(repeated_, [&subject](const Repeated& each) { return each.subject == subject; });
  if (repeated_.size() == kAlternating) repeated_.erase(repeated_.begin());
  repeated_.push_back({subject, now});
}

// Returns false for an operation that has no line, or one of more than a second ago.
bool SupportLog::count(const std::string& subject, const LogEntry& entry, steady_clock::time_point now) {
  const auto known = std::find_if(repeated_.begin(), repeated_.end(),
                                  [&subject](const Repeated& each) { return each.subject == subject; });
  if (known == repeated_.end() || now - known->since >= kTogether) return false;
  ++known->times;
  known->duration += *entry.duration;
  if (entry.rows) known->rows = known->rows.value_or(0) + *entry.rows;
  return true;
}

void SupportLog::writeRepeated() {
  if (process_ != ::getpid()) return;
  for (Repeated& each : repeated_) {
    if (each.times == 0) continue;
    const LogEntry measures{.operation = "", .duration = each.duration, .rows = each.rows};
    writeLine(each.subject + " volte=" + fromInteger(static_cast<std::int64_t>(each.times)) +
              logMeasures(measures));
    each.times = 0;
    each.duration = microseconds(0);
    each.rows.reset();
  }
}

void SupportLog::writeLine(const std::string& text) {
  if (!file_) return;
  const std::string line = logMoment() + " [" + fromInteger(::getpid()) + "] " + text + "\n";
  if (!fits(line.size())) rotate();
  if (!file_) return;
  int code = 0;
  if (file_->write(line, code) < line.size()) fail(fileError(code, settings_.path).description());
}

void SupportLog::open() {
  createOwnerOnlyFile(settings_.path);
  // Non-blocking: a pipe without a reader is an error.
  const int number = ::open(settings_.path.c_str(), O_RDWR | O_APPEND | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (number < 0) {
    fail(fileError(errno, settings_.path).description());
    return;
  }
  file_.emplace(number);
  struct stat status {};
  if (::fstat(number, &status) != 0 || !S_ISREG(status.st_mode) || !isLog(number)) {
    fail("Il file non è un registro per l'assistenza: " + settings_.path);
  }
}

bool SupportLog::fits(std::size_t more) const {
  struct stat status {};
  if (::fstat(file_->number(), &status) != 0) return true;
  return status.st_size == 0 || static_cast<std::uint64_t>(status.st_size) + more <= settings_.fileBytes;
}

// Another process may have renamed the file in the meantime: then the new one is opened.
void SupportLog::rotate() {
  const Descriptor full = std::move(*file_);
  file_.reset();
  while (::flock(full.number(), LOCK_EX) != 0 && errno == EINTR) continue;
  if (!isPresent(full.number(), settings_.path) || makeRoom()) open();
}

bool SupportLog::makeRoom() {
  for (int number = 1; number < settings_.files; ++number) {
    if (mayReplace(numbered(settings_.path, number))) continue;
    fail("Il file non è un registro per l'assistenza: " + numbered(settings_.path, number));
    return false;
  }
  for (int number = settings_.files - 1; number > 0; --number) {
    const std::string newer = number == 1 ? settings_.path : numbered(settings_.path, number - 1);
    const std::string older = numbered(settings_.path, number);
    if (::rename(newer.c_str(), older.c_str()) == 0 || errno == ENOENT) continue;
    fail(fileError(errno, older).description());
    return false;
  }
  return true;
}

void SupportLog::fail(const std::string& text) {
  file_.reset();
  if (settings_.warn) settings_.warn("Il registro per l'assistenza non si può scrivere. " + text);
}

}  // namespace cu
