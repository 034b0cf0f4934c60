// The program is killed at random moments of a whole run, some hundred times: the database is intact, each
// table of the accounts is as before or as after, foreign data is unchanged, no incomplete file but the
// telematic file has its final name, and the next run produces everything.
//
// CU_KILLS is the number of kills.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <random>
#include <thread>

#include "system/corsa_intera_support.h"

namespace cu::test {
namespace {

using Tempo = CorsaIntera::Tempo;

constexpr int kUccisioni = 300;
constexpr int kTentativi = 3;  // per kill; a program that ends before is not killed
constexpr unsigned kInsieme = 2;

int uccisioni() {
  const char* const scelte = std::getenv("CU_KILLS");
  return scelte == nullptr ? kUccisioni : std::max(1, std::atoi(scelte));
}

void sano(const LuogoCorsa& luogo, const CorsaIntera& intera) {
  intera.attendeSano(luogo);
  EXPECT_TRUE(luogo.soloInteri(intera.file()));
  EXPECT_TRUE(intera.file().starts_with(luogo.file()));
}

// Kills a run within a step. Returns false where the program ended before.
bool uccidi(const LuogoCorsa& luogo, const CorsaIntera& intera, std::mt19937& caso, std::size_t& passo) {
  // Every second time a long step, in proportion to its duration.
  std::vector<double> pesi(intera.tempi().size(), 1);
  if (caso() % 2 == 0) {
    std::transform(intera.tempi().begin(), intera.tempi().end(), pesi.begin(),
                   [](Tempo tempo) { return static_cast<double>(tempo.count()); });
  }
  passo = std::discrete_distribution<std::size_t>(pesi.begin(), pesi.end())(caso);
  std::uniform_int_distribution<Tempo::rep> istante(0, intera.tempi()[passo].count());
  const Tempo attesa(istante(caso));
  CorsaGuidata corsa(luogo);
  for (std::size_t i = 0; i < passo; ++i) corsa.passo();
  EXPECT_TRUE(corsa.detti().empty());
  corsa.comincia();
  std::this_thread::sleep_for(attesa);
  ::kill(corsa.processo().id(), SIGKILL);
  return corsa.processo().codice() == 128 + SIGKILL;
}

TEST(Kills, LoseNothing) {
  const CorsaIntera senza(false);
  const CorsaIntera con(true);
  if (HasFailure()) return;
  const int quante = uccisioni();
  std::atomic<int> prossima = 0;
  std::atomic<int> riuscite = 0;
  std::vector<std::atomic<int>> perPasso(CorsaGuidata::passi());
  const auto uccidiFinche = [&](unsigned seme) {
    std::mt19937 caso(seme);
    while (prossima++ < quante && !HasFailure()) {
      const CorsaIntera& intera = caso() % 3 == 0 ? con : senza;
      for (int tentativo = 0; tentativo < kTentativi; ++tentativo) {
        const LuogoCorsa luogo(intera.moduli());
        std::size_t passo = 0;
        const bool ucciso = uccidi(luogo, intera, caso, passo);
        SCOPED_TRACE("step " + std::to_string(passo));
        sano(luogo, intera);
        intera.attendeRiuscita(luogo);
        if (!ucciso) continue;
        ++riuscite;
        ++perPasso[passo];
        break;
      }
    }
  };
  const auto lavora = [&](unsigned seme) {
    try {
      uccidiFinche(seme);
    } catch (const std::exception& errore) {
      ADD_FAILURE() << errore.what();
    }
  };
  std::vector<std::thread> insieme;
  std::random_device semi;
  for (unsigned i = 0; i < kInsieme; ++i) insieme.emplace_back(lavora, semi());
  for (std::thread& uno : insieme) uno.join();
  EXPECT_GE(riuscite, quante - quante / 20);
  std::cout << "  " << riuscite << " kills, by step:";
  for (const auto& passo : perPasso) std::cout << ' ' << passo;
  std::cout << '\n';
}

}  // namespace
}  // namespace cu::test
