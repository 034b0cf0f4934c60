// The files of an import: none is counted twice, and none that is read is written.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kSenzaNumeri =
    "CodicePercipiente;Causale;DataPagamento;Onorario;RitenutaAcconto\n"
    "P042;A;10/10/2017;1000,00;200,00\n";

class FileImportati : public ::testing::Test {
 protected:
  FileImportati() : file_(posto_.cartella().write("compensi.csv", kSenzaNumeri)) {}

  Esecuzione comando(std::vector<std::string> argomenti) {
    argomenti.insert(argomenti.begin(), "import");
    argomenti.insert(argomenti.end(), {"--database", posto_.indirizzo()});
    if (posto_.databaseDelServer() != nullptr)
      argomenti.insert(argomenti.end(), {"--password-env", kVariabilePassword});
    return posto_.cuctl(argomenti);
  }
  Esecuzione importa(std::vector<std::string> altri) {
    altri.insert(altri.begin(), {"payments", file_, "--company", "1"});
    return comando(std::move(altri));
  }

  Posto posto_;
  std::string file_;
};

TEST_F(FileImportati, AFileThatIsNamedTwiceCountsOnce) {
  const std::string copia = posto_.cartella().write("copia.csv", kSenzaNumeri);
  const Esecuzione esito = importa({file_, copia});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_THAT(esito.uscita, StartsWith("Prova: 1 nuov"));
  EXPECT_THAT(esito.errori,
              HasSubstr("copia.csv: il file è indicato due volte: le sue righe si contano una volta "
                        "sola (F08)."));
}

TEST_F(FileImportati, AFileThatWasLeftOutIsNoneThatWasImported) {
  const std::string vuoto = posto_.cartella().write("vuoto.csv", "");
  const Esecuzione prima = importa({vuoto, "--skip-bad-files", "--apply"});
  ASSERT_EQ(prima.codice, 0) << prima.errori;
  EXPECT_THAT(prima.errori, HasSubstr("vuoto.csv"));
  const Esecuzione storico = comando({"history", "--json"});
  EXPECT_THAT(storico.uscita, HasSubstr("compensi.csv"));
  EXPECT_THAT(storico.uscita, ::testing::Not(HasSubstr("vuoto.csv")));
  const Esecuzione dopo = importa({vuoto, "--skip-bad-files"});
  EXPECT_THAT(dopo.errori, HasSubstr("compensi.csv: il file è già stato importato (F08)."));
  EXPECT_THAT(dopo.errori, ::testing::Not(HasSubstr("vuoto.csv: il file è già stato importato (F08).")));
}

TEST_F(FileImportati, NothingThatIsReadIsWritten) {
  const Esecuzione tabella = importa({"--report", file_});
  EXPECT_EQ(tabella.codice, 2);
  EXPECT_EQ(tabella.errori, "--report: " + file_ + " è uno dei file da importare\n");
  EXPECT_EQ(posto_.cartella().read("compensi.csv"), kSenzaNumeri);
}

// A file of its own, also where the other tests use a server.
TEST_F(FileImportati, AnExportDoesNotReplaceTheDatabase) {
  const std::string database = posto_.cartella() / "archivio.csv";
  ASSERT_EQ(posto_.cuctl({"create", "--database", "sqlite:" + database, "--demo"}).codice, 0);
  const std::string prima = posto_.cartella().read("archivio.csv");
  const Esecuzione esportati = posto_.cuctl(
      {"export", "payments", "--company", "1", "--database", "sqlite:" + database, "--output", database});
  EXPECT_EQ(esportati.codice, 2);
  EXPECT_EQ(esportati.errori, "--output: " + database + " è il database\n");
  EXPECT_EQ(posto_.cartella().read("archivio.csv"), prima);
}

}  // namespace
}  // namespace cu::test
