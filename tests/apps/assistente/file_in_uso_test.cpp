// The open database, its files and what leads to them, wherever a window opens what a person has chosen.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>

#include "apps/comune/file_letto.h"
#include "apps/importazione/mappa_toml.h"
#include "apps/strumenti/finestra_confronto.h"
#include "apps/strumenti/finestra_file.h"
#include "finestra_support.h"
#include "support/held_locks.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

// An import while the database is open elsewhere in the program, as by the wizard.
class FileInUso : public ::testing::Test {
 protected:
  FileInUso() : aperta_(apriConnessione(banco_.posto.database)) {
    std::filesystem::create_symlink(database(), legame());
    EXPECT_TRUE(holdsLock(database()));
  }
  ~FileInUso() override { EXPECT_TRUE(holdsLock(database())); }
  const std::string& database() const { return banco_.posto.database.origine; }
  std::string legame() const { return banco_.posto.cartella / "legame.csv"; }
  std::vector<std::string> tutti() const { return {database(), database() + "-wal", legame()}; }
  bool dice(const QWidget& finestra, const char* testo) const {
    for (const auto* una : finestra.findChildren<QLabel*>()) {
      if (una->isVisible() && una->text().contains(QString::fromUtf8(testo))) return true;
    }
    return false;
  }

  BancoAssistente banco_;
  std::unique_ptr<Connection> aperta_;
};

constexpr const char* kInUso = "è il database in uso";

TEST_F(FileInUso, AnImportDoesNotReadIt) {
  auto& finestra = banco_.apri();
  for (const std::string& file : tutti()) {
    finestra.aggiungi({QString::fromStdString(file)});
    banco_.aspettaFerma();
    const FileScelto& ultimo = finestra.assistente().file().back();
    EXPECT_FALSE(ultimo.leggibile()) << file;
    EXPECT_THAT(ultimo.guasto, HasSubstr(kInUso)) << file;
    EXPECT_TRUE(holdsLock(database())) << file;
  }
  EXPECT_FALSE(finestra.assistente().puoAvanzare());
}

TEST_F(FileInUso, AFolderOfInvoicesIsReadWithoutIt) {
  Assistente assistente(
      {.database = banco_.posto.database, .azienda = 1, .cartellaMappe = {}, .utente = "prova", .oggi = {}});
  assistente.scegliFatture();
  assistente.aggiungi({banco_.posto.cartella.path()});
  for (const Passo passo : {Passo::Sorgente, Passo::Colonne}) {
    EXPECT_EQ(assistente.passo(), passo) << assistente.impedimento();
    while (auto compito = assistente.daFare()) {
      compito->lavoro(nullptr);
      compito->accogli();
    }
    assistente.avanti();
  }
  EXPECT_GE(assistente.ignorati().at("file del database in uso"), 2U);
  EXPECT_TRUE(holdsLock(database()));
}

TEST_F(FileInUso, NeitherATableOfDatesNorAProfileIsReadFromIt) {
  Assistente assistente(
      {.database = banco_.posto.database, .azienda = 1, .cartellaMappe = {}, .utente = "prova", .oggi = {}});
  for (const std::string& file : tutti()) {
    EXPECT_THROW(assistente.usaTavolaDate(file), FileIlleggibile) << file;
    EXPECT_THROW(leggiMappa(file), FileIlleggibile) << file;
    EXPECT_TRUE(holdsLock(database())) << file;
  }
}

TEST_F(FileInUso, TheWindowsForTelematicFilesDoNotReadIt) {
  for (const std::string& file : tutti()) {
    strumenti::FinestraFile finestra(QString::fromStdString(file), banco_.profilo);
    finestra.setAttribute(Qt::WA_DeleteOnClose, false);
    finestra.show();
    EXPECT_TRUE(aspetta([&] { return !finestra.lavora(); }));
    EXPECT_TRUE(dice(finestra, kInUso)) << file;
    strumenti::FinestraConfronto confronto(QString::fromStdString(file), banco_.file);
    confronto.setAttribute(Qt::WA_DeleteOnClose, false);
    confronto.show();
    EXPECT_TRUE(aspetta([&] { return !confronto.lavora(); }));
    EXPECT_TRUE(dice(confronto, kInUso)) << file;
    EXPECT_TRUE(holdsLock(database())) << file;
  }
}

}  // namespace
}  // namespace cu::test
