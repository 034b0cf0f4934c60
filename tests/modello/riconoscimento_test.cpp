// Which of the two forms a record B has.

#include "modello/riconoscimento.h"

#include <gtest/gtest.h>

#include <string>

namespace cu::modello {
namespace {

std::string rigaB(std::string_view da310, std::string_view a527 = " ") {
  std::string riga(kLarghezzaRecord, ' ');
  riga.replace(309, da310.size(), da310);
  riga.replace(526, a527.size(), a527);
  return riga;
}

// A company's record has a representative, that of a person zeros for the office.
const std::string kFissaSocieta = rigaB("GZZLRA75C52L781Z01GUIZZI");
const std::string kFissaPersona = rigaB("                00");
const std::string kPubblicataSocieta = rigaB("0GZZLRA75C52L781Z01GUIZZI");
const std::string kPubblicataPersona = rigaB("0                00");

TEST(Recognition, IsByTheOfficeOfTheRepresentative) {
  for (const std::int32_t anno : {2020, 2025}) {
    EXPECT_EQ(&modelloDelRecordB(anno, kFissaSocieta), &kModello) << anno;
    EXPECT_EQ(&modelloDelRecordB(anno, kFissaPersona), &kModello) << anno;
    EXPECT_EQ(&modelloDelRecordB(anno, kPubblicataSocieta), &kModelloPubblicato) << anno;
    EXPECT_EQ(&modelloDelRecordB(anno, kPubblicataPersona), &kModelloPubblicato) << anno;
  }
}

TEST(Recognition, IsByTheFlagOfTheSpecialCasesToo) {
  const std::string riga = rigaB("", "1");
  EXPECT_EQ(&modelloDelRecordB(2021, riga), &kModelloPubblicato);
  EXPECT_EQ(&modelloDelRecordB(2020, riga), &kModello);
}

TEST(Recognition, FindsNoDifferenceBefore2020AndInAnotherLine) {
  EXPECT_EQ(&modelloDelRecordB(2019, kPubblicataSocieta), &kModello);
  EXPECT_EQ(&modelloDelRecordB(2021, kPubblicataSocieta.substr(1)), &kModello);
}

}  // namespace
}  // namespace cu::modello
