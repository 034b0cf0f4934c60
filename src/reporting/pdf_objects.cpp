#include "reporting/pdf_objects.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace cu::reporting {
namespace {

constexpr std::string_view kObject = " 0 obj\n";
constexpr std::string_view kEndOfObject = "\nendobj\n";
constexpr std::string_view kTable = "xref\n0 ";
constexpr std::string_view kStream = "\nstream\n";
constexpr std::string_view kEndOfStream = "\nendstream";
constexpr std::string_view kReference = " 0 R";

bool isFigure(char c) { return c >= '0' && c <= '9'; }

// The number at the beginning of a text, 0 where there is none; removes it.
int takeNumber(std::string_view& text) {
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  return number;
}

}  // namespace

void PdfObjects::add(std::string_view bytes) {
  held_ += bytes;
  std::size_t begin = 0;
  while (next(begin)) {
  }
  held_.erase(0, begin);
  searched_ -= begin;
}

// Passes on the object that begins at `begin`, and moves it behind; returns false where it is not whole yet.
bool PdfObjects::next(std::size_t& begin) {
  const std::size_t end = held_.find(kEndOfObject, searched_);
  if (end == std::string::npos) {
    const std::size_t partial = kEndOfObject.size() - 1;
    searched_ = std::max(begin, held_.size() > partial ? held_.size() - partial : 0);
    return false;
  }
  std::string_view object = std::string_view(held_).substr(begin, end - begin);
  // The two lines of comment before the first object.
  while (object.starts_with('%')) object.remove_prefix(std::min(object.find('\n'), object.size() - 1) + 1);
  const int number = takeNumber(object);
  begin = searched_ = end + kEndOfObject.size();
  if (number == 0 || !object.starts_with(kObject)) {
    broken_ = true;
    return true;
  }
  object.remove_prefix(kObject.size());
  ++found_;
  each_(number, object);
  return true;
}

bool PdfObjects::complete() const {
  std::string_view rest = held_;
  if (broken_ || !rest.starts_with(kTable)) return false;
  rest.remove_prefix(kTable.size());
  return takeNumber(rest) == found_ + 1;
}

PdfBody pdfBody(std::string_view body) {
  const std::size_t at = body.find(kStream);
  if (at == std::string_view::npos || !body.ends_with(kEndOfStream)) return {body, std::nullopt};
  const std::size_t begin = at + kStream.size();
  const std::size_t size = body.size() - kEndOfStream.size();
  return {body.substr(0, at), size < begin ? std::string_view() : body.substr(begin, size - begin)};
}

int referenceOf(std::string_view dictionary, std::string_view name) {
  const std::size_t at = dictionary.find("/" + std::string(name) + " ");
  if (at == std::string_view::npos) return 0;
  std::string_view value = dictionary.substr(at + name.size() + 2);
  const int number = takeNumber(value);
  return value.starts_with(kReference) ? number : 0;
}

std::string withReferences(std::string_view dictionary, const std::function<int(int)>& number) {
  std::string result;
  std::size_t copied = 0;
  for (std::size_t at = dictionary.find(kReference); at != std::string_view::npos;
       at = dictionary.find(kReference, at + kReference.size())) {
    std::size_t digits = at;
    while (digits > copied && isFigure(dictionary[digits - 1])) --digits;
    std::string_view text = dictionary.substr(digits, at - digits);
    if (text.empty()) continue;
    result += dictionary.substr(copied, digits - copied);
    result += fromInteger(number(takeNumber(text)));
    copied = at;
  }
  result += dictionary.substr(copied);
  return result;
}

bool replaceOnce(std::string& text, std::string_view piece, std::string_view by) {
  const std::size_t at = text.find(piece);
  if (at == std::string::npos) return false;
  text.replace(at, piece.size(), by);
  return true;
}

}  // namespace cu::reporting
