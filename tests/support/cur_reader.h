#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cu::test {

// Reads a telematic file by the printed layout: lines of 1898 characters and CR LF, fields by position (from
// 1) and length, cells by their codes. It is independent of the writers.
struct CurCell {
  std::string code;
  std::string value;  // 16 characters, unchanged
  friend bool operator==(const CurCell&, const CurCell&) = default;
};

class CurLine {
 public:
  explicit CurLine(std::string text) : text_(std::move(text)) {}
  char type() const { return text_.at(0); }
  const std::string& text() const { return text_; }
  std::string at(std::size_t position, std::size_t length) const {
    return text_.substr(position - 1, length);
  }

  // The 75 cells of a record D or H up to the first blank one; all later ones are required to be blank.
  std::vector<CurCell> cells() const {
    std::vector<CurCell> result;
    bool ended = false;
    for (std::size_t n = 0; n < 75; ++n) {
      const std::string cell = at(90 + 24 * n, 24);
      if (cell == std::string(24, ' ')) {
        ended = true;
        continue;
      }
      if (ended) throw std::runtime_error("a cell behind a blank one: " + cell);
      result.push_back({cell.substr(0, 8), cell.substr(8)});
    }
    return result;
  }
  // Codes and values, with continuations joined and trailing blanks removed.
  std::vector<std::pair<std::string, std::string>> values() const {
    std::vector<std::pair<std::string, std::string>> result;
    for (const CurCell& cell : cells()) {
      const bool continues = !result.empty() && result.back().first == cell.code && cell.value[0] == '+';
      if (!continues) {
        result.emplace_back(cell.code, cell.value);
      } else {
        result.back().second += cell.value.substr(1);
      }
    }
    for (auto& [code, value] : result) value.erase(value.find_last_not_of(' ') + 1);
    return result;
  }
  bool has(std::string_view code) const {
    for (const CurCell& cell : cells()) {
      if (cell.code == code) return true;
    }
    return false;
  }
  // The value of the code, with leading blanks; "" when there is none.
  std::string value(std::string_view code) const {
    for (const auto& [each, value] : values()) {
      if (each == code) return value;
    }
    return "";
  }

 private:
  std::string text_;
};

class CurFile {
 public:
  // Every line is required to be complete: 1898 characters, CR LF.
  explicit CurFile(std::string_view content) {
    constexpr std::size_t kLine = 1900;
    if (content.size() % kLine != 0) throw std::runtime_error("the file holds a line that is not 1900 bytes");
    for (std::size_t at = 0; at < content.size(); at += kLine) {
      if (content.substr(at + 1898, 2) != "\r\n") throw std::runtime_error("a line does not end with CR LF");
      lines_.emplace_back(std::string(content.substr(at, 1898)));
    }
  }
  const std::vector<CurLine>& lines() const { return lines_; }
  std::string types() const {
    std::string types;
    for (const CurLine& line : lines_) types += line.type();
    return types;
  }
  // The n-th line of that type, from 1.
  const CurLine& line(char type, std::size_t n = 1) const {
    for (const CurLine& line : lines_) {
      if (line.type() == type && --n == 0) return line;
    }
    throw std::runtime_error(std::string("no such line of type ") + type);
  }

 private:
  std::vector<CurLine> lines_;
};

}  // namespace cu::test
