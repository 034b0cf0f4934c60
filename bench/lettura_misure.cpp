// Checking a telematic file beside sha256sum and beside the bare reading of its bytes, and comparing it with
// the accounts beside the bare reading of their rows.

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "archive/archivio.h"
#include "lettura/confronto.h"
#include "lettura/esame.h"
#include "misura.h"
#include "riscontro/conti.h"
#include "sqlite/sqlite_connection.h"
#include "suite/utilita.h"
#include "support/scripted_front_end.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 3;
constexpr std::int32_t kYear = 2016;

class File : public lettura::Sorgente {
 public:
  explicit File(const std::string& path) : file_(path, std::ios::binary) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    file_.read(dove, static_cast<std::streamsize>(quanti));
    return static_cast<std::size_t>(file_.gcount());
  }

 private:
  std::ifstream file_;
};

class Certificates : public lettura::Ascoltatore {
 public:
  void certificato(const lettura::Certificato& certificato) override { pairs.aggiungi(certificato); }
  lettura::Accostamento pairs;
};

void readBytes(const std::string& path) {
  File file(path);
  std::vector<char> block(std::size_t{1} << 18U);
  while (file.leggi(block.data(), block.size()) > 0) {
  }
}

void readRows(Connection& connection) {
  for (const char* query :
       {"SELECT * FROM RepContoIndividuale WHERE Anno = 2016 AND IDAzienda = 1",
        "SELECT Anagrafica.* FROM Percipiente INNER JOIN Anagrafica ON Percipiente.IDAnagrafica ="
        " Anagrafica.IDAnagrafica",
        "SELECT * FROM ModuloXContoIndividuale WHERE Anno = 2016 AND IDAzienda = 1"}) {
    RowStore rows;
    connection.Query(query, rows);
  }
}

std::size_t different(Connection& connection, const Conversioni& conversions, const std::string& path) {
  File file(path);
  Certificates certificates;
  static_cast<void>(lettura::esamina(file, nullptr, &certificates));
  std::size_t different = 0;
  riscontro::leggiConti(connection, {1, kYear}, conversions, [&](const riscontro::Conto& account) {
    const auto own = certificates.pairs.togli(account.certificato);
    if (!own || !lettura::diverse(*own, account.certificato).empty()) ++different;
  });
  return different;
}

int measure(const std::string& archive, const std::string& path, int payees) {
  const auto connection = SqliteConnection::open(archive);
  test::ScriptedFrontEnd screen;
  const UtilitaItaliana conversions(screen, "/tmp");
  const std::string size = grouped(payees);
  const Pair check = best(
      kRounds,
      [&] {
        File file(path);
        static_cast<void>(lettura::esamina(file));
      },
      [&] { static_cast<void>(std::system(("sha256sum '" + path + "' >/dev/null").c_str())); });
  print({.name = "validate, " + size + " payees",
         .ours = check.ours,
         .limit = check.limit,
         .limitName = "sha256sum",
         .promise = "ratio:1.0"});
  const Pair bytes = best(
      1,
      [&] {
        File file(path);
        static_cast<void>(lettura::esamina(file));
      },
      [&] { readBytes(path); });
  print({.name = "validate, " + size + " payees",
         .ours = bytes.ours,
         .limit = bytes.limit,
         .limitName = "reading the bytes"});
  std::size_t found = 0;
  const Pair verify = best(
      kRounds, [&] { found = different(*connection, conversions, path); }, [&] { readRows(*connection); });
  print({.name = "verify, " + size + " payees",
         .ours = verify.ours,
         .limit = verify.limit,
         .limitName = "the bare rows"});
  if (found == 0) return 0;
  std::fprintf(stderr, "%zu certificates differ from the accounts\n", found);
  return 1;
}

}  // namespace
}  // namespace cu::bench

// Arguments: the archive, its telematic file of 2016, the number of payees.
int main(int argc, char** argv) {
  if (argc != 4) return 2;
  return cu::bench::measure(argv[1], argv[2], std::atoi(argv[3]));
}
