// An import of payments as a user's own process, read, planned and applied, beside the bare inserts of the
// same rows. Arguments: the number of payees and that of payments. As "importa_misure bare FROM TO" it is the
// bare side: it copies the rows of one database to another one.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bare_database.h"
#include "child_run.h"
#include "misura.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 3;
constexpr const char* kThirdBatch = " WHERE IDImportazione = 3";
constexpr struct {
  const char* table;
  const char* condition;
} kWritten[] = {{"Compenso", ""},
                {"ContoIndividuale", ""},
                {"CuImportazione", kThirdBatch},
                {"CuImportazioneFile", kThirdBatch},
                {"CuImportazioneRiga", kThirdBatch},
                {"CuImportazioneConto", kThirdBatch}};
// ---- the bare side: a cursor on the rows, and one prepared INSERT with its values

void copyTable(BareDatabase& from, BareDatabase& to, const std::string& table, const char* condition) {
  const BareStatement rows(from, "SELECT * FROM " + table + condition);
  const int columns = sqlite3_column_count(rows.get());
  std::string places;
  for (int i = 0; i < columns; ++i) places += i == 0 ? "?" : ", ?";
  const BareStatement insert(to, "INSERT INTO " + table + " VALUES (" + places + ")");
  while (rows.step()) {
    for (int i = 0; i < columns; ++i) {
      sqlite3_bind_value(insert.get(), i + 1, sqlite3_column_value(rows.get(), i));
    }
    insert.step();
    insert.reset();
  }
}

int bare(const std::string& from, const std::string& to) {
  BareDatabase source(from);
  BareDatabase target(to);
  target.execute("BEGIN IMMEDIATE");
  for (const auto& [table, condition] : kWritten) copyTable(source, target, table, condition);
  target.execute("COMMIT");
  return 0;
}

// ---- the import

class Imports {
 public:
  Imports(int payees, int payments) : payees_(payees), payments_(payments) {
    const auto self = std::filesystem::read_symlink("/proc/self/exe");
    self_ = self.string();
    cuctl_ = (self.parent_path() / "cuctl").string();
    prepare();
  }

  // Payments of one reason and year, one account each payee; then of as many accounts as payments.
  void measure() {
    const std::string size = grouped(payments_) + " payments";
    row(size, size + " of " + grouped(payees_) + " payees", false, "value:10", "value:300");
    row(size, size + ", an account each", true, "", "");
  }

 private:
  // A database with a company and its payees as an import makes them.
  void prepare() {
    const std::string synthetic = "sqlite:" + folder_.file("synthetic.db");
    run({cuctl_, "create", "--database", synthetic, "--payees", std::to_string(payees_), "--years", "2016",
         "--seed", "1"});
    run({cuctl_, "create", "--database", address("base"), "--empty"});
    for (const std::string list : {"companies", "payees"}) {
      const std::string file = folder_.file(list + ".csv");
      run({cuctl_, "export", list, "--database", synthetic, "--company", "1", "--output", file});
      Arguments import = {cuctl_,     "import",          list,     file, "--database", address("base"),
                          "--accept", "P02,P03,P06,P11", "--apply"};
      if (list == "payees") import.insert(import.end(), {"--company", "1"});
      run(import);
    }
    std::ifstream table(folder_.file("payees.csv"));
    std::string line;
    std::getline(table, line);
    while (std::getline(table, line)) codes_.push_back(line.substr(0, line.find(';')));
    if (codes_.size() != static_cast<std::size_t>(payees_)) throw std::runtime_error("payees are missing");
  }

  std::string address(const std::string& name) const { return "sqlite:" + folder_.file(name + ".db"); }

  std::string writePayments(bool scattered) const {
    static constexpr const char* kReasons[] = {"A", "M", "L", "V", "C"};
    std::string file = folder_.file("payments.csv");
    std::ofstream table(file);
    table << "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;DataDocumento;Onorario;"
             "SommeNonSoggette;RitenutaAcconto;Riferimento\n";
    for (int i = 0; i < payments_; ++i) {
      const int fee = 10000 + i % 50000 * 5;  // cents
      const int tax = scattered ? 0 : fee / 5;
      char row[200];
      std::snprintf(row, sizeof row, "%s;%s;%02d/%02d/%d;%d;2016-12-01;%d,%02d;2,00;%d,%02d;R%08d\n",
                    codes_[static_cast<std::size_t>(i % payees_)].c_str(),
                    scattered ? kReasons[i / payees_ % 5] : "A", 1 + i % 28, 1 + i % 12,
                    scattered ? 2014 + i % 4 : 2017, i, fee / 100, fee % 100, tax / 100, tax % 100, i);
      table << row;
    }
    return file;
  }

  void copy(const std::string& from, const std::string& to) const {
    for (const char* end : {".db-wal", ".db-shm"}) std::filesystem::remove(folder_.file(to + end));
    std::filesystem::copy_file(folder_.file(from + ".db"), folder_.file(to + ".db"),
                               std::filesystem::copy_options::overwrite_existing);
  }

  void row(const std::string& size, const std::string& what, bool scattered, const std::string& time,
           const std::string& memory) {
    const std::string file = writePayments(scattered);
    Cost ours;
    Cost limit;
    for (int i = 0; i < kRounds; ++i) {
      copy("base", "import");
      const Cost mine = run(
          {cuctl_, "import", "payments", file, "--database", address("import"), "--company", "1", "--apply"});
      copy("base", "bare");
      const Cost theirs = run({self_, "bare", folder_.file("import.db"), folder_.file("bare.db")});
      ours = {std::min(ours.seconds, mine.seconds), std::max(ours.mebibytes, mine.mebibytes)};
      limit = {std::min(limit.seconds, theirs.seconds), std::max(limit.mebibytes, theirs.mebibytes)};
    }
    const char* const bareInserts = "the bare inserts of the same rows";
    print({.name = "import of " + what,
           .ours = ours.seconds,
           .limit = limit.seconds,
           .limitName = bareInserts,
           .promise = time});
    print({.name = "memory of the import of " + what,
           .ours = ours.mebibytes,
           .limit = limit.mebibytes,
           .limitName = bareInserts,
           .promise = memory,
           .unit = "MiB"});
    if (scattered) return;
    const Cost again = run(
        {cuctl_, "import", "payments", file, "--database", address("import"), "--company", "1", "--apply"});
    print({.name = "import of the same " + size + " again", .ours = again.seconds});
  }

  int payees_;
  int payments_;
  ScratchFolder folder_{"cu_importa_misure"};
  std::string self_;
  std::string cuctl_;
  std::vector<std::string> codes_;
};

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) {
  if (argc == 4 && std::strcmp(argv[1], "bare") == 0) return cu::bench::bare(argv[2], argv[3]);
  if (argc != 3) return 2;
  cu::bench::Imports(std::atoi(argv[1]), std::atoi(argv[2])).measure();
}
