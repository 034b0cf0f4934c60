#include "liste/tabella.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace cu {
namespace {

TEST(Tabella, ReadsFieldsByColumnName) {
  const Tabella t("ID\tNome\n1\tAnna\n2\t\n");
  ASSERT_EQ(t.righe(), 2u);
  EXPECT_EQ(t.campo(0, "Nome"), "Anna");
  EXPECT_EQ(t.campo(1, "ID"), "2");
  EXPECT_EQ(t.campo(1, "Nome"), "");
}

TEST(Tabella, TakesLinesEndedByCarriageReturnAndLineFeed) {
  const Tabella t("ID\tNome\r\n1\tAnna\r\n");
  ASSERT_EQ(t.righe(), 1u);
  EXPECT_EQ(t.campo(0, "Nome"), "Anna");
}

TEST(Tabella, TakesALastLineWithoutItsEnd) {
  const Tabella t("ID\n1\n2");
  EXPECT_EQ(t.righe(), 2u);
}

TEST(Tabella, RefusesARowOfAnotherWidthAndNamesItsLine) {
  try {
    const Tabella t("ID\tNome\n1\tAnna\n2\n");
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string_view(error.what()).find("riga 3"), std::string_view::npos);
  }
}

TEST(Tabella, RefusesAColumnItDoesNotHave) {
  const Tabella t("ID\n1\n");
  EXPECT_THROW((void)t.campo(0, "Nome"), std::out_of_range);
}

TEST(Tabella, RefusesARowItDoesNotHave) {
  const Tabella t("ID\n1\n");
  EXPECT_THROW((void)t.campo(1, "ID"), std::out_of_range);
}

TEST(Tabella, OfAnEmptyTextHasNoRows) { EXPECT_EQ(Tabella("").righe(), 0u); }

}  // namespace
}  // namespace cu
