// A run at one size, phase by phase, compared with the same statements on the engine's bare C API and a
// hand-written loop that composes the lines as the rows arrive. Each side runs in a process of its own, as a
// user's run does, so that its memory can be measured. Arguments: the number of payees, and at most how many
// rounds.

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "archive/archivio.h"
#include "bare_database.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "corsa_a_mano.h"
#include "misura.h"
#include "one_session.h"
#include "sqlite/sqlite_connection.h"
#include "suite/file_system.h"
#include "suite/utilita.h"
#include "support/fake_session.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"
#include "telematic/controlli.h"
#include "telematic/cu_ele.h"
#include "telematic/query_cu.h"
#include "wizard/griglia_compensi.h"
#include "worklist/compensi.h"
#include "worklist/tabella_lavoro.h"

namespace cu::bench {
namespace {

// What a side reports to the process that compares them: names and numbers.
using Measures = std::map<std::string, double>;

void tell(const char* name, double value) { std::printf("%s %.9g\n", name, value); }

// ---- the bare side

std::string part(const std::string& path, off_t from, std::size_t length) {
  std::string bytes(length, '\0');
  const int fd = ::open(path.c_str(), O_RDONLY);
  const bool read = ::pread(fd, bytes.data(), length, from) == static_cast<ssize_t>(length);
  ::close(fd);
  if (!read) throw std::runtime_error("cannot read " + path);
  return bytes;
}

// Copies the bytes of a file, in the same blocks, to another one; only the writing is measured.
double bareWrite(const std::string& from, const std::string& to) {
  const int source = ::open(from.c_str(), O_RDONLY);
  std::string block(kBlock, '\0');
  double spent = 0;
  int target = -1;
  spent += seconds([&] { target = ::open(to.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0644); });
  for (ssize_t n = 0; (n = ::read(source, block.data(), block.size())) > 0;) {
    spent += seconds([&] {
      if (::write(target, block.data(), static_cast<std::size_t>(n)) != n) throw std::runtime_error("write");
    });
  }
  spent += seconds([&] { ::close(target); });
  ::close(source);
  return spent;
}

struct Texts {
  std::string drop = fnEliminaTabella(kTable);
  std::string create = fnCreaTabella(kTable);
  std::string fill;
};

Texts textsOfLoad(const UtilitaSuite& utilita) {
  Texts texts;
  Filtri filtri;
  filtri.anno = "2016";
  texts.fill = "INSERT INTO " + kTable + " " + fnSelectCompensi(filtri, 1, utilita);
  return texts;
}

void bareSide(const Folder& folder) {
  test::ScriptedFrontEnd screen;
  const UtilitaItaliana utilita(screen, "/tmp");
  const Texts texts = textsOfLoad(utilita);
  BareDatabase bare(folder.file("archivio.db"));
  const std::string fill = plainOne(bare, texts.fill);
  const std::string create = plainOne(bare, texts.create);
  tell("load", seconds([&] {
         bare.execute("DROP TABLE " + kTable);
         bare.execute(create);
         bare.execute(fill);
         BareStatement(bare, "SELECT * FROM " + kTable).drain();
       }));
  tell("checks", seconds([&] {
         BareStatement(bare, plainOne(bare, Controlli::fnQueryAzienda(1))).drain();
         BareStatement(bare, plainOne(bare, Controlli::fnQueryPercipienti(kTable))).drain();
       }));
  const std::string ours = folder.file("nostro.cur");
  const auto size = static_cast<off_t>(std::filesystem::file_size(ours));
  const std::string first = part(ours, 0, 2 * kLine);
  const std::string last = part(ours, size - static_cast<off_t>(kLine), kLine);
  tell("loop", seconds([&] { loop(bare, folder.file("nudo.cur"), first, last); }));
  tell("peak", peakMiB());
  tell("query", seconds([&] { BareStatement(bare, mainQuery(bare)).drain(); }));

  std::vector<std::array<std::int64_t, 4>> keys;
  {
    const BareStatement rows(bare, "SELECT Anno, IDAnagrafica, IDAzienda, IDCausalePagamento FROM " + kTable);
    while (rows.step()) {
      auto& key = keys.emplace_back();
      for (int i = 0; i < 4; ++i) key[static_cast<std::size_t>(i)] = sqlite3_column_int64(rows.get(), i);
    }
  }
  tell("modules", seconds([&] {
         bare.execute("BEGIN");
         {
           const BareStatement modules(bare, modulesQuery());
           for (const auto& key : keys) {
             for (int i = 0; i < 4; ++i)
               sqlite3_bind_int64(modules.get(), i + 1, key[static_cast<std::size_t>(i)]);
             modules.drain();
           }
         }
         bare.execute("COMMIT");
       }));
  tell("write", bareWrite(ours, folder.file("nudo2.cur")));
}

// ---- the product's side

void ourSide(const Folder& folder) {
  auto connection = SqliteConnection::open(folder.file("archivio.db"));
  OneConnection database(*connection);
  test::ScriptedFrontEnd screen;
  UtilitaItaliana utilita(screen, "/tmp");
  FileSystemPiattaforma files;
  const test::FixedClock clock(2017, 3, 5);
  OneSession session(database);
  Form form(screen, "frmWizard");
  Grid grid(form, "grdCompensi", nullptr);
  GrigliaCompensi view(grid);
  Compensi compensi(utilita, screen);
  compensi.setVista(view);
  Filtri filtri;
  filtri.anno = "2016";
  tell("load", seconds([&] { compensi.sbCreaTabellaLavoro(ambitoDi(session), filtri); }));
  tell("lines", static_cast<double>(compensi.rsCompensi().RecordCount()));

  std::size_t missing = 0;
  tell("checks", seconds([&] {
         Controlli controlli(*connection, utilita);
         controlli.esegui({"01/03/2017", false, "", ""}, 1, compensi.tabella());
         missing = controlli.mancanti().size();
       }));
  if (missing != 0) throw std::runtime_error("the checks have found something");

  DatiFornitura dati;
  dati.CodiceFiscaleAzienda = kCompany;
  tell("run", seconds([&] {
         CUEle ele({.database = database,
                    .utilita = utilita,
                    .files = files,
                    .avanzamento = screen,
                    .visore = screen,
                    .clock = clock,
                    .tabella = compensi.tabella(),
                    .anno = 2016});
         ele.setFilePathName(folder.file("nostro.cur"));
         ele.setDati(dati);
         if (!ele.Create(kSignature)) throw std::runtime_error("no file");
       }));
  tell("peak", peakMiB());
  const std::string query = telematico::queryPrincipale(compensi.tabella());
  tell("query", seconds([&] {
         RowStore rows;
         connection->Query(query, rows);
       }));
}

// ---- both

std::string self() { return std::filesystem::read_symlink("/proc/self/exe").string(); }

Measures sideOf(const std::string& side, const std::string& folder) {
  FILE* const pipe = popen((self() + " " + side + " " + folder).c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("popen");
  Measures measures;
  char name[32];
  double value = 0;
  while (std::fscanf(pipe, "%31s %lf", name, &value) == 2) measures[name] = value;
  if (pclose(pipe) != 0) throw std::runtime_error("the side has failed: " + side);
  return measures;
}

void keepLeast(Measures& least, const Measures& now) {
  for (const auto& [name, value] : now) {
    const auto [entry, fresh] = least.try_emplace(name, value);
    if (!fresh) entry->second = std::min(entry->second, value);
  }
}

void sameBytes(const Folder& folder) {
  const std::string command = "cmp " + folder.file("nostro.cur") + " " + folder.file("nudo.cur");
  if (std::system(command.c_str()) != 0) throw std::runtime_error("the two sides' files differ");
}

// `atMost` limits the rounds of short runs, which otherwise are repeated more often: they are more disturbed,
// and the growth is computed from them.
void measure(int payees, int atMost) {
  const ScratchFolder folder("cu_corsa_misure");
  if (std::system((self() + " archivio " + folder.path() + " " + std::to_string(payees)).c_str()) != 0) {
    throw std::runtime_error("no database");
  }
  const int rounds = std::min(atMost, payees > 100000 ? 4 : payees > 10000 ? 8 : 24);
  Measures ours;
  Measures bare;
  for (int round = 0; round < rounds; ++round) {
    keepLeast(ours, sideOf("nostra", folder.path()));
    keepLeast(bare, sideOf("nuda", folder.path()));
    if (round == 0) sameBytes(folder);
  }
  // The minimum of each part, for both sides.
  const double whole = ours["load"] + ours["checks"] + ours["run"];
  const double statements = bare["load"] + bare["checks"] + bare["query"] + bare["modules"];
  const double size = payees;
  const std::string at = ", " + grouped(payees) + " payees";
  print({"load of the work table" + at, ours["load"], bare["load"], "the same statements, bare", "", "s",
         "load of the work table", size});
  print({"checks" + at, ours["checks"], bare["checks"], "the same queries, bare", "", "s", "checks", size});
  print(
      {"main query" + at, ours["query"], bare["query"], "the same query, bare", "", "s", "main query", size});
  print({"main query and run to the file" + at, ours["run"], bare["loop"],
         "bare loop, lines composed by hand", "", "s", "main query and run to the file", size, true});
  print({"load, checks and run" + at, whole, statements + bare["write"],
         "the same statements and the bytes, bare", payees == 100000 ? "ratio:1.2" : "", "s",
         "load, checks and run", size, true});
  print({"memory of load, checks and run" + at, ours["peak"], bare["peak"], "bare loop", "", "MiB",
         "memory of load, checks and run", size});
}

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) {
  using namespace cu::bench;
  if (argc < 2) return 2;
  const std::string what = argv[1];
  if (const int payees = std::atoi(argv[1]); payees > 0) {
    measure(payees, argc > 2 ? std::atoi(argv[2]) : 1000);
  } else if (argc == 2) {
    return 2;
  } else if (what == "archivio") {
    const auto connection = cu::SqliteConnection::create(Folder(argv[2]).file("archivio.db"));
    creaArchivio(*connection, cu::ContenutoArchivio::Sintetico,
                 {.percipienti = std::atoi(argv[3]), .primoAnno = 2016, .ultimoAnno = 2016, .seme = 1});
  } else if (what == "nostra") {
    ourSide(Folder(argv[2]));
  } else {
    bareSide(Folder(argv[2]));
  }
  return 0;
}
