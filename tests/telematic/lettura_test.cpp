#include "telematic/lettura.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "telematic/tracciati.h"

namespace cu::telematico {
namespace {

using test::riga;
using Testi = std::vector<std::string>;

std::string rigaZ(const std::string& d, const std::string& h) {
  return riga('Z', 2016,
              {{"Tipo Record", "Z"},
               {"N° rec. Tipo B", "000000001"},
               {"N° rec. Tipo C", "000000000"},
               {"N° rec. Tipo D", d},
               {"N° rec. Tipo G", "000000000"},
               {"N° rec. Tipo H", h},
               {"N° rec. Tipo L", "000000000"},
               {"Filler 6", "A"}});
}

std::string senzaFine(std::string linea) {
  linea.resize(1898);
  return linea;
}

TEST(Decodifica, ReadsAnyByteWithoutHarm) {
  for (const char tipo : {'A', 'B', 'D', 'H', 'Z'}) {
    const std::string linea = senzaFine(riga(tipo, 2016, {{"Tipo Record", std::string(1, tipo)}}));
    for (std::size_t at = 0; at < linea.size(); at += 31) {
      std::string guasta = linea;
      guasta[at] = '\0';
      for (const std::string& testo : decodifica(guasta, 2016))
        EXPECT_NE(testo.find(": "), std::string::npos);
    }
  }
}

TEST(Decodifica, AFrameIsItsFieldsWithoutFillersAndBlanks) {
  EXPECT_EQ(decodifica(senzaFine(riga('A', 2016,
                                      {{"Tipo Record", "A"},
                                       {"Codice fornitura", "CUR17"},
                                       {"Tipo fornitore", "01"},
                                       {"Cod. Fisc. fornitore", "01234567890"},
                                       {"Filler 6", "A"}})),
                       2016),
            (Testi{"Tipo Record: A", "Codice fornitura: CUR17", "Tipo fornitore: 01",
                   "Cod. Fisc. fornitore: 01234567890"}));
  EXPECT_EQ(decodifica(senzaFine(rigaZ("000000001", "000000002")), 2016),
            (Testi{"Tipo Record: Z", "N° rec. Tipo B: 000000001", "N° rec. Tipo C: 000000000",
                   "N° rec. Tipo D: 000000001", "N° rec. Tipo G: 000000000", "N° rec. Tipo H: 000000002",
                   "N° rec. Tipo L: 000000000"}));
}

TEST(Decodifica, TheFrontispieceIsReadByTheLayoutOfItsYear) {
  for (const int anno : {2015, 2016}) {
    const std::string linea = senzaFine(
        riga('B', anno,
             {{"Tipo Record", "B"}, {"Cod. Fisc. rappresentante", "X"}, {"Firma", "1"}, {"Filler 26", "A"}}));
    EXPECT_EQ(decodifica(linea, anno), (Testi{"Tipo Record: B", "Cod. Fisc. rappresentante: X", "Firma: 1"}))
        << anno;
  }
}

TEST(Decodifica, CellsAreCodesWithTheirSourceAndValuesJoined) {
  const std::string linea = senzaFine(riga('D', 2016,
                                           {{"Tipo Record", "D"},
                                            {"Campo1", "DA002002ASSOCIAZIONE NIC"},
                                            {"Campo2", "DA002002+OL\xD2 E FIGLI"},
                                            {"Campo3", "DA002026C"},
                                            {"Campo4", "DA003002               1"},
                                            {"Filler 3", "A"}}));
  EXPECT_EQ(decodifica(linea, 2016),
            (Testi{"Tipo Record: D", "DA002002 (Anagrafica): ASSOCIAZIONE NICOLÒ E FIGLI",
                   "DA002026 (FusioneComuni): C", "DA003002: 1"}));
  EXPECT_EQ(decodifica(linea, 2017)[2], "DA002026 (CodiceComuneDiNascitaCorr): C");
}

TEST(Decodifica, ACodeRepeatedWithoutTheMarkIsAnotherValue) {
  const std::string linea =
      senzaFine(riga('D', 2016, {{"Campo1", "DA002026C"}, {"Campo2", "DA002026D"}, {"Filler 3", "A"}}));
  EXPECT_EQ(decodifica("D" + linea.substr(1), 2016),
            (Testi{"Tipo Record: D", "DA002026 (FusioneComuni): C", "DA002026 (FusioneComuni): D"}));
}

TEST(Decodifica, AFurtherModuleNamesItsOwnSources) {
  const auto linea = [](const char* modulo) {
    return senzaFine(riga('H', 2016,
                          {{"Tipo Record", "H"},
                           {"Progressivo modulo", modulo},
                           {"Campo1", "AU001007          100,00"},
                           {"Campo2", "AU001999          +"}}));
  };
  EXPECT_EQ(decodifica(linea("00000001"), 2016),
            (Testi{"Tipo Record: H", "Progressivo modulo: 00000001",
                   "AU001007 (SommeNonSoggetteARitenuta): 100,00", "AU001999: +"}));
  EXPECT_EQ(decodifica(linea("00000002"), 2016)[2], "AU001007 (SommeNonSoggette): 100,00");
}

TEST(Decodifica, WhatIsNoLineOfTheFileYieldsNothing) {
  EXPECT_TRUE(decodifica("", 2016).empty());
  EXPECT_TRUE(decodifica(std::string(1899, 'A'), 2016).empty());
  EXPECT_TRUE(decodifica(std::string(1898, 'x'), 2016).empty());
}

}  // namespace
}  // namespace cu::telematico
