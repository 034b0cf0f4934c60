// Copies of an embedded database and their way back, by the commands.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "system/posto_support.h"
#include "system/terminale_support.h"

namespace cu::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Copia : public ::testing::Test {
 protected:
  std::string file(const char* nome) const { return posto_.cartella() / nome; }
  std::string indirizzo(const char* nome) const { return "sqlite:" + file(nome); }
  std::string database() const { return posto_.indirizzo().substr(std::string("sqlite:").size()); }
  Esecuzione backup(std::vector<std::string> altri) {
    altri.insert(altri.begin(), {"backup", "--database", posto_.indirizzo()});
    return posto_.cuctl(std::move(altri));
  }
  Esecuzione restore(std::vector<std::string> altri) {
    altri.insert(altri.begin(), {"restore", "--database", posto_.indirizzo()});
    return posto_.cuctl(std::move(altri));
  }
  void togliPagamenti() { posto_.lettore()->esegui("DELETE FROM Compenso"); }
  std::int64_t pagamenti() { return posto_.lettore()->numero("SELECT COUNT(*) FROM Compenso"); }
  // The name after the words, up to the end of the line.
  static std::string detto(const std::string& uscita, const std::string& parole) {
    const std::size_t dove = uscita.find(parole) + parole.size();
    return uscita.substr(dove, uscita.find('\n', dove) - dove);
  }
  Posto posto_;
};

TEST_F(Copia, ABackupIsWrittenCheckedAndGivenBack) {
  const std::int64_t prima = pagamenti();
  ASSERT_GT(prima, 0);
  const Esecuzione copia = backup({file("copia.db")});
  EXPECT_EQ(copia.codice, 0) << copia.errori;
  EXPECT_THAT(copia.uscita,
              ContainsRegex("^Copia di sicurezza fatta e controllata: .*/copia\\.db \\([0-9]+ tabelle, "
                            "[0-9.]+ righe, [0-9]+,[0-9] MB\\)\n$"));
  EXPECT_EQ(copia.errori, "");
  struct stat modo {};
  ASSERT_EQ(::stat(file("copia.db").c_str(), &modo), 0);
  EXPECT_EQ(modo.st_mode & 07777U, 0600U);
  togliPagamenti();
  const Esecuzione senza = restore({file("copia.db")});
  EXPECT_EQ(senza.codice, 1);
  EXPECT_THAT(senza.errori, HasSubstr(" No (--yes per proseguire)\nNon è stato cambiato nulla.\n"));
  EXPECT_EQ(pagamenti(), 0);
  const Esecuzione ripresa = restore({file("copia.db"), "--yes"});
  EXPECT_EQ(ripresa.codice, 0) << ripresa.errori;
  EXPECT_EQ(pagamenti(), prima);
  const std::string tenuto = detto(ripresa.uscita, "Quello di prima: ");
  EXPECT_THAT(tenuto, HasSubstr("-prima-del-ripristino-"));
  EXPECT_EQ(posto_.cuctl({"check", "--database", "sqlite:" + tenuto}).codice, 0);
  EXPECT_THAT(ripresa.errori, HasSubstr(tenuto)) << "it was named before, too";
}

