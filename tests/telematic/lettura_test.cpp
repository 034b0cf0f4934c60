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

std::string buono() {
  return riga('A', 2016, {{"Tipo Record", "A"}, {"Codice fornitura", "CUR17"}, {"Filler 6", "A"}}) +
         riga('B', 2016, {{"Tipo Record", "B"}, {"Filler 26", "A"}}) +
         riga('D', 2016, {{"Tipo Record", "D"}, {"Filler 3", "A"}}) +
         riga('H', 2016, {{"Tipo Record", "H"}, {"Filler 7", "A"}}) +
         riga('H', 2016, {{"Tipo Record", "H"}, {"Filler 7", "A"}}) + rigaZ("000000001", "000000002");
}

TEST(Riepiloga, CountsTheLinesOfEachTypeAndTheBytes) {
  const RiepilogoFile r = riepiloga(buono());
  EXPECT_EQ(r.byte, 6U * 1900U);
  EXPECT_EQ(r.righe, 6U);
  EXPECT_EQ(r.righeA, 1U);
  EXPECT_EQ(r.righeB, 1U);
  EXPECT_EQ(r.righeD, 1U);
  EXPECT_EQ(r.righeH, 2U);
  EXPECT_EQ(r.righeZ, 1U);
  EXPECT_EQ(r.anno, 2016);
  EXPECT_TRUE(r.completo());
  EXPECT_EQ(inParole(r), "11400 byte, 6 righe: 1 A, 1 B, 1 D, 2 H, 1 Z. Il file è completo.");
}

TEST(Riepiloga, AFileWithoutZIsIncomplete) {
  const std::string contenuto = buono();
  const RiepilogoFile r = riepiloga(contenuto.substr(0, contenuto.size() - 1900));
  EXPECT_EQ(inParole(r),
            "9500 byte, 5 righe: 1 A, 1 B, 1 D, 2 H, 0 Z. Manca il record Z: il file è incompleto.");
}

TEST(Riepiloga, TellsWhatIsWrongWithADamagedFile) {
  const std::string contenuto = buono();
  EXPECT_EQ(riepiloga("").difetto, "Il file è vuoto.");
  EXPECT_EQ(inParole(riepiloga("A")),
            "1 byte, 1 riga: 1 A, 0 B, 0 D, 0 H, 0 Z. La riga 1 non è lunga 1900 byte.");
  EXPECT_EQ(riepiloga(contenuto.substr(0, 3000)).difetto, "La riga 2 non è lunga 1900 byte.");
  std::string guasto = contenuto;
  guasto[3 * 1900 - 1] = ' ';
  EXPECT_EQ(riepiloga(guasto).difetto, "La riga 3 non è lunga 1900 byte.");
  EXPECT_EQ(riepiloga(contenuto.substr(1900)).difetto, "Il file non comincia con il record A.");
  EXPECT_EQ(riepiloga(contenuto.substr(1900)).anno, 0);
  guasto = contenuto;
  guasto.replace(guasto.size() - 1900, 1900, rigaZ("000000001", "000000003"));
  EXPECT_EQ(riepiloga(guasto).difetto, "I totali del record Z non corrispondono alle righe del file.");
  guasto.replace(guasto.size() - 1900, 1900, rigaZ("000000002", "000000002"));
  EXPECT_EQ(riepiloga(guasto).difetto, "I totali del record Z non corrispondono alle righe del file.");
  std::string dueB = contenuto;
  dueB.insert(1900, contenuto.substr(1900, 1900));
  EXPECT_EQ(riepiloga(dueB).difetto, "I totali del record Z non corrispondono alle righe del file.");
  for (const std::size_t at : {15U, 19U}) {
    guasto = contenuto;
    guasto[at] = 'x';
    EXPECT_EQ(riepiloga(guasto).anno, 0) << at;
  }
}

TEST(Riepiloga, ReadsAnyTruncationAndAnyByteWithoutHarm) {
  const std::string contenuto = buono();
  for (std::size_t n = 0; n <= contenuto.size(); n += 37)
    EXPECT_FALSE(riepiloga(contenuto.substr(0, n)).completo());
  for (std::size_t at = 0; at < contenuto.size(); at += 311) {
    std::string guasto = contenuto;
    guasto[at] = '\0';
    EXPECT_EQ(riepiloga(guasto).byte, contenuto.size());
    for (std::size_t n = 0; n < guasto.size(); n += 1900) {
      for (const std::string& testo : decodifica(std::string_view(guasto).substr(n, 1898), 2016)) {
        EXPECT_NE(testo.find(": "), std::string::npos);
      }
    }
  }
}

std::string senzaFine(std::string linea) {
  linea.resize(1898);
  return linea;
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
