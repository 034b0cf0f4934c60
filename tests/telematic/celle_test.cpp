// The cells of a record's line alone.

#include "telematic/celle.h"

#include <gtest/gtest.h>

#include <string>

#include "telematic/engine/records.h"

namespace cu::telematico {
namespace {

struct Cells : testing::Test {
  CURecords catalogo;
  RecordImage riga;
  Celle celle{riga};
  Cells() : riga(conRecordH()) {}

  const CURecord& conRecordH() {
    creaCatalogo(catalogo, 2016);
    return catalogo.Item("TipoH");
  }
  // The n-th cell, from 1: code and value.
  std::string cella(std::size_t n) const {
    return std::string(riga.line().substr(kPrimaCella - 1 + (n - 1) * kLarghezzaCella, kLarghezzaCella));
  }
  bool scrivi(const std::string& valore) {
    return celle.fnScriviCampo("AU001001", valore.data(), valore.size());
  }
  void riempi(std::size_t quante) {
    for (std::size_t n = 0; n < quante; ++n) EXPECT_TRUE(celle.scriviADestra("AU001002", "1", 1));
  }
};

TEST_F(Cells, ALastFreeOneIsTakenAndBehindItNone) {
  riempi(kCelle - 1);
  EXPECT_TRUE(scrivi("A"));
  EXPECT_EQ(cella(kCelle), "AU001001A               ");
  EXPECT_FALSE(scrivi("B"));
  EXPECT_FALSE(celle.scriviADestra("AU001002", "1", 1));
  EXPECT_EQ(cella(kCelle), "AU001001A               ");
}

TEST_F(Cells, AnEmptyValueTakesNoneEvenWhereNoneIsLeft) {
  riempi(kCelle - 1);
  EXPECT_TRUE(scrivi(""));
  EXPECT_TRUE(scrivi("A"));
  EXPECT_TRUE(scrivi(""));
  EXPECT_FALSE(scrivi("B"));
}

TEST_F(Cells, ALongValueThatFindsNoCellToGoOnInIsRefused) {
  riempi(kCelle - 1);
  EXPECT_FALSE(scrivi("12345678901234567"));
}

TEST_F(Cells, EmptiedTheyAreBlankAndStartAnew) {
  riempi(3);
  celle.vuota();
  EXPECT_EQ(cella(1), std::string(kLarghezzaCella, ' '));
  EXPECT_EQ(cella(3), std::string(kLarghezzaCella, ' '));
  EXPECT_TRUE(scrivi("12345678901234567"));
  EXPECT_EQ(cella(1), "AU0010011234567890123456");
  EXPECT_EQ(cella(2), "AU001001+7              ");
}

}  // namespace
}  // namespace cu::telematico
