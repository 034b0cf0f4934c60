#include "telematic/cu_ele.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "telematic/cu_ele_prova.h"

namespace cu::corsa {
namespace {

using Testi = std::vector<std::string>;

TEST_F(CUEleTest, SendsTheQueriesWordForWordInOrder) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 4, "Rossi", "M")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(database().texts(),
            (Testi{kQueryPrincipale, queryModuli(2016, 7, 1, 3), queryModuli(2016, 9, 1, 4)}));
  EXPECT_TRUE(database().texts(FakeConnection::Kind::Execute).empty());
  EXPECT_TRUE(prova_.database.main.sent.empty());
  EXPECT_TRUE(prova_.database.own.sent.empty());
}

TEST_F(CUEleTest, EveryStatementPassesTheSuitesAdaptation) {
  prova_.utilita.adapt = [](const std::string& statement) { return "/*adattata*/" + statement; };
  database().answerContaining("/*adattata*/SELECT tmpprequadrivio12.*",
                              test::rispostaPrincipale({certificato(7, 3, "Bianchi", "A")}));
  EXPECT_TRUE(crea());
  EXPECT_EQ(prova_.utilita.adapted, (Testi{kQueryPrincipale, queryModuli(2016, 7, 1, 3)}));
  EXPECT_EQ(database().texts(),
            (Testi{"/*adattata*/" + kQueryPrincipale, "/*adattata*/" + queryModuli(2016, 7, 1, 3)}));
}

TEST_F(CUEleTest, ReadsTheWholeRunFromOneStateOfTheDatabase) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 4, "Rossi", "M")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(database().reads, 1);
  EXPECT_EQ(database().readDepth, 0);
  for (const FakeConnection::Sent& testo : database().sent) EXPECT_TRUE(testo.insideRead);
}

TEST_F(CUEleTest, WithoutRowsNoFileIsTouchedAndTheRunWentThrough) {
  prova_.files.files[kFile] = "vecchio";
  righe({});
  EXPECT_TRUE(crea());
  EXPECT_TRUE(prova_.files.opened.empty());
  EXPECT_EQ(prova_.files.files.at(kFile), "vecchio");
  EXPECT_EQ(ele_.rifiuto(), "");
}

TEST_F(CUEleTest, AFolderThatNoLongerExistsIsToldAndNothingIsWritten) {
  prova_.files.folders.clear();
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_FALSE(crea());
  EXPECT_EQ(ele_.rifiuto(), "Attenzione! Il percorso per il salvataggio dei files è inesistente!");
  EXPECT_TRUE(prova_.files.files.empty());
  EXPECT_EQ(database().sent.size(), 1U);
  EXPECT_EQ(database().readDepth, 0);
}

TEST_F(CUEleTest, AnExistingFileIsReplacedWithoutAQuestion) {
  prova_.files.files[kFile] = std::string(100000, 'x');
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHZ");
  EXPECT_EQ(ele_.rifiuto(), "");
}

TEST_F(CUEleTest, TwoReasonsOfOnePayeeAreTwoCertificates) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(7, 4, "Bianchi", "M")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHDHZ");
  EXPECT_EQ(letto().line('D', 1).at(42, 5), "00001");
  EXPECT_EQ(letto().line('D', 2).at(42, 5), "00002");
  EXPECT_EQ(letto().line('H', 2).at(42, 5), "00002");
  EXPECT_EQ(moduliDi('H'), (Testi{"00000001", "00000001"}));
}

TEST_F(CUEleTest, ModuleNumbersRestartWithEveryCertificate) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(8, 3, "Neri", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(8, 3, {{{"AnnoModulo", whole(2010)}}, {{"AnnoModulo", whole(2011)}}});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHDHHHDHZ");
  EXPECT_EQ(moduliDi('H'), (Testi{"00000001", "00000001", "00000002", "00000003", "00000001"}));
  EXPECT_EQ(letto().line('Z').at(34, 9), "000000003");
  EXPECT_EQ(letto().line('Z').at(52, 9), "000000005");
  EXPECT_EQ(letto().line('H', 3).value("AU001002"), "            2010");
  EXPECT_EQ(letto().line('H', 4).value("AU001002"), "            2011");
  for (std::size_t n : {2U, 3U, 4U}) {
    EXPECT_EQ(letto().line('H', n).at(26, 16), "CF8             ");
    EXPECT_EQ(letto().line('H', n).at(42, 5), "00002");
  }
}

TEST_F(CUEleTest, AnAnnulmentHasNoAmounts) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(7, 3, {{{"AnnoModulo", whole(2010)}}});
  EXPECT_TRUE(crea(2));
  EXPECT_EQ(letto().types(), "ABDDZ");
  EXPECT_EQ(letto().line('Z').at(34, 9), "000000002");
  EXPECT_EQ(letto().line('Z').at(52, 9), "000000000");
  EXPECT_EQ(letto().line('B').at(91, 2), "10");
  EXPECT_EQ(letto().line('D', 1).at(84, 1), "A");
  EXPECT_EQ(letto().line('D', 1).at(47, 17), "17030512345678901");
  EXPECT_EQ(letto().line('D', 1).at(64, 6), "000042");
  EXPECT_EQ(database().texts(), Testi{kQueryPrincipale});
}