TEST_F(Copia, ADatabaseIsMadeFromABackup) {
  EXPECT_EQ(backup({file("copia.db")}).codice, 0);
  const Esecuzione esito =
      posto_.cuctl({"restore", file("copia.db"), "--database", indirizzo("nuovo.db"), "--yes"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_EQ(esito.uscita, "Database ripristinato: " + file("nuovo.db") + "\n");
  EXPECT_EQ(posto_.cuctl({"check", "--database", indirizzo("nuovo.db")}).codice, 0);
}

TEST_F(Copia, AFileIsReplacedOnlyWithForce) {
  posto_.cartella().write("copia.db", "altro");
  const Esecuzione senza = backup({file("copia.db")});
  EXPECT_EQ(senza.codice, 1);
  EXPECT_THAT(senza.errori, AllOf(HasSubstr("esiste già."), HasSubstr("Con --force si sostituisce.\n")));
  EXPECT_EQ(posto_.cartella().read("copia.db"), "altro");
  EXPECT_EQ(backup({file("copia.db"), "--force"}).codice, 0);
  EXPECT_EQ(posto_.cuctl({"check", "--database", indirizzo("copia.db")}).codice, 0);
}

TEST_F(Copia, TheDatabaseItselfIsNoPlaceForACopy) {
  fs::create_symlink(database(), file("legame.db"));
  for (const std::string& nome : {database(), database() + "-wal", database() + "-shm", file("legame.db")}) {
    const Esecuzione esito = backup({nome, "--force"});
    EXPECT_EQ(esito.codice, 2) << nome;
    EXPECT_THAT(esito.errori, HasSubstr("è il database"));
    EXPECT_EQ(restore({nome, "--yes"}).codice, 2) << nome;
  }
  EXPECT_GT(pagamenti(), 0);
}

TEST_F(Copia, AServerHasToolsOfItsOwn) {
  for (const char* comando : {"backup", "restore"}) {
    const Esecuzione esito =
        posto_.cuctl({comando, file("copia.db"), "--database", "odbc:Driver=FreeTDS;Server=127.0.0.1"});
    EXPECT_EQ(esito.codice, 1);
    EXPECT_THAT(esito.errori, HasSubstr("con gli strumenti del server"));
  }
}

TEST_F(Copia, WhatIsNotACopyOfThisProgramIsRefused) {
  posto_.cartella().write("lettera.txt", std::string(4096, 'x'));
  EXPECT_THAT(restore({file("lettera.txt"), "--yes"}).errori, HasSubstr("non è un database."));
  EXPECT_THAT(restore({file("manca.db"), "--yes"}).errori, HasSubstr("non esiste."));
  for (const char* nome : {"manca.db", "lettera.txt"}) {
    EXPECT_EQ(restore({file(nome)}).errori.find("--yes"), std::string::npos)
        << "nothing to ask about " << nome;
  }
  posto_.cartella().write("vuoto.db", "");
  EXPECT_THAT(restore({file("vuoto.db"), "--yes"}).errori, HasSubstr("non di questo programma"));
  EXPECT_EQ(backup({file("copia.db")}).codice, 0);
  std::string byte = posto_.cartella().read("copia.db");
  std::fill(byte.begin() + 4096 * 5, byte.begin() + 4096 * 40, '\x55');
  posto_.cartella().write("guasta.db", byte);
  const Esecuzione guasta = restore({file("guasta.db"), "--yes"});
  EXPECT_EQ(guasta.codice, 1);
  EXPECT_THAT(guasta.errori, HasSubstr("danneggiat"));
  posto_.lettore()->esegui("UPDATE CuArchivio SET Versione = 99");
  EXPECT_EQ(backup({file("futura.db")}).codice, 0);
  posto_.lettore()->esegui("UPDATE CuArchivio SET Versione = 1");
  EXPECT_THAT(restore({file("futura.db"), "--yes"}).errori, HasSubstr("da una versione più nuova"));
  EXPECT_GT(pagamenti(), 0);
  for (const std::string& nome : posto_.file("."))
    EXPECT_EQ(nome.find("ripristino"), std::string::npos) << nome;
}

TEST_F(Copia, ADatabaseInUseIsCopiedButNotReplaced) {
  EXPECT_EQ(backup({file("copia.db")}).codice, 0);
  auto processo = posto_.guida();
  ASSERT_TRUE(processo->riga().has_value());
  EXPECT_EQ(backup({file("durante.db")}).codice, 0);
  const Esecuzione esito = restore({file("copia.db"), "--yes"});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.errori, HasSubstr("è aperto in un'altra finestra o da un altro programma"));
  processo->chiudiIngresso();
  processo->codice();
  EXPECT_EQ(restore({file("copia.db"), "--yes"}).codice, 0);
}

TEST_F(Copia, AtATerminalProgressIsShownAndAQuestionIsAsked) {
  const std::string file = this->file("copia.db");
  const AlTerminale copia({"backup", file, "--database", indirizzo(database().c_str())}, "");
  EXPECT_EQ(copia.codice, 0) << copia.visto;
  EXPECT_THAT(copia.visto, AllOf(HasSubstr("Copia: "), HasSubstr("Controllo della copia"),
                                 HasSubstr("Copia di sicurezza fatta")));
  const std::vector<std::string> argomenti = {"restore", file, "--database", indirizzo(database().c_str())};
  const AlTerminale no(argomenti, "\n", "[s/N]");
  EXPECT_EQ(no.codice, 1);
  EXPECT_THAT(no.visto, HasSubstr("Non è stato cambiato nulla."));
  const AlTerminale si(argomenti, "s\n", "[s/N]");
  EXPECT_EQ(si.codice, 0);
  EXPECT_THAT(si.visto, HasSubstr("Quello di prima: "));
}

TEST_F(Copia, CtrlCLeavesNothing) {
  posto_.crea({"--payees", "8000", "--years", "2014-2017"});
  const std::string copia = file("copia.db");
  const AlTerminale esito({"backup", copia, "--database", indirizzo(database().c_str())}, "\x03", "Copia: ");
  EXPECT_EQ(esito.codice, 1) << esito.visto;
  EXPECT_THAT(esito.visto, HasSubstr("Interrotto: non è stata fatta nessuna copia."));
  for (const std::string& nome : posto_.file(".")) EXPECT_EQ(nome.find("copia"), std::string::npos) << nome;
}

}  // namespace
}  // namespace cu::test
