// The standard streams from outside: closed, full, or shown on a terminal; and files that a run must not
// write.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "system/posto_support.h"
#include "system/terminale_support.h"

namespace cu::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

using Argomenti = std::vector<std::string>;

// Runs cuctl by a shell, with redirections behind its arguments.
Esecuzione rediretto(const Posto& posto, const std::string& argomenti, const std::string& redirezioni) {
  return esegui({"/bin/sh", "-c", "'" CU_CUCTL "' " + argomenti + " " + redirezioni},
                posto.cartella().path());
}

TEST(StandardStreams, AFullDiskUnderStandardOutputIsReported) {
  const Posto posto(Posto::Database::Nessuno);
  for (const char* const argomenti : {"--help", "--version", "make --help"}) {
    const Esecuzione esito = rediretto(posto, argomenti, ">/dev/full");
    EXPECT_EQ(esito.codice, 1) << argomenti;
    EXPECT_EQ(
        esito.errori,
        "Non tutto quello che andava sullo standard output si è potuto scrivere: verificare lo spazio sul "
        "disco.\n")
        << argomenti;
  }
}

TEST(StandardStreams, AReaderThatHasGoneAwayIsNoError) {
  const Posto posto(Posto::Database::Nessuno);
  // The reader ends before the program writes.
  const Esecuzione giusto =
      esegui({"/bin/sh", "-c",
              "(sleep 0.2; '" CU_CUCTL "' --help; echo $? >codice) 2>errori | true; cat "
              "errori codice"},
             posto.cartella().path());
  EXPECT_EQ(giusto.uscita, "0\n");
}

// With standard output closed the first file of a run would get its number, and what is meant for the screen.
TEST(StandardStreams, WhatIsClosedIsNoFileOfTheRun) {
  const Posto posto(Posto::Database::Nessuno);
  posto.cartella().write("uno.cur", "A");
  const Esecuzione esito = rediretto(posto, "inspect uno.cur --json --log registro.txt", "<&- >&- 2>&-");
  EXPECT_EQ(esito.codice, 0);
  const std::string registro = posto.cartella().read("registro.txt");
  EXPECT_THAT(registro, HasSubstr("avvio cuctl"));
  EXPECT_THAT(registro, Not(HasSubstr("findings")));
}

// With a file in which control characters stand where a name is.
class StandardStreamsOfAHostileFile : public ::testing::Test {
 protected:
  StandardStreamsOfAHostileFile() {
    std::string riga = "B" + std::string("ROSSI\x1b[31m\x07\x9b") + "X";
    riga.resize(1898, ' ');
    posto_.cartella().write("ostile.cur", riga + "\r\n");
  }
  std::string file() const { return posto_.cartella() / "ostile.cur"; }
  const Posto& posto() const { return posto_; }

 private:
  Posto posto_{Posto::Database::Nessuno};
};

TEST_F(StandardStreamsOfAHostileFile, ATerminalShowsItsControlCharactersAsPictures) {
  const AlTerminale esito({"inspect", file()}, "");
  EXPECT_EQ(esito.codice, 0);
  EXPECT_THAT(esito.visto, AllOf(HasSubstr("␛[31m␇"), Not(HasSubstr("\x1b")), Not(HasSubstr("\x07"))));
  const AlTerminale assente({"inspect",
                             "a\x1b[1mb\xC2\x9B"
                             "c"},
                            "");
  EXPECT_EQ(assente.codice, 2);
  EXPECT_THAT(assente.visto, HasSubstr("a␛[1mb\xEF\xBF\xBD"
                                       "c: il file non esiste."));
}

TEST_F(StandardStreamsOfAHostileFile, AnotherProgramGetsEveryByte) {
  const Esecuzione esito = rediretto(posto(), "inspect ostile.cur", "");
  EXPECT_THAT(esito.uscita, HasSubstr("ROSSI\x1b[31m\x07"));
  const Esecuzione assente = rediretto(posto(), "inspect \"$(printf 'a\\177b\\302\\233c')\"", "");
  EXPECT_THAT(assente.errori, HasSubstr("a\x7F"
                                        "b\xC2\x9B"
                                        "c: il file non esiste."));
}

TEST(StandardStreams, ALimitOfAFilesSizeIsReported) {
  const Posto posto(Posto::Database::Nessuno);
  const Esecuzione esito =
      esegui({"/bin/sh", "-c",
              "ulimit -f 1; '" CU_CUCTL
              "' create --database sqlite:grande.db --empty 2>errori; echo $?; cat errori"},
             posto.cartella().path());
  EXPECT_EQ(esito.uscita.substr(0, 2), "1\n");
  EXPECT_THAT(esito.uscita, HasSubstr("grande.db"));
}

