// A whole `cuctl make` whose prints are recorded, from its start to its end, compared with its statements and
// bytes on the engine's bare C API. Each run has a fresh copy of the same database and a process of its own;
// the two sides alternate, and the pair with the median ratio is printed. Arguments: the number of payees,
// and how many pairs.

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "archive/archivio.h"
#include "child_run.h"
#include "corsa_nuda.h"
#include "misura.h"
#include "sqlite/sqlite_connection.h"

namespace cu::bench {
namespace {

std::string self() { return std::filesystem::read_symlink("/proc/self/exe").string(); }

void writeProfile(const Folder& folder) {
  std::filesystem::create_directory(folder.file("cu"));
  std::ofstream(folder.file("profilo.toml"))
      << "[session]\nuser = 12\ncompany = 1\nbranch = 1\ntitle = \"Quadrivio\"\nhelp_folder = \".\"\n"
         "processes = [ { name = \"Wizard stampa\", function = 247 } ]\n[database]\nurl = "
         "\"sqlite:archivio.db\"\n[currency]\ndecimals = true\nsymbol = \"€\"\ndecimal = \",\"\nthousands = "
         "\".\"\n[folders]\ndocuments = \".\"\nsettings = \"impostazioni.toml\"\n[printing]\nengine = "
         "\"record\"\n";
}

void fresh(const Folder& folder, const std::string& name) {
  for (const char* beside : {"", "-wal", "-shm"}) std::filesystem::remove(folder.file(name + beside));
  std::filesystem::copy_file(folder.file("modello.db"), folder.file(name));
  ::sync();
}

Cost make(const Folder& folder) {
  fresh(folder, "archivio.db");
  return run({(std::filesystem::path(self()).parent_path() / "cuctl").string(), "make", "--profile",
              folder.file("profilo.toml"), "--year", "2016", "--yes", "--folder", folder.file("cu")});
}

std::string writtenFile(const Folder& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder.file("cu"))) {
    if (entry.path().extension() == ".cur") return entry.path().string();
  }
  throw std::runtime_error("no file");
}

struct Bare {
  Spent together;
  Spent apart;
};

Bare bare(const Folder& folder) {
  fresh(folder, "nudo.db");
  FILE* const pipe = popen((self() + " nuda " + folder.path() + " " + writtenFile(folder)).c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("popen");
  Bare spent;
  const int read = std::fscanf(pipe, "%lf %lf %lf %lf", &spent.together.elapsed, &spent.together.processor,
                               &spent.apart.elapsed, &spent.apart.processor);
  if (pclose(pipe) != 0 || read != 4) throw std::runtime_error("the bare side has failed");
  return spent;
}

// In a process of its own.
void bareSide(const Folder& folder, const std::string& file) {
  CorsaNuda run(folder.file("nudo.db"), folder.file("archivio.db"), file);
  const Spent together = run.run(folder.file("nudo.cur"));
  const Spent apart = run.apart();
  if (run.printed() == 0 || run.printed() != run.recorded()) throw std::runtime_error("not the same lines");
  std::printf("%.9g %.9g %.9g %.9g\n", together.elapsed, together.processor, apart.elapsed, apart.processor);
}

Pair middle(std::vector<Pair> pairs) {
  const auto at = pairs.begin() + static_cast<std::ptrdiff_t>(pairs.size() / 2);
  std::nth_element(pairs.begin(), at, pairs.end(),
                   [](const Pair& a, const Pair& b) { return a.ours / a.limit < b.ours / b.limit; });
  return *at;
}

void measure(int payees, int rounds) {
  const ScratchFolder folder("cu_make_misure");
  creaArchivio(*SqliteConnection::create(folder.file("modello.db")), ContenutoArchivio::Sintetico,
               {.percipienti = payees, .primoAnno = 2016, .ultimoAnno = 2016, .seme = 1});
  writeProfile(folder);
  std::array<std::vector<Pair>, 4> pairs;
  double memory = 1e9;
  for (int round = 0; round < rounds; ++round) {
    const Cost ours = make(folder);
    const Bare limit = bare(folder);
    pairs[0].push_back({ours.seconds, limit.together.elapsed});
    pairs[1].push_back({ours.processor, limit.together.processor});
    pairs[2].push_back({ours.seconds, limit.apart.elapsed});
    pairs[3].push_back({ours.processor, limit.apart.processor});
    memory = std::min(memory, ours.mebibytes);
  }
  const std::string at = ", " + grouped(payees) + " payees";
  constexpr const char* kTogether = "all its statements and the bytes, bare";
  constexpr const char* kApart = "the same, each statement of a print in a transaction of its own";
  const auto row = [&](const char* name, const std::vector<Pair>& of, const char* limit, const char* promise,
                       const char* series) {
    const Pair pair = middle(of);
    print({name + at, pair.ours, pair.limit, limit, promise, "s", series, static_cast<double>(payees)});
  };
  constexpr const char* kWhole = "cuctl make, whole";
  constexpr const char* kProcessor = "processor time of cuctl make, whole";
  row(kWhole, pairs[0], kTogether, "", kWhole);
  row(kWhole, pairs[2], kApart, payees == 100000 ? "ratio:1.1" : "", "");
  row(kProcessor, pairs[1], kTogether, "", "");
  row(kProcessor, pairs[3], kApart, "", "");
  print({"memory of cuctl make, whole" + at, memory, 0, "", payees == 100000 ? "value:70" : "", "MiB"});
}

}  // namespace
}  // namespace cu::bench

int main(int count, char** arguments) {
  using namespace cu::bench;
  if (count == 4 && std::string(arguments[1]) == "nuda") {
    bareSide(Folder(arguments[2]), arguments[3]);
    return 0;
  }
  if (count < 2) return 2;
  measure(std::atoi(arguments[1]), count > 2 ? std::atoi(arguments[2]) : 5);
  return 0;
}
