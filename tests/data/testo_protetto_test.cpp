#include "data/testo_protetto.h"

#include <gtest/gtest.h>

namespace cu {
namespace {

std::string protetto(std::string_view valore) {
  std::string testo;
  appendProtetto(testo, valore);
  return testo;
}

TEST(TestoProtetto, HasNoTabsAndLineEnds) { EXPECT_EQ(protetto("a\tb\\c\n'è"), "a\\09b\\5Cc\\0A'è"); }

TEST(TestoProtetto, ComesBackWhateverItsBytes) {
  std::string tutti;
  for (int byte = 0; byte < 256; ++byte) tutti += static_cast<char>(byte);
  EXPECT_EQ(senzaProtezione(protetto(tutti)), tutti);
  EXPECT_EQ(senzaProtezione(""), "");
}

TEST(TestoProtetto, CutOffKeepsItsEnd) { EXPECT_EQ(senzaProtezione("a\\0"), "a\\0"); }

}  // namespace
}  // namespace cu