TEST_F(CUEleTest, AReplacementHasAmountsAndAnSInEveryCertificate) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  EXPECT_TRUE(crea(3));
  EXPECT_EQ(letto().types(), "ABDHDHZ");
  EXPECT_EQ(letto().line('B').at(91, 2), "01");
  for (std::size_t n : {1U, 2U}) {
    EXPECT_EQ(letto().line('D', n).at(84, 1), "S");
    EXPECT_EQ(letto().line('D', n).at(47, 17), "17030512345678901");
  }
}

TEST_F(CUEleTest, AnOrdinarySupplyHasNoReferences) {
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea(1));
  EXPECT_EQ(letto().line('B').at(91, 2), "00");
  EXPECT_EQ(letto().line('D').at(84, 1), " ");
  EXPECT_EQ(letto().line('D').at(47, 17), "00000000000000000");
  EXPECT_EQ(letto().line('D').at(64, 6), "000000");
}

TEST_F(CUEleTest, TheFrontispieceCountsTheCertificates) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(8, 3, "Neri", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(8, 3, {{}, {}});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('B').at(402, 8), "00000003");
}

TEST_F(CUEleTest, TheSenderIsTheIntermediaryOrTheCompany) {
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('A').at(21, 2), "01");
  EXPECT_EQ(letto().line('A').at(23, 16), "01234567890     ");
  EXPECT_EQ(letto().line('B').at(437, 1), "0");
  EXPECT_EQ(letto().line('B').at(412, 16), "INTERMED00000001");
  EXPECT_EQ(letto().line('B').at(428, 1), "2");
  EXPECT_EQ(letto().line('B').at(429, 8), "01032017");

  CUEle altra(prova_.ambiente());
  altra.setFilePathName(kFile);
  dati_.UsoIntermediari = true;
  altra.setDati(dati_);
  EXPECT_TRUE(altra.Create(kFirma));
  EXPECT_EQ(letto().line('A').at(21, 2), "10");
  EXPECT_EQ(letto().line('A').at(23, 16), "INTERMED00000001");
  EXPECT_EQ(letto().line('B').at(2, 16), "01234567890     ");
  EXPECT_EQ(letto().line('B').at(437, 1), "1");
}

TEST_F(CUEleTest, CertificatesStandInTheOrderOfTheQuery) {
  righe({certificato(9, 3, "Zeta", "A"), certificato(7, 3, "Alfa", "B"), certificato(8, 3, "Mu", "C")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('D', 1).value("DA002002"), "ZETA");
  EXPECT_EQ(letto().line('D', 2).value("DA002002"), "ALFA");
  EXPECT_EQ(letto().line('D', 3).value("DA002002"), "MU");
}

TEST_F(CUEleTest, EveryLineIs1900BytesFromAToZWithTheMarkAtItsEnd) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "N")});
  moduli(9, 3, {{}});
  EXPECT_TRUE(crea());
  const CurFile file = letto();
  EXPECT_EQ(file.lines().front().type(), 'A');
  EXPECT_EQ(file.lines().back().type(), 'Z');
  for (const test::CurLine& linea : file.lines()) EXPECT_EQ(linea.at(1898, 1), "A");
}

TEST_F(CUEleTest, TheSignatureReachesEveryCertificate) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "N")});
  EXPECT_TRUE(crea());
  for (std::size_t n : {1U, 2U}) EXPECT_EQ(letto().line('D', n).value("DA003001"), "        28022017");
}

TEST_F(CUEleTest, TheFileIsClosedWhenTheRunIsOver) {
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(prova_.files.openNow, 0);
  EXPECT_EQ(ele_.FileName(), "CUR_01234567890_2016.cur");
  EXPECT_EQ(ele_.FilePathName(), kFile);
}

TEST_F(CUEleTest, EachCertificateIsFollowedByItsOwnModules) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(7, 3, {{{"AnnoModulo", whole(2010)}}});
  moduli(9, 3, {{{"AnnoModulo", whole(2011)}}, {{"AnnoModulo", whole(2012)}}});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHHDHHHZ");
  EXPECT_EQ(letto().line('H', 2).value("AU001002"), "            2010");
  EXPECT_EQ(letto().line('H', 4).value("AU001002"), "            2011");
  EXPECT_EQ(letto().line('H', 5).value("AU001002"), "            2012");
}

TEST_F(CUEleTest, ModuleRowsOfAnotherShapeAreReadByTheirOwnNames) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(7, 3, {{{"AnnoModulo", whole(2010)}}});
  std::vector<std::string> girate(test::kColonneModulo.rbegin(), test::kColonneModulo.rend());
  database().answer(queryModuli(2016, 9, 1, 3), test::risposta(girate, {{{"AnnoModulo", whole(2012)}}}));
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('H', 2).values().size(), 1U);
  EXPECT_EQ(letto().line('H', 4).value("AU001002"), "            2012");
}

}  // namespace
}  // namespace cu::corsa
