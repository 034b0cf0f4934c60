// An import is killed at random moments, and while it writes its journal: the batch is whole or absent, and
// the next import completes it.
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

namespace cu::test {
namespace {

using Durata = std::chrono::microseconds;

constexpr int kImportazioniUccise = 40;
constexpr int kParteImportazioni = 5;

int importazioniDaUccidere() {
  const char* const scelte = std::getenv("CU_KILLS");
  return scelte == nullptr ? kImportazioniUccise : std::max(1, std::atoi(scelte) / kParteImportazioni);
}

std::uintmax_t dimensione(const std::string& file) {
  std::error_code manca;
  const std::uintmax_t byte = std::filesystem::file_size(file, manca);
  return manca ? 0 : byte;
}

// What an import takes that nobody kills: its time, and how much its journal holds at least.
struct Misura {
  Durata durata{};
  std::uintmax_t giornale = 0;
};

Misura misura() {
  const LuogoImportazione luogo;
  const std::uintmax_t prima = dimensione(luogo.database());
  const auto inizio = std::chrono::steady_clock::now();
  const Esecuzione esito = luogo.importa();
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  return {std::chrono::duration_cast<Durata>(std::chrono::steady_clock::now() - inizio),
          dimensione(luogo.database()) - prima};
}

// Waits until the journal is larger than that, or the program has ended.
void attendiGiornale(const Processo& processo, const std::string& giornale, std::uintmax_t byte) {
  siginfo_t finito{};
  while (dimensione(giornale) <= byte) {
    if (::waitid(P_PID, static_cast<id_t>(processo.id()), &finito, WEXITED | WNOHANG | WNOWAIT) == 0 &&
        finito.si_pid != 0) {
      return;
    }
  }
}

TEST(ImportazioneUccisa, LeavesItsBatchWholeOrAbsent) {
  const Misura intera = misura();
  ASSERT_GT(intera.giornale, 0U);
  ASSERT_NE(LuogoImportazione::prima(), LuogoImportazione::dopo());
  std::mt19937 caso(std::random_device{}());
  const int quante = importazioniDaUccidere();
  int uccise = 0;
  int presenti = 0;
  for (int i = 0; i < quante; ++i) {
    const LuogoImportazione luogo;
    Processo processo(luogo.argomenti(), luogo.cartella());
    if (i % 2 == 0) {
      std::this_thread::sleep_for(
          Durata(std::uniform_int_distribution<Durata::rep>(0, intera.durata.count())(caso)));
    } else {
      attendiGiornale(processo, luogo.database() + "-wal",
                      std::uniform_int_distribution<std::uintmax_t>(0, intera.giornale)(caso));
    }
    ::kill(processo.id(), SIGKILL);
    const bool ucciso = processo.codice() == 128 + SIGKILL;
    uccise += ucciso ? 1 : 0;
    const LuogoImportazione::Tavole trovate = luogo.tavole();
    const bool presente = trovate == LuogoImportazione::dopo();
    presenti += presente && ucciso ? 1 : 0;
    ASSERT_TRUE(presente || trovate == LuogoImportazione::prima()) << "a part of the batch is there";
    const Esecuzione ancora = luogo.importa();
    ASSERT_EQ(ancora.codice, 0) << ancora.errori;
    ASSERT_EQ(luogo.tavole(), LuogoImportazione::dopo());
  }
  EXPECT_GE(uccise, quante / 2);
  std::cout << "  " << uccise << " kills, the batch was there after " << presenti << '\n';
}

}  // namespace
}  // namespace cu::test
