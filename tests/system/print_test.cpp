// Prints from outside: cuctl print, and the forms of cuctl make.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Argomenti = std::vector<std::string>;

constexpr const char* kConti = "ContoIndividuale.rpt";
constexpr const char* kSintetico = "CertificazioneCompensiSintetico.rpt";
constexpr const char* kAnalitico = "CertificazioneCompensiAnalitico.rpt";

class Print : public ::testing::Test {
 protected:
  Esecuzione stampa(const char* report, const Argomenti& altri = {}) {
    Argomenti argomenti = {"print", "--profile", posto.profilo(), "--report",
                           report,  "--output",  "stampa.pdf"};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return posto.cuctl(argomenti);
  }
  std::string registrata(const char* report) const {
    return "Stampa registrata, non impaginata: " + (posto.cartella() / "stampa.pdf") + " (" + report + ")\n";
  }
  std::string traccia() const { return posto.cartella().read("trace.sql"); }
  Posto posto;
};

TEST_F(Print, TheAccountsTakeARangeOfYearsPayeesAndReasons) {
  const Esecuzione esito = stampa(kConti, {"--year", "2016", "--to-year", "2014", "--from-payee", "P003",
                                           "--to-payee", "P001", "--from-reason", "A", "--to-reason", "Z"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_EQ(esito.uscita, registrata(kConti));
  EXPECT_EQ(esito.errori, "");
  EXPECT_THAT(traccia(),
              HasSubstr("FROM RepContoIndividuale WHERE  IDAzienda =  1 And Anno >= 2014 AND Anno <=  "
                        "2016 And  CodicePercipiente >= 'P001' AND CodicePercipiente<= 'P003' And  "
                        "Codice >= 'A' AND Codice<='Z'"));
}

TEST_F(Print, TheAccountsNeedNoYear) {
  EXPECT_EQ(stampa(kConti).uscita, registrata(kConti));
  EXPECT_EQ(stampa(kConti, {"--to-year", "2015"}).codice, 0);
  EXPECT_THAT(traccia(), HasSubstr(" And Anno <= 2015"));
}

TEST_F(Print, OnlyAnEarlierPrintIsReplaced) {
  const std::string prima("SQLite format 3\0", 16);
  posto.cartella().write("copia.db", prima);
  const auto stampaIn = [&](const std::string& file) {
    return posto.cuctl({"print", "--profile", posto.profilo(), "--report", kConti, "--output", file});
  };
  const Esecuzione rifiutata = stampaIn("copia.db");
  EXPECT_EQ(rifiutata.codice, 1);
  EXPECT_EQ(rifiutata.uscita, "");
  EXPECT_EQ(rifiutata.errori, "Il file «" + (posto.cartella() / "copia.db") +
                                  "» esiste già e non è un PDF: non viene sostituito.\n");
  EXPECT_TRUE(posto.cartella().read("copia.db") == prima);
  posto.cartella().write("appunti.pdf", "Da non perdere\n");
  EXPECT_EQ(stampaIn("appunti").codice, 1);
  EXPECT_THAT(stampaIn(".").errori,
              HasSubstr("/.» è una cartella: per la stampa serve il nome di un file.\n"));
  posto.cartella().write("vuoto.pdf", "");
  EXPECT_EQ(stampaIn("vuoto.pdf").codice, 0);
  posto.cartella().write("di_prima.pdf", "%PDF-1.4\n");
  EXPECT_EQ(stampaIn("di_prima").codice, 0);
}

TEST_F(Print, TheCertificatesAreOfOneYear) {
  EXPECT_EQ(stampa(kSintetico, {"--year", "2016"}).uscita, registrata(kSintetico));
  EXPECT_EQ(stampa(kAnalitico, {"--year", "2016"}).uscita, registrata(kAnalitico));
  EXPECT_THAT(traccia(), HasSubstr("FROM RepCompenso WHERE  IDAzienda =  1 And Year(DataPagamento) = 2016"));
  const Esecuzione senza = stampa(kSintetico);
  EXPECT_EQ(senza.codice, 1);
  EXPECT_EQ(senza.errori, "Per il tipo di stampa selezionato il campo anno è obbligatorio.\n");
  EXPECT_EQ(senza.uscita, "");
}

TEST_F(Print, ItBringsItsOwnProcessList) {
  posto.imposta("session.processes", "[ { name = \"Altro\", function = 1 } ]");
  EXPECT_EQ(stampa(kConti).codice, 0);
}

TEST_F(Print, NothingToPrintIsRefusedInWords) {
  const Esecuzione vuota = stampa(kConti, {"--from-payee", "ZZY", "--to-payee", "ZZZ"});
  EXPECT_EQ(vuota.codice, 1);
  EXPECT_EQ(vuota.errori, "Nessun elemento da stampare\n");
  EXPECT_EQ(vuota.uscita, "");
  const Esecuzione anno = stampa(kSintetico, {"--year", "2013"});
  EXPECT_EQ(anno.codice, 1);
  EXPECT_EQ(anno.errori, "Nessun conto individuale per l'anno 2013.\n");
}

TEST_F(Print, ARefusedStartAndAMissingDatabaseAreTold) {
  posto.imposta("database.url", "\"sqlite:manca.db\"");
  const Esecuzione senza = stampa(kConti);
  EXPECT_EQ(senza.codice, 1);
  EXPECT_THAT(senza.errori, HasSubstr("manca.db"));
}

TEST_F(Print, WrongUsageEndsWithTwo) {
  struct {
    Argomenti argomenti;
    const char* detto;
  } const casi[] = {
      {{"print", "--profile", "p.toml", "--output", "x.pdf"}, "cuctl: --report: manca"},
      {{"print", "--profile", "p.toml", "--report", kConti}, "cuctl: --output: manca"},
      {{"print", "--profile", "p.toml", "--report", "Altro.rpt", "--output", "x.pdf"},
       "cuctl: --report: atteso ContoIndividuale.rpt, CertificazioneCompensiSintetico.rpt o "
       "CertificazioneCompensiAnalitico.rpt"},
      {{"print", "--profile", "p.toml", "--report", kSintetico, "--to-year", "2016", "--output", "x.pdf"},
       "cuctl: --to-year: serve solo con --report ContoIndividuale.rpt"},
      {{"print", "--profile", "p.toml", "--report", kConti, "--year", "16", "--output", "x.pdf"},
       "cuctl: --year: atteso un anno di quattro cifre"},
      {{"print", "--profile", "p.toml", "--report", kConti, "--output", ""}, "cuctl: --output: manca"},
      {{"print", "--profile", "p.toml", "--report", kConti, "--output", "x.pdf"}, "p.toml: "},
  };
  for (const auto& caso : casi) {
    const Esecuzione esito = posto.cuctl(caso.argomenti);
    EXPECT_EQ(esito.codice, 2) << caso.detto;
    EXPECT_THAT(esito.errori, StartsWith(caso.detto));
    EXPECT_EQ(esito.uscita, "");
  }
}

const std::string kElimina = "DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342";

std::string inserisci(const std::string& valori) {
  return "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, "
         "Path3)"
         " VALUES (" +
         valori + ")";
}

class Moduli : public ::testing::Test {
 protected:
  // Sorts the insertions at their positions: a server returns the lines in its own order.
  static void ordinaInserimenti(std::vector<std::string>& testi) {
    const auto inserisce = [](const std::string& testo) { return testo.starts_with("INSERT"); };
    std::vector<std::string> inserimenti;
    std::ranges::copy_if(testi, std::back_inserter(inserimenti), inserisce);
    std::ranges::sort(inserimenti);
    auto prossimo = inserimenti.begin();
    for (std::string& testo : testi) {
      if (inserisce(testo)) testo = *prossimo++;
    }
  }
  // The statements on the table of the lines to print, with the rest of the run as context.
  std::vector<std::string> traccia() const {
    std::vector<std::string> testi;
    std::istringstream righe(posto.cartella().read("trace.sql"));
    for (std::string riga; std::getline(righe, riga);) {
      const std::string testo = nlohmann::json::parse(riga);
      if (testo.find("TabellaRicorsione2") != std::string::npos) testi.push_back(testo);
      if (testo.find("ORDER BY Anag.Anagrafica") != std::string::npos) testi.emplace_back("(file)");
      if (testo.rfind("CREATE TABLE", 0) == 0) testi.emplace_back("(load)");
    }
    if (sulServer()) ordinaInserimenti(testi);
    return testi;
  }
  Esecuzione fai(const Argomenti& altri = {}) {
    Argomenti argomenti = {"make",         "--profile", posto.profilo(), "--year", "2016",
                           "--from-payee", "P001",      "--to-payee",    "P003"};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return posto.cuctl(argomenti);
  }
  Posto posto;
};

TEST_F(Moduli, AFormForEachLineIsTold) {
  const Esecuzione esito = fai();
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  for (const char* nome : {"CUR_04123450233_RSSMRC71C08L781I_P001_2016_A_05032017_1030.cur",
                           "CUR_04123450233_DMCNCL64S30F839G_P002_2016_A_05032017_1030.cur",
                           "CUR_04123450233_DLLGLI83A59F205I_P003_2016_A_05032017_1030.cur",
                           "CUR_04123450233_DLLGLI83A59F205I_P003_2016_M1_05032017_1030.cur"}) {
    EXPECT_THAT(esito.uscita,
                HasSubstr("Stampa registrata, non impaginata: " + (posto.cartella() / "Documenti/") + nome +
                          " (CertificazioneUnica.rpt)\n"));
  }
}

TEST_F(Moduli, PerLineTheTableIsEmptiedBeforeEach) {
  EXPECT_EQ(fai({"--signature-date", "2017-03-01"}).codice, 0);
  EXPECT_THAT(traccia(), ElementsAre("(load)", "(file)", kElimina, kElimina,
                                     inserisci("101,1,12,342,1,1,0,'01/03/2017'"), kElimina,
                                     inserisci("102,1,12,342,1,1,0,'01/03/2017'"), kElimina,
                                     inserisci("103,1,12,342,1,1,0,'01/03/2017'"), kElimina,
                                     inserisci("103,12,12,342,1,1,0,'01/03/2017'"), "(load)", kElimina));
}

TEST_F(Moduli, TogetherTheTableIsEmptiedOnce) {
  EXPECT_EQ(fai({"--cumulative", "--intermediary", "RSSMRA70A01L781K", "--commitment", "2",
                 "--commitment-date", "2017-03-01"})
                .codice,
            0);
  EXPECT_THAT(
      traccia(),
      ElementsAre("(load)", "(file)", kElimina, inserisci("101,1,12,342,1,1,1,'05/03/2017'"),
                  inserisci("102,1,12,342,1,1,1,'05/03/2017'"), inserisci("103,1,12,342,1,1,1,'05/03/2017'"),
                  inserisci("103,12,12,342,1,1,1,'05/03/2017'"), "(load)", kElimina));
}

TEST_F(Moduli, OneFileHoldsThemAllTogether) {
  const Esecuzione esito = fai({"--cumulative"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_THAT(esito.uscita,
              ::testing::EndsWith("Stampa registrata, non impaginata: " +
                                  (posto.cartella() / "Documenti/CUR_04123450233_2016_05032017_1030.cur") +
                                  " (CertificazioneUnica.rpt)\n"));
  EXPECT_THAT(esito.uscita, Not(HasSubstr("P001")));
}

}  // namespace
}  // namespace cu::test
