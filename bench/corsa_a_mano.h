#pragma once

// The telematic file of a run by hand: the run's queries on the engine's bare C API, each line composed as
// its row comes and written in blocks.

#include <fcntl.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bare_database.h"
#include "telematic/query_cu.h"
#include "telematic_a_mano.h"

namespace cu::bench {

inline constexpr std::size_t kLine = 1900;
inline constexpr std::size_t kBlock = 552 * kLine;
inline constexpr std::string_view kCompany = "01234567890";
inline const Date kSignature = Date::fromYmd(2017, 2, 28).value();
inline const std::string kTable = "tmpprequadrivio12";

struct SqlRow {
  sqlite3_stmt* s;
  bool isNull(int n) const { return sqlite3_column_type(s, n) == SQLITE_NULL; }
  std::string_view text(int n) const {
    const unsigned char* const at = sqlite3_column_text(s, n);
    return {reinterpret_cast<const char*>(at),
            at == nullptr ? 0 : static_cast<std::size_t>(sqlite3_column_bytes(s, n))};
  }
  std::int64_t amount(int n) const {
    switch (sqlite3_column_type(s, n)) {
      case SQLITE_NULL:
        return 0;
      case SQLITE_INTEGER:
        return sqlite3_column_int64(s, n) * 10000;
      default:
        return std::llround(sqlite3_column_double(s, n) * 10000);
    }
  }
  std::int64_t whole(int n) const { return sqlite3_column_int64(s, n); }
  Date day(int n) const { return Date::parseIso(text(n)).value_or(Date()); }
};

class BlockFile {
 public:
  explicit BlockFile(const std::string& path)
      : fd_(::open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0644)) {
    block_.reserve(kBlock);
  }
  ~BlockFile() { ::close(fd_); }
  BlockFile(const BlockFile&) = delete;
  BlockFile& operator=(const BlockFile&) = delete;
  void write(std::string_view line) {
    if (block_.size() + line.size() > kBlock) flush();
    block_.append(line);
  }
  void flush() {
    std::string_view left = block_;
    while (!left.empty()) {
      const ssize_t n = ::write(fd_, left.data(), left.size());
      if (n <= 0) throw std::runtime_error("write");
      left.remove_prefix(static_cast<std::size_t>(n));
    }
    block_.clear();
  }

 private:
  int fd_;
  std::string block_;
};

// The modules' query with its four keys as parameters.
inline std::string modulesQuery() {
  std::string text = telematico::queryModuli(0, 0, 0, 0);
  for (const char* parameter : {"?1", "?2", "?3", "?4"}) text.replace(text.find(" = 0") + 3, 1, parameter);
  return text;
}

inline std::string mainQuery(BareDatabase& bare) {
  return plainOne(bare, telematico::queryPrincipale(kTable));
}

// The first, second and last line cost nothing and are handed in.
inline void loop(BareDatabase& bare, const std::string& path, std::string_view first, std::string_view last) {
  bare.execute("BEGIN");
  {
    const BareStatement rows(bare, mainQuery(bare));
    const BareStatement modules(bare, modulesQuery());
    ComposizioneAMano hand;
    BlockFile file(path);
    file.write(first);
    int number = 0;
    while (rows.step()) {
      const SqlRow row{rows.get()};
      ++number;
      file.write(hand.certificato(row, number, kCompany, kSignature));
      file.write(hand.primoModulo(row, number, kCompany));
      sqlite3_bind_int64(modules.get(), 1, row.whole(Anno));
      sqlite3_bind_int64(modules.get(), 2, row.whole(IDAnagrafica));
      sqlite3_bind_int64(modules.get(), 3, row.whole(IDAzienda));
      sqlite3_bind_int64(modules.get(), 4, row.whole(IDCausalePagamento));
      for (int module = 2; modules.step(); ++module) {
        file.write(hand.altroModulo(row, SqlRow{modules.get()}, number, module, kCompany));
      }
      modules.reset();
    }
    file.write(last);
    file.flush();
  }
  bare.execute("COMMIT");
}

}  // namespace cu::bench
