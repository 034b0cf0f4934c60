#include "fatture/importo_esatto.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace cu::fatture {
namespace {

TEST(ImportoEsatto, AddsAllDecimalsAndRoundsOnce) {
  ImportoEsatto somma;
  for (int i = 0; i < 3; ++i) somma = somma + *ImportoEsatto::leggi("0.00333333");
  EXPECT_EQ(somma.arrotondato().toText(), "0.01");
  EXPECT_EQ(ImportoEsatto::leggi("0.00333333")->arrotondato().toText(), "0");
}

TEST(ImportoEsatto, RoundsHalfAwayFromZero) {
  EXPECT_EQ(ImportoEsatto::leggi("1.005")->arrotondato().toText(), "1.01");
  EXPECT_EQ(ImportoEsatto::leggi("-1.005")->arrotondato().toText(), "-1.01");
  EXPECT_EQ(ImportoEsatto::leggi("-1.00499999")->arrotondato().toText(), "-1");
}

TEST(ImportoEsatto, RejectsWhatTheFormatDoesNotHave) {
  for (const char* testo :
       {"", "-", ".5", "5.", "1,00", "1e3", " 1", "1.123456789", "100000000000", "1.0.0", "O"})
    EXPECT_FALSE(ImportoEsatto::leggi(testo).has_value()) << testo;
  EXPECT_TRUE(ImportoEsatto::leggi("+12.5").has_value());
}

TEST(ImportoEsatto, RejectsASumBeyondItsRange) {
  const ImportoEsatto grande = *ImportoEsatto::leggi("92000000000.00");
  EXPECT_THROW(grande + grande, Error);
  EXPECT_THROW(*ImportoEsatto::leggi("-92000000000.00") + *ImportoEsatto::leggi("-92000000000.00"), Error);
}

}  // namespace
}  // namespace cu::fatture
