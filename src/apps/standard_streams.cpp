#include "standard_streams.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <streambuf>
#include <string>
#include <string_view>

namespace cu {
namespace {

void openClosedDescriptors() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(number, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is this one: those below it are open.
    if (::open("/dev/null", O_RDWR) != number) return;
  }
}

void say(std::string_view sentence) {
  while (!sentence.empty()) {
    const ssize_t written = ::write(STDERR_FILENO, sentence.data(), sentence.size());
    if (written <= 0) return;
    sentence.remove_prefix(static_cast<std::size_t>(written));
  }
}

[[noreturn]] void endInWords() {
  std::string_view sentence = "Il programma si è fermato per un errore imprevisto.\n";
  try {
    if (const std::exception_ptr error = std::current_exception()) std::rethrow_exception(error);
  } catch (const std::bad_alloc&) {
    sentence = "La memoria non basta: il programma si è fermato. Chiudere altri programmi e riprovare.\n";
  } catch (...) {
    // The sentence for any other error stands already.
  }
  say(sentence);
  std::_Exit(1);
}

constexpr unsigned char kLeadOfC1 = 0xC2;

bool passes(unsigned char byte) {
  return (byte >= 0x20 && byte != 0x7F && byte != kLeadOfC1) || byte == '\n' || byte == '\t' || byte == '\r';
}

// The picture of a control character below 0x20, or of 0x7F, in UTF-8: U+2400 and those after it.
std::array<char, 3> picture(unsigned char byte) {
  const int place = byte == 0x7F ? 0x21 : byte;
  return {'\xE2', '\x90', static_cast<char>(0x80 + place)};
}

}  // namespace

// Passes everything on but control characters.
class StandardStreams::Visible : public std::streambuf {
 public:
  explicit Visible(std::ostream& stream) : stream_(stream), behind_(stream.rdbuf(this)) {}
  ~Visible() override {
    Visible::sync();
    stream_.rdbuf(behind_);
  }
  Visible(const Visible&) = delete;
  Visible& operator=(const Visible&) = delete;

 protected:
  int_type overflow(int_type character) override {
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
    const char one = traits_type::to_char_type(character);
    return xsputn(&one, 1) == 1 ? character : traits_type::eof();
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    const char* at = bytes;
    const char* const end = bytes + count;
    while (at < end) {
      if (leadHeld_) {
        if (!afterLead(*at++)) return 0;
        continue;
      }
      const char* const odd =
          std::find_if(at, end, [](char c) { return !passes(static_cast<unsigned char>(c)); });
      if (!pass(at, static_cast<std::size_t>(odd - at))) return 0;
      at = odd;
      if (at == end) break;
      const auto byte = static_cast<unsigned char>(*at++);
      if (byte == kLeadOfC1) {
        leadHeld_ = true;
      } else {
        const std::array<char, 3> shown = picture(byte);
        if (!pass(shown.data(), shown.size())) return 0;
      }
    }
    return count;
  }
  int sync() override {
    if (leadHeld_) {
      leadHeld_ = false;
      pass("\xC2", 1);
    }
    return behind_->pubsync();
  }

 private:
  bool pass(const char* bytes, std::size_t length) {
    const auto count = static_cast<std::streamsize>(length);
    return behind_->sputn(bytes, count) == count;
  }
  // U+0080 to U+009F are control characters too; they have no pictures.
  bool afterLead(char next) {
    leadHeld_ = false;
    const auto byte = static_cast<unsigned char>(next);
    if (byte >= 0x80 && byte < 0xA0) return pass("\uFFFD", 3);
    const std::array<char, 2> whole{'\xC2', next};
    return pass(whole.data(), whole.size());
  }

  std::ostream& stream_;
  std::streambuf* behind_;
  bool leadHeld_ = false;
};

StandardStreams::StandardStreams() {
  openClosedDescriptors();
  if (::isatty(STDOUT_FILENO) == 1) out_ = std::make_unique<Visible>(std::cout);
  if (::isatty(STDERR_FILENO) == 1) err_ = std::make_unique<Visible>(std::cerr);
}

StandardStreams::~StandardStreams() = default;

bool StandardStreams::complete() {
  std::cout.flush();
  if (std::cout) return true;
  pollfd reader{STDOUT_FILENO, POLLOUT, 0};
  return ::poll(&reader, 1, 0) == 1 && (static_cast<unsigned>(reader.revents) & (POLLERR | POLLHUP)) != 0;
}

int StandardStreams::finished(int code) {
  if (complete()) return code;
  std::cerr
      << "Non tutto quello che andava sullo standard output si è potuto scrivere: verificare lo spazio sul "
         "disco.\n";
  return code == 0 ? 1 : code;
}

void reportInWords() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::set_terminate(endInWords);
}

}  // namespace cu
