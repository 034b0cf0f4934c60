// The run from the main query to the closed file, beside a bare loop on the engine's C API: the same query
// stepped and its typed columns composed by hand as they come, the modules' query prepared once inside the
// same read transaction, the same bytes written in the same blocks. Argument: how many payees (20,000 without
// one).

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "database/archivio.h"
#include "database/sqlite/sqlite_connection.h"
#include "host/collation.h"
#include "host/form.h"
#include "host/grid.h"
#include "misura.h"
#include "one_session.h"
#include "suite/file_system.h"
#include "suite/utilita.h"
#include "support/fake_session.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"
#include "telematic/cu_ele.h"
#include "telematic/query_cu.h"
#include "telematic_a_mano.h"
#include "worklist/compensi.h"

namespace {

using namespace cu;

constexpr std::size_t kLine = 1900;
constexpr std::size_t kBlock = 552 * kLine;
const Date kSignature = Date::fromYmd(2017, 2, 28).value();
constexpr std::string_view kCompany = "01234567890";

// ---- the bare loop

int compare(void*, int lengthA, const void* a, int lengthB, const void* b) {
  return compareItalian({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                        {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

class Statement {
 public:
  Statement(sqlite3* database, const std::string& text) {
    if (sqlite3_prepare_v2(database, text.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database));
    }
  }
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  sqlite3_stmt* get() const { return statement_; }
  bool step() const {
    const int code = sqlite3_step(statement_);
    if (code != SQLITE_ROW && code != SQLITE_DONE) throw std::runtime_error("step");
    return code == SQLITE_ROW;
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

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
  void write(std::string_view line) {
    if (block_.size() + line.size() > kBlock) flush();
    block_.append(line);
  }
  void close() {
    flush();
    ::close(fd_);
  }

 private:
  void flush() {
    std::string_view left = block_;
    while (!left.empty()) {
      const ssize_t n = ::write(fd_, left.data(), left.size());
      if (n <= 0) throw std::runtime_error("write");
      left.remove_prefix(static_cast<std::size_t>(n));
    }
    block_.clear();
  }
  int fd_;
  std::string block_;
};

std::string inTheEnginesWords(std::string text) {
  for (std::size_t at = text.find("ISNULL("); at != std::string::npos; at = text.find("ISNULL(", at + 3)) {
    text.replace(at, 6, "IFNULL");
  }
  return text;
}

// The first, second and last line cost nothing and are handed in.
void bareRun(sqlite3* database, const std::string& table, const std::string& path, std::string_view first,
             std::string_view last) {
  sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
  {
    const Statement rows(database, inTheEnginesWords(telematico::queryPrincipale(table)));
    std::string text = telematico::queryModuli(0, 0, 0, 0);
    for (const char* parameter : {"?1", "?2", "?3", "?4"}) {
      text.replace(text.find(" = 0") + 3, 1, parameter);
    }
    const Statement modules(database, text);
    bench::ComposizioneAMano hand;
    BlockFile file(path);
    file.write(first);
    int number = 0;
    while (rows.step()) {
      const SqlRow row{rows.get()};
      ++number;
      file.write(hand.certificato(row, number, kCompany, kSignature));
      file.write(hand.primoModulo(row, number, kCompany));
      sqlite3_bind_int64(modules.get(), 1, row.whole(bench::Anno));
      sqlite3_bind_int64(modules.get(), 2, row.whole(bench::IDAnagrafica));
      sqlite3_bind_int64(modules.get(), 3, row.whole(bench::IDAzienda));
      sqlite3_bind_int64(modules.get(), 4, row.whole(bench::IDCausalePagamento));
      for (int module = 2; modules.step(); ++module) {
        file.write(hand.altroModulo(row, SqlRow{modules.get()}, number, module, kCompany));
      }
      sqlite3_reset(modules.get());
    }
    file.write(last);
    file.close();
  }
  sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  const int payees = argc > 1 ? std::atoi(argv[1]) : 20000;
  constexpr int kRounds = 5;
  const bench::ScratchFolder folder("cu_bare_run");
  auto connection = SqliteConnection::create(folder.file("archivio.db"));
  creaArchivio(*connection, ContenutoArchivio::Sintetico,
               {.percipienti = payees, .primoAnno = 2016, .ultimoAnno = 2016, .seme = 1});
  bench::OneConnection database(*connection);
  test::ScriptedFrontEnd screen;
  UtilitaItaliana utilita(screen, "/tmp");
  FileSystemPiattaforma files;
  const test::FixedClock clock(2017, 3, 5);
  Globali globali;
  globali.gSessione = std::make_unique<bench::OneSession>(database);
  globali.gAnno = 2016;
  {
    Form form(screen, "frmWizard");
    Grid grid(form, "grdCompensi", nullptr);
    Compensi compensi(globali, utilita, screen, grid);
    Filtri filtri;
    filtri.anno = "2016";
    compensi.sbCreaTabellaLavoro(filtri);
  }

  DatiFornitura dati;
  dati.CodiceFiscaleAzienda = kCompany;
  const std::string path = folder.file("nostro.cur");
  const auto ourRun = [&] {
    CUEle ele({.globali = globali, .utilita = utilita, .files = files, .frontEnd = screen, .clock = clock});
    ele.setFilePathName(path);
    ele.setDati(dati);
    if (!ele.Create(kSignature)) throw std::runtime_error("no file");
  };
  ourRun();
  const std::string ours = files.readAll(path);
  const std::string first = ours.substr(0, 2 * kLine);
  const std::string last = ours.substr(ours.size() - kLine);

  bench::BareDatabase bare(folder.file("archivio.db"));
  bare.execute("PRAGMA cache_size = -65536");
  bare.execute("PRAGMA temp_store = MEMORY");
  sqlite3_create_collation(bare.handle(), "NOCASE", SQLITE_UTF8, nullptr, compare);
  const std::string barePath = folder.file("nudo.cur");
  const auto loop = [&] { bareRun(bare.handle(), globali.gTabellaLavoro, barePath, first, last); };
  loop();
  const std::string theirs = files.readAll(barePath);
  if (ours != theirs) {
    std::size_t at = 0;
    while (at < std::min(ours.size(), theirs.size()) && ours[at] == theirs[at]) ++at;
    std::fprintf(stderr, "the files differ: %zu and %zu bytes, line %zu, position %zu\n%s\n%s\n", ours.size(),
                 theirs.size(), at / kLine + 1, at % kLine + 1,
                 ours.substr(at / kLine * kLine, kLine).c_str(),
                 theirs.substr(at / kLine * kLine, kLine).c_str());
    return 1;
  }

  double best = 1e9;
  double bestBare = 1e9;
  for (int round = 0; round < kRounds; ++round) {
    best = std::min(best, bench::seconds(ourRun));
    bestBare = std::min(bestBare, bench::seconds(loop));
  }
  bench::heading();
  bench::row("run of " + std::to_string(ours.size() / kLine) + " lines, best of " + std::to_string(kRounds),
             best, bestBare);
  return 0;
}
