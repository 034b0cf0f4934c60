// A backup and a restore are killed at random moments: the file is whole or not there, the database is whole,
// the former one or the copy, and the next command completes the work.
//
// CU_KILLS is the number of kills of the other runs; there are a fifth as many here.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>
#include <thread>

#include "system/importazione_support.h"
#include "system/lettore_db_support.h"

namespace cu::test {
namespace {

namespace fs = std::filesystem;
using DurataCopia = std::chrono::microseconds;

int copieDaUccidere() {
  constexpr int kCopieUccise = 40;
  const char* const scelte = std::getenv("CU_KILLS");
  return scelte == nullptr ? kCopieUccise : std::max(1, std::atoi(scelte) / 5);
}

// A database with payments and a copy of it from before: what each has is told by the number of payments.
class CopiaUccisa : public ::testing::Test {
 protected:
  CopiaUccisa() {
    EXPECT_EQ(comando("backup", copiaVuota()).codice, 0);
    EXPECT_EQ(luogo_.importa().codice, 0);
    pieno_ = pagamenti(luogo_.database());
  }
  std::string copiaVuota() const { return posto_ / "prima.db"; }
  std::string copia() const { return posto_ / "copia.db"; }
  std::vector<std::string> argomenti(const char* quale, const std::string& file) const {
    return {CU_CUCTL,
            quale,
            file,
            "--database",
            "sqlite:" + luogo_.database(),
            std::string(quale) == "backup" ? "--force" : "--yes"};
  }
  Esecuzione comando(const char* quale, const std::string& file) const {
    return esegui(argomenti(quale, file), posto_.path());
  }
  static std::string pagamenti(const std::string& database) {
    LettoreDb lettore(database);
    EXPECT_EQ(lettore.testo("PRAGMA integrity_check"), "ok");
    return lettore.testo("SELECT COUNT(*) FROM Compenso");
  }
  // The shortest of some: the first one waits for files that are not in memory.
  DurataCopia durata(const char* quale, const std::string& file) const {
    constexpr int kVolte = 3;
    DurataCopia minore = DurataCopia::max();
    for (int i = 0; i < kVolte; ++i) {
      const auto inizio = std::chrono::steady_clock::now();
      const Esecuzione esito = comando(quale, file);
      EXPECT_EQ(esito.codice, 0) << esito.errori;
      minore = std::min(minore,
                        std::chrono::duration_cast<DurataCopia>(std::chrono::steady_clock::now() - inizio));
    }
    return minore;
  }
  // Returns whether it was killed.
  // From that share of the whole time on.
  bool uccidi(const char* quale, const std::string& file, DurataCopia intera, double inizio = 0) {
    const auto prima = static_cast<DurataCopia::rep>(static_cast<double>(intera.count()) * inizio);
    Processo processo(argomenti(quale, file), posto_.path());
    std::this_thread::sleep_for(
        DurataCopia(std::uniform_int_distribution<DurataCopia::rep>(prima, intera.count())(caso_)));
    ::kill(processo.id(), SIGKILL);
    return processo.codice() == 128 + SIGKILL;
  }

  LuogoImportazione luogo_;
  TempFolder posto_;
  std::string pieno_;
  std::mt19937 caso_{std::random_device{}()};
};

TEST_F(CopiaUccisa, ABackupIsWholeOrNotThere) {
  const DurataCopia intera = durata("backup", copia());
  int uccise = 0;
  int presenti = 0;
  for (int i = 0; i < copieDaUccidere(); ++i) {
    // Every other one has a former copy in its place.
    if (i % 2 == 0) fs::remove(copia());
    const bool ucciso = uccidi("backup", copia(), intera);
    uccise += ucciso ? 1 : 0;
    if (fs::exists(copia())) {
      presenti += ucciso ? 1 : 0;
      ASSERT_EQ(pagamenti(copia()), pieno_);
    }
    ASSERT_EQ(pagamenti(luogo_.database()), pieno_);
    const Esecuzione ancora = comando("backup", copia());
    ASSERT_EQ(ancora.codice, 0) << ancora.errori;
    ASSERT_EQ(pagamenti(copia()), pieno_);
    ASSERT_FALSE(fs::exists(copia() + ".parziale"));
  }
  EXPECT_GE(uccise, copieDaUccidere() / 2);
  std::cout << "  " << uccise << " kills, a copy was there after " << presenti << '\n';
}

TEST_F(CopiaUccisa, ADatabaseIsTheFormerOneOrTheCopy) {
  EXPECT_EQ(comando("backup", copia()).codice, 0);
  // Of the copy that is killed, which is smaller than the other.
  const DurataCopia intera = durata("restore", copiaVuota());
  EXPECT_EQ(comando("restore", copia()).codice, 0);
  int uccise = 0;
  int sostituiti = 0;
  for (int i = 0; i < copieDaUccidere(); ++i) {
    const bool ucciso = uccidi("restore", copiaVuota(), intera, i % 2 == 0 ? 0 : 0.7);
    uccise += ucciso ? 1 : 0;
    const std::string trovati = pagamenti(luogo_.database());
    ASSERT_TRUE(trovati == "0" || trovati == pieno_) << trovati;
    if (ucciso && trovati == "0") ++sostituiti;
    // A former database that has its new name is whole, too.
    for (const auto& voce : fs::directory_iterator(fs::path(luogo_.database()).parent_path())) {
      const std::string nome = voce.path().string();
      if (nome.find("prima-del-ripristino") != std::string::npos && voce.path().extension() == ".db") {
        pagamenti(nome);
      }
    }
    const Esecuzione ancora = comando("restore", copia());
    ASSERT_EQ(ancora.codice, 0) << ancora.errori;
    ASSERT_EQ(pagamenti(luogo_.database()), pieno_);
    for (const auto& voce : fs::directory_iterator(fs::path(luogo_.database()).parent_path())) {
      if (voce.path() != luogo_.database()) fs::remove(voce.path());
    }
  }
  EXPECT_GE(uccise, copieDaUccidere() / 2);
  std::cout << "  " << uccise << " kills, the copy was in place after " << sostituiti << '\n';
}

}  // namespace
}  // namespace cu::test
