// An office's week: the files of many companies in one run, several at a time and one after the other; the
// same run once more; the board. Each in a process of its own, on a fresh copy of the database.
//   aziende_misure COMPANIES PAYEES

#include <cstdlib>

#include "apps/comune/connessioni.h"
#include "archive/archivio.h"
#include "child_run.h"
#include "misura.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 3;

class Office {
 public:
  Office(int companies, int payees) : folder_("cu_aziende_misure") {
    Profilo::Database database;
    database.origine = folder_.file("modello.db");
    creaArchivio(
        *creaConnessione(database), ContenutoArchivio::Sintetico,
        {.percipienti = payees, .primoAnno = 2017, .ultimoAnno = 2017, .seme = 1, .aziende = companies});
    for (const char* engine : {"record", "pdf"}) {
      std::ofstream(folder_.file(std::string(engine) + ".toml"))
          << "[session]\nuser = 12\ncompany = 1\nbranch = 1\ntitle = \"Quadrivio\"\nhelp_folder = \".\"\n"
             "processes = [ { name = \"Wizard stampa\", function = 247 } ]\ntoday = 2018-03-05T10:30:00\n"
             "[database]\nurl = \"sqlite:studio.db\"\n[currency]\ndecimals = true\nsymbol = \"€\"\ndecimal = "
             "\",\"\nthousands = \".\"\n[folders]\ndocuments = \"documenti\"\nsettings = "
             "\"impostazioni.toml\"\n"
             "[printing]\nengine = \""
          << engine << "\"\n";
    }
  }

  // As before any run.
  void renew() const {
    for (const char* name : {"studio.db", "studio.db-wal", "studio.db-shm", "cu"}) {
      std::filesystem::remove_all(folder_.file(name));
    }
    std::filesystem::copy_file(folder_.file("modello.db"), folder_.file("studio.db"));
  }
  double make(const char* engine, Arguments more) const {
    Arguments arguments = {
        program(),         "make", "--profile",       folder_.file(std::string(engine) + ".toml"),
        "--year",          "2017", "--all-companies", "--folder",
        folder_.file("cu")};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return run(arguments).seconds;
  }
  double board() const {
    return run({program(), "status", "--profile", folder_.file("record.toml"), "--all-companies", "--json"})
        .seconds;
  }

 private:
  static std::string program() {
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "cuctl").string();
  }
  ScratchFolder folder_;
};

// All cores against one, measured alternately.
Pair runs(const Office& office, const char* engine) {
  Pair pair{1e9, 1e9};
  for (int i = 0; i < kRounds; ++i) {
    office.renew();
    pair.limit = std::min(pair.limit, office.make(engine, {"--jobs", "1"}));
    office.renew();
    pair.ours = std::min(pair.ours, office.make(engine, {}));
  }
  return pair;
}

void measure(int companies, int payees) {
  const std::string of = ", " + grouped(companies) + " companies of " + grouped(payees) + " payees";
  const Office office(companies, payees);
  constexpr const char* kLimit = "the same, one company after the other";
  const Pair recorded = runs(office, "record");
  print({"cuctl make" + of, recorded.ours, recorded.limit, kLimit});
  double again = 1e9;
  double board = 1e9;
  for (int i = 0; i < kRounds; ++i) {
    again = std::min(again, office.make("record", {"--only-missing"}));
    board = std::min(board, office.board());
  }
  print({"the same once more, --only-missing", again});
  print({"cuctl status --all-companies" + of, board});
  const Pair printed = runs(office, "pdf");
  print({"cuctl make with its forms" + of, printed.ours, printed.limit, kLimit});
}

}  // namespace
}  // namespace cu::bench

int main(int count, char** arguments) {
  if (count != 3) return 2;
  cu::bench::measure(std::atoi(arguments[1]), std::atoi(arguments[2]));
}