TEST(WrittenFiles, TheTraceAndTheSettingsAreNotTheDatabase) {
  Posto posto;
  const auto prova = [&](const char* chiave, const std::string& valore, const std::string& difetto) {
    posto.imposta(chiave, '"' + valore + '"');
    const Esecuzione esito = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2017", "--folder",
                                          posto.cartella().path(), "--yes"});
    EXPECT_EQ(esito.codice, 2) << chiave;
    EXPECT_THAT(esito.errori, HasSubstr(std::string(chiave) + ": " + difetto)) << chiave;
  };
  posto.imposta("printing.engine", "\"record\"");
  if (posto.databaseDelServer() == nullptr) {
    const std::string file = posto.indirizzo().substr(std::string("sqlite:").size());
    prova("trace.sql", file, "è il database, atteso un altro file");
    EXPECT_EQ(posto.cuctl({"check", "--database", posto.indirizzo()}).codice, 0);
  }
  posto.cartella().write("altro.cur", "A              CUR18");
  prova("trace.sql", posto.cartella() / "altro.cur", "Il file non è una traccia");
  EXPECT_EQ(posto.cartella().read("altro.cur"), "A              CUR18");
  posto.imposta("trace.sql", '"' + (posto.cartella() / "traccia.jsonl") + '"');
  prova("folders.settings", posto.profilo(), "è il profilo stesso, atteso un altro file");
}

TEST(WrittenFiles, ATemplateReplacesNothing) {
  Posto posto(Posto::Database::Nessuno);
  for (const char* const nome : {"mio.csv", "mio.xlsx"}) {
    posto.cartella().write(nome, "Codice;Cognome\r\nF001;Rossi\r\n");
    const Esecuzione esito = posto.cuctl({"template", "payees", nome});
    EXPECT_EQ(esito.codice, 1);
    EXPECT_EQ(esito.errori, std::string("Il file «") + nome +
                                "» esiste già: il modello non lo sostituisce. Indicare un altro nome.\n");
    EXPECT_EQ(posto.cartella().read(nome), "Codice;Cognome\r\nF001;Rossi\r\n");
  }
}

TEST(WrittenFiles, ATableReplacesOnlyATable) {
  Posto posto(Posto::Database::Nessuno);
  posto.cartella().write("uno.cur", "A");
  const std::string database("SQLite format 3\0....", 20);
  posto.cartella().write("a.db", database);
  std::filesystem::create_symlink("a.db", posto.cartella() / "collegamento.csv");
  posto.cartella().write("foglio.xlsx", "testo");
  for (const Argomenti& tabella :
       {Argomenti{"--csv", "collegamento.csv"}, Argomenti{"--xlsx", "foglio.xlsx"}}) {
    const Esecuzione esito = posto.cuctl({"inspect", "uno.cur", tabella[0], tabella[1]});
    EXPECT_EQ(esito.codice, 1);
    EXPECT_EQ(esito.errori,
              "Il file «" + tabella[1] + "» esiste già e non è una tabella: non viene sostituito.\n");
  }
  // Of a name that is not a table's, only what begins as its own tables.
  posto.cartella().write("due.cur", "A");
  EXPECT_EQ(posto.cuctl({"inspect", "uno.cur", "--csv", "due.cur"}).errori,
            "Il file «due.cur» esiste già e non è una tabella: non viene sostituito.\n");
  EXPECT_EQ(posto.cartella().read("due.cur"), "A");
  EXPECT_EQ(posto.cartella().read("a.db"), database);
  EXPECT_EQ(posto.cartella().read("foglio.xlsx"), "testo");
  // Its own earlier tables are replaced.
  for (int volta = 0; volta < 2; ++volta) {
    EXPECT_EQ(posto.cuctl({"inspect", "uno.cur", "--csv", "t.csv", "--xlsx", "t.xlsx"}).codice, 0);
    EXPECT_EQ(posto.cuctl({"inspect", "uno.cur", "--csv", "tabella.txt"}).codice, 0);
  }
}

// What cannot be written is said in the program's words, and an earlier workbook stays.
TEST(WrittenFiles, AWorkbookThatCannotBeWrittenIsReportedInWords) {
  Posto posto(Posto::Database::Nessuno);
  posto.cartella().write("uno.cur", "A");
  posto.cartella().write("t.xlsx", "PK di prima");
  const Esecuzione pieno =
      esegui({"/bin/sh", "-c",
              "ulimit -f 1; '" CU_CUCTL "' inspect uno.cur --xlsx t.xlsx >uscita 2>errori; echo $?"},
             posto.cartella().path());
  EXPECT_EQ(pieno.uscita, "1\n");
  EXPECT_THAT(posto.cartella().read("errori"), HasSubstr("t.xlsx"));
  EXPECT_EQ(posto.cartella().read("t.xlsx"), "PK di prima");
  const Esecuzione esito = posto.cuctl({"template", "payees", "manca/t.xlsx"});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(esito.errori, "Percorso non trovato: manca/t.xlsx\n");
}

}  // namespace
}  // namespace cu::test
