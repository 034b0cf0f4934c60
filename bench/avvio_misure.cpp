// The start of both programs on the demonstration database, from the creation of the process: cuctl until it
// has opened the wizard and ended, cuwizard until its first window is drawn.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>

#include "apps/comune/connessioni.h"
#include "archive/archivio.h"
#include "child_run.h"
#include "misura.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 15;

// The median of the processor's time, measured alternately: of so short a run the waiting is mostly the
// machine's. `before` prepares each of our runs.
Pair work(const Arguments& ours, const Arguments& limit, const std::function<void()>& before = {}) {
  constexpr int kRuns = 101;
  std::vector<double> a;
  std::vector<double> b;
  for (int i = 0; i < kRuns; ++i) {
    b.push_back(run(limit).processor);
    if (before) before();
    a.push_back(run(ours).processor);
  }
  return {median(a), median(b)};
}

double start(const std::string& command) {
  int result = 0;
  const double spent = seconds([&] { result = std::system(command.c_str()); });
  if (result != 0) throw std::runtime_error("has failed: " + command);
  return spent;
}

// The median, measured alternately: the time that the user waits.
Pair starts(const std::string& ours, const std::string& limit) {
  std::vector<double> a;
  std::vector<double> b;
  for (int i = 0; i < kRounds; ++i) {
    b.push_back(start(limit));
    a.push_back(start(ours));
  }
  return {median(a), median(b)};
}

void measure() {
  const ScratchFolder folder("cu_avvio_misure");
  Profilo::Database database;
  database.origine = folder.file("demo.db");
  creaArchivio(*creaConnessione(database), ContenutoArchivio::Dimostrativo);
  const std::string profile = folder.file("profilo.toml");
  std::ofstream(profile)
      << "[session]\nuser = 12\ncompany = 1\nbranch = 1\ntitle = \"Quadrivio\"\nhelp_folder = \".\"\n"
         "processes = [ { name = \"Wizard stampa\", function = 247 } ]\n[database]\nurl = "
         "\"sqlite:demo.db\"\n"
         "[currency]\ndecimals = true\nsymbol = \"€\"\ndecimal = \",\"\nthousands = \".\"\n[folders]\n"
         "documents = \".\"\nsettings = \"impostazioni.toml\"\n";
  const auto programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  const auto program = [&](const char* name) { return (programs / name).string(); };

  const std::string bare = program("librerie_nude");
  const char* const limitName = "a program with the same libraries";
  const std::string table = folder.file("modello.csv");
  const Pair small = work({program("cuctl"), "template", "payees", table}, {bare, ""},
                          [&] { std::filesystem::remove(table); });
  print({"cuctl, processor time of a small command", small.ours, small.limit, limitName, "value:0.006"});
  const Pair help = work({program("cuctl"), "--help"}, {bare, ""});
  print({"cuctl --help, processor time", help.ours, help.limit, limitName, "value:0.006"});
  const Pair version =
      work({program("cuctl"), "--version"}, {bare, CU_LIBRARY_CRYPTO, CU_LIBRARY_EXPAT, CU_LIBRARY_UTF8PROC,
                                             CU_LIBRARY_XLSXWRITER, CU_LIBRARY_ZIP});
  print({"cuctl --version, processor time", version.ours, version.limit, limitName, "value:0.006"});
  const Pair cuctl = work({program("cuctl"), "drive", "--profile", profile},
                          {program("database_nudo"), folder.file("demo.db")});
  print({"cuctl drive, processor time, opened and ended", cuctl.ours, cuctl.limit,
         "a program that only opens the database", "value:0.006"});

  const std::string drawn = "LD_PRELOAD=" + program("libprimo_disegno.so") + " exec ";
  const Pair window = starts(drawn + program("cuwizard") + " --profile " + profile + " 2>/dev/null",
                             drawn + program("finestra_nuda") + " 2>/dev/null");
  print({"cuwizard, first window", window.ours, window.limit, "a program with an empty window", "value:0.3"});
}

}  // namespace
}  // namespace cu::bench

int main() {
  if (std::getenv("DISPLAY") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  cu::bench::measure();
}
