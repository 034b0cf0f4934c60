#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/wide.h"

// The server's messages in the protocol of SQL Server, version 7.4, as bytes.
namespace cu::test::tds {

inline std::string little(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFFU);
  return text;
}

inline std::string wide(std::string_view text) {
  std::vector<SQLWCHAR> units;
  odbc::toWide(text, units);
  std::string bytes;
  for (const SQLWCHAR unit : units) bytes += little(unit, 2);
  return bytes;
}

inline std::string narrow(std::string_view bytes) {
  std::vector<SQLWCHAR> units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units.push_back(static_cast<SQLWCHAR>(static_cast<unsigned char>(bytes[i]) +
                                          256U * static_cast<unsigned char>(bytes[i + 1])));
  }
  return odbc::fromWide(units.data(), units.size());
}

// A text after the number of its characters, in that many bytes.
inline std::string counted(std::string_view text, int bytes) {
  const std::string units = wide(text);
  return little(units.size() / 2, bytes) + units;
}

inline std::string token(int kind, const std::string& content) {
  return static_cast<char>(kind) + little(content.size(), 2) + content;
}

// The end of an answer: its flags and, where these include it, a number of rows.
inline std::string end(int marks, std::uint64_t rows = 0, int command = 0) {
  return static_cast<char>(0xFD) + little(static_cast<std::uint64_t>(marks), 2) +
         little(static_cast<std::uint64_t>(command), 2) + little(rows, 8);
}
inline std::string done() { return end(0); }
inline std::string touched(std::uint64_t rows) { return end(0x10, rows); }
inline std::string selected(std::uint64_t rows) { return end(0x10, rows, 0xC1); }
inline std::string cancelled() { return end(0x20); }

// The answer to a login.
inline std::string welcome() {
  const std::string version = {'\x0F', '\x00', '\x07', '\xD0'};
  return token(0xE3, '\x01' + counted("suite", 1) + counted("master", 1)) +
         token(0xAD, std::string("\x01\x74\x00\x00\x04", 5) + counted("Microsoft SQL Server", 1) + version) +
         done();
}

inline std::string error(int number, int severity, std::string_view message) {
  return token(0xAA, little(static_cast<std::uint64_t>(number), 4) + '\x01' + static_cast<char>(severity) +
                         counted(message, 2) + counted("prova", 1) + counted("", 1) + little(1, 4)) +
         end(0x02);
}

// The head of a result with one column of whole numbers, and one row.
inline std::string columnOfNumbers(std::string_view name) {
  constexpr char kInteger = 0x38;
  return static_cast<char>(0x81) + little(1, 2) + little(0, 4) + little(0, 2) + kInteger + counted(name, 1);
}
inline std::string rowOf(std::uint32_t value) { return static_cast<char>(0xD1) + little(value, 4); }

// The same with a column of amounts without decimals, and a row with an amount beyond the program's range.
inline std::string columnOfAmounts(std::string_view name) {
  constexpr char kNumeric[] = {'\x6C', '\x11', '\x26', '\x00'};
  return static_cast<char>(0x81) + little(1, 2) + little(0, 4) + little(0, 2) + std::string(kNumeric, 4) +
         counted(name, 1);
}
inline std::string rowBeyondAll() {
  return static_cast<char>(0xD1) + std::string("\x11\x01") + std::string(15, '\xFF') + '\x0A';
}

}  // namespace cu::test::tds
