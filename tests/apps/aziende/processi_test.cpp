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

TEST(InProcessi, WhatIsInHandIsEndedWhenTheUserInterrupts) {
  Esiti esiti;
  int detto = 0;
  const bool tutti = eseguiInProcessi(
      20, 2,
      [](std::size_t) {
        ::raise(SIGINT);  // a terminal sends it to all processes
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return std::string("fatto");
      },
      [&](std::size_t quale, const EsitoProcesso& esito) {
        esiti.emplace(quale, esito);
        if (esiti.size() == 3) ::raise(SIGINT);
      },
      [&] { ++detto; });
  EXPECT_FALSE(tutti);
  EXPECT_EQ(detto, 1);
  EXPECT_GE(esiti.size(), 4U);
  EXPECT_LE(esiti.size(), 6U);
  for (const auto& [quale, esito] : esiti) EXPECT_EQ(esito.risposta, "fatto") << quale;
  struct sigaction dopo {};
  ::sigaction(SIGINT, nullptr, &dopo);
  EXPECT_EQ(dopo.sa_handler, SIG_DFL);
}

TEST(InProcessi, ASecondInterruptionEndsTheProcessesToo) {
  Esiti esiti;
  const auto prima = std::chrono::steady_clock::now();
  const bool tutti = eseguiInProcessi(
      9, 3,
      [](std::size_t quale) {
        std::this_thread::sleep_for(std::chrono::seconds(quale == 0 ? 0 : 120));
        return std::string("fatto");
      },
      [&](std::size_t quale, const EsitoProcesso& esito) {
        esiti.emplace(quale, esito);
        if (quale != 0) return;
        ::raise(SIGINT);
        ::raise(SIGTERM);
      });
  EXPECT_FALSE(tutti);
  EXPECT_LT(std::chrono::steady_clock::now() - prima, std::chrono::seconds(60));
  ASSERT_EQ(esiti.size(), 4U);
  EXPECT_EQ(esiti.at(0).risposta, "fatto");
  for (const std::size_t quale : {1U, 2U, 3U}) {
    EXPECT_FALSE(esiti.at(quale).risposta.has_value());
    EXPECT_THAT(esiti.at(quale).motivo, HasSubstr("segnale 15"));
  }
}

TEST(InProcessi, AnInterruptionAfterTheLastWasBegunLeavesNothingOut) {
  int detto = 0;
  std::size_t finiti = 0;
  EXPECT_TRUE(eseguiInProcessi(
      2, 2,
      [](std::size_t quale) {
        std::this_thread::sleep_for(std::chrono::milliseconds(quale * 50));
        return std::string("fatto");
      },
      [&](std::size_t, const EsitoProcesso& esito) {
        ++finiti;
        EXPECT_TRUE(esito.risposta.has_value());
        ::raise(SIGHUP);
      },
      [&] { ++detto; }));
  EXPECT_EQ(finiti, 2U);
  EXPECT_EQ(detto, 0);
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
