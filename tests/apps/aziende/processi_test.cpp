#include "apps/aziende/processi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <set>
#include <thread>
#include <vector>

namespace cu {
namespace {

using ::testing::HasSubstr;

using Esiti = std::map<std::size_t, EsitoProcesso>;

Esiti fatti(std::size_t quanti, std::size_t insieme, const std::function<std::string(std::size_t)>& lavoro) {
  Esiti esiti;
  eseguiInProcessi(quanti, insieme, lavoro, [&](std::size_t quale, const EsitoProcesso& esito) {
    EXPECT_TRUE(esiti.emplace(quale, esito).second) << quale;
  });
  return esiti;
}

TEST(InProcessi, EveryWorkIsDoneOnceWhateverTheNumberOfProcesses) {
  for (const std::size_t insieme : {0U, 1U, 3U, 40U}) {
    const Esiti esiti =
        fatti(20, insieme, [](std::size_t quale) { return std::string(quale * 10000, 'x') + "fine"; });
    ASSERT_EQ(esiti.size(), 20U);
    for (const auto& [quale, esito] : esiti) {
      ASSERT_TRUE(esito.risposta.has_value());
      EXPECT_EQ(esito.risposta->size(), quale * 10000 + 4);
    }
  }
}

TEST(InProcessi, NothingIsDoneForNoWork) {
  EXPECT_TRUE(fatti(0, 4, [](std::size_t) { return ""; }).empty());
}

TEST(InProcessi, AnEmptyAnswerIsAnAnswer) {
  const Esiti esiti = fatti(1, 1, [](std::size_t) { return ""; });
  EXPECT_EQ(esiti.at(0).risposta, "");
}

TEST(InProcessi, NoMoreThanAskedForWorkAtATimeAndNoneInThisProcess) {
  std::set<std::string> processi;
  for (const auto& [quale, esito] : fatti(12, 3, [](std::size_t) { return std::to_string(::getpid()); })) {
    processi.insert(*esito.risposta);
  }
  EXPECT_LE(processi.size(), 3U);
  EXPECT_FALSE(processi.contains(std::to_string(::getpid())));
}

TEST(InProcessi, TheSecondIsNotKeptWaitingByTheFirst) {
  std::vector<std::size_t> ordine;
  eseguiInProcessi(
      2, 2,
      [](std::size_t quale) {
        if (quale == 0) std::this_thread::sleep_for(std::chrono::milliseconds(300));
        return std::string("fatto");
      },
      [&](std::size_t quale, const EsitoProcesso&) { ordine.push_back(quale); });
  EXPECT_EQ(ordine, (std::vector<std::size_t>{1, 0}));
}

TEST(InProcessi, OneThatIsKilledOrEndsStopsNoOther) {
  for (const std::size_t insieme : {1U, 2U}) {
    const Esiti esiti = fatti(6, insieme, [](std::size_t quale) -> std::string {
      if (quale == 1) ::raise(SIGKILL);
      if (quale == 3) std::_Exit(7);
      return "fatto";
    });
    ASSERT_EQ(esiti.size(), 6U);
    for (const std::size_t quale : {0U, 2U, 4U, 5U}) EXPECT_EQ(esiti.at(quale).risposta, "fatto");
    EXPECT_FALSE(esiti.at(1).risposta.has_value());
    EXPECT_THAT(esiti.at(1).motivo, HasSubstr("segnale 9"));
    EXPECT_FALSE(esiti.at(3).risposta.has_value());
    EXPECT_THAT(esiti.at(3).motivo, HasSubstr("codice 7"));
  }
}

}  // namespace
}  // namespace cu
