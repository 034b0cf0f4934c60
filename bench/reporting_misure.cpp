// Prints from an archive of any size: seconds and the process's highest memory.
//   reporting_misure each N       N forms, each in a file of its own, as the wizard prints line by line
//   reporting_misure one N        N forms in one file
//   reporting_misure accounts N   the individual accounts of about N lines
//   reporting_misure table N      the same as a table for a spreadsheet

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "database/archivio.h"
#include "database/sqlite/sqlite_connection.h"
#include "misura.h"
#include "reporting/pdf_reports.h"
#include "suite/file_system.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"

namespace {

using namespace cu;

constexpr const char* kDelete = "DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342";
constexpr const char* kFormFormula =
    "{__ViewName.Anno} = 2016 AND {__ViewName.IDAzienda} = 1 AND {__ViewName.IDUtente} = 12";
constexpr const char* kAccountsFormula =
    "{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";

double peakMiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

std::string insert(const CellView* key) {
  return "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, "
         "Path3) VALUES "
         "(" +
         key[0].toText() + "," + key[1].toText() + ",12,342,1,1,0,'20170331')";
}

struct Print {
  Connection& connection;
  PdfReports& reports;
  void operator()(const std::string& report, int type, int number, const std::string& formula,
                  const std::string& path, int code) const {
    const auto engine = reports.create();
    engine->setSession(12, 1, 1);
    engine->setConnection(connection);
    engine->setObjectType(type);
    engine->setSelectionFormula(formula);
    engine->setReportFile(report);
    engine->setDefinition(number);
    engine->setOutputMode(0);
    engine->setOutputPath(path);
    engine->setOutputFormat(0);
    engine->run(code);
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string what = argv[1];
  const int lines = std::atoi(argv[2]);
  const bool accounts = what == "accounts" || what == "table";
  const bench::ScratchFolder folder("cu_reporting_misure");
  auto connection = SqliteConnection::create(folder.file("archivio.db"));
  creaArchivio(*connection, ContenutoArchivio::Sintetico,
               {.percipienti = accounts ? lines / 4 : lines,
                .primoAnno = accounts ? 2014 : 2016,
                .ultimoAnno = accounts ? 2017 : 2016,
                .seme = 1});
  test::ScriptedFrontEnd screen;
  FileSystemPiattaforma files;
  const test::FixedClock clock(2017, 3, 5);
  PdfReports reports({screen, files, clock, "misura"});
  const Print print{*connection, reports};
  const double before = peakMiB();

  RowStore keys;
  connection->Query("SELECT IDAnagrafica, IDCausalePagamento FROM ContoIndividuale", keys);
  const double seconds = bench::seconds([&] {
    CellView key[2];
    if (what == "each") {
      for (std::size_t i = 0; i < static_cast<std::size_t>(lines) && i < keys.size(); ++i) {
        keys.read(i, key);
        connection->Execute(kDelete);
        connection->Execute(insert(key));
        print("CertificazioneUnica.rpt", 342, 3421, kFormFormula, folder.file(std::to_string(i) + ".cur"), 3);
      }
    } else if (what == "one") {
      for (std::size_t i = 0; i < static_cast<std::size_t>(lines) && i < keys.size(); ++i) {
        keys.read(i, key);
        connection->Execute(insert(key));
      }
      print("CertificazioneUnica.rpt", 342, 3421, kFormFormula, folder.file("tutte.cur"), 3);
    } else if (what == "accounts") {
      print("ContoIndividuale.rpt", 246, 2461, kAccountsFormula, folder.file("conti.pdf"), 3);
    } else {
      print("ContoIndividuale.rpt", 246, 2461, kAccountsFormula, folder.file("conti.xlsx"), 0);
    }
  });
  const std::string name = what + ", " +
                           std::to_string(accounts ? keys.size() : static_cast<std::size_t>(lines)) +
                           (accounts ? " lines" : " forms");
  std::printf("%-32s %10.2f s %10.1f MiB at most (%.1f before)\n", name.c_str(), seconds, peakMiB(), before);
}
