#include "controls/frontend.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "support/scripted_front_end.h"

namespace cu {
namespace {

TEST(RunEvent, AnEventThatEndsWellShowsNothing) {
  test::ScriptedFrontEnd frontEnd;
  int ran = 0;
  frontEnd.runEvent([&] { ++ran; });
  EXPECT_EQ(ran, 1);
  EXPECT_TRUE(frontEnd.errors.empty());
}

TEST(RunEvent, AnErrorThatNothingCaughtEndsInOneBox) {
  test::ScriptedFrontEnd frontEnd;
  frontEnd.runEvent([] { throw Error(3021, "Nessuna riga corrente."); });
  ASSERT_EQ(frontEnd.errors.size(), 1U);
  EXPECT_EQ(frontEnd.errors[0].number, 3021);
  EXPECT_EQ(frontEnd.errors[0].text, "Nessuna riga corrente.");
}

TEST(RunEvent, ADatabasesErrorKeepsItsNumber) {
  test::ScriptedFrontEnd frontEnd;
  frontEnd.runEvent(
      [] { throw DatabaseError(DatabaseErrorKind::Locked, 5, "UPDATE", "Il database è occupato."); });
  ASSERT_EQ(frontEnd.errors.size(), 1U);
  EXPECT_EQ(frontEnd.errors[0].number, kErrorDatabase);
  EXPECT_EQ(frontEnd.errors[0].text, "Il database è occupato.");
}

TEST(RunEvent, ThePlatformsOwnErrorsHaveANumberToo) {
  test::ScriptedFrontEnd frontEnd;
  frontEnd.runEvent([] { throw std::bad_alloc(); });
  frontEnd.runEvent([] { throw std::logic_error("bug"); });
  ASSERT_EQ(frontEnd.errors.size(), 2U);
  EXPECT_EQ(frontEnd.errors[0].number, 7);
  EXPECT_EQ(frontEnd.errors[0].text, "Memoria insufficiente.");
  EXPECT_EQ(frontEnd.errors[1].number, 51);
  EXPECT_EQ(frontEnd.errors[1].text, "Errore interno: bug");
}

TEST(RunEvent, ThePointerStaysAsItIs) {
  test::ScriptedFrontEnd frontEnd;
  frontEnd.runEvent([&] {
    frontEnd.setPointer(kPointerHourglass);
    throw Error(5, "guasto");
  });
  EXPECT_EQ(frontEnd.pointer(), kPointerHourglass);
}

}  // namespace
}  // namespace cu
