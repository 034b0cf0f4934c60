#include "telematic/cu_file_seq.h"

#include <gtest/gtest.h>

#include <string>

#include "base/error.h"
#include "support/cur_reader.h"
#include "telematic/prova.h"

namespace cu {
namespace {

using test::MemoryFileSystem;
using test::Prova;
using test::riga;

std::string conA(int anno, bool intermediari, const std::string& codiceFiscale) {
  Prova prova(anno);
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  EXPECT_TRUE(file.OpenFile());
  file.WriteRecordTipoA(intermediari, codiceFiscale);
  file.CloseFile();
  return prova.files.files.at("/prova.cur");
}

TEST(RecordA, HoldsSupplySenderAndMarkAndNothingElse) {
  EXPECT_EQ(conA(2016, false, "01234567890"), riga('A', 2016,
                                                   {{"Tipo Record", "A"},
                                                    {"Codice fornitura", "CUR17"},
                                                    {"Tipo fornitore", "01"},
                                                    {"Cod. Fisc. fornitore", "01234567890"},
                                                    {"Filler 6", "A"}}));
}

TEST(RecordA, AnIntermediaryIsSupplierTypeTen) {
  EXPECT_EQ(conA(2016, true, "rssmra80a01l781x"), riga('A', 2016,
                                                       {{"Tipo Record", "A"},
                                                        {"Codice fornitura", "CUR17"},
                                                        {"Tipo fornitore", "10"},
                                                        {"Cod. Fisc. fornitore", "RSSMRA80A01L781X"},
                                                        {"Filler 6", "A"}}));
}

TEST(RecordA, TheSupplyIsNamedAfterTheYearInWhichItIsFiled) {
  for (const auto& [anno, codice] :
       {std::pair(2013, "CUR14"), std::pair(2014, "CUR15"), std::pair(2015, "CUR16"),
        std::pair(2016, "CUR17"), std::pair(2017, "CUR18"), std::pair(2018, "CUR19"),
        std::pair(2099, "CUR00"), std::pair(2008, "CUR09")}) {
    EXPECT_EQ(conA(anno, false, "x").substr(15, 5), codice);
  }
}

TEST(RecordA, ASenderLongerThanItsFieldIsCutAndAccentsAreOneByte) {
  EXPECT_EQ(conA(2016, false, "àbcdefghijklmnopqrst").substr(22, 20),
            "\xC0"
            "BCDEFGHIJKLMNOP    ");
}

TEST(RecordZ, CountsOneBAndWhatWasWritten) {
  Prova prova(2016);
  const test::Righe righe(test::rispostaPrincipale({{{"CodiceFiscale", test::text("RSSMRA80A01L781X")}}}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(righe.colonne());
  EXPECT_EQ(file.NumRecD(), 0);
  EXPECT_EQ(file.NumRecH(), 0);
  for (int n = 1; n <= 3; ++n) file.WriteRecordTipoD(righe[0], n, "x", Comunicazione::Ordinaria, Date());
  for (int n = 1; n <= 2; ++n) file.WriteRecordTipoH(righe[0], n, 1, "x", nullptr);
  EXPECT_EQ(file.NumRecD(), 3);
  EXPECT_EQ(file.NumRecH(), 2);
  file.WriteRecordTipoZ(righe[0], Date(), 0, 0);
  file.CloseFile();
  const std::string& contenuto = prova.files.files.at("/prova.cur");
  EXPECT_EQ(contenuto.substr(contenuto.size() - 1900), riga('Z', 2016,
                                                            {{"Tipo Record", "Z"},
                                                             {"N° rec. Tipo B", "000000001"},
                                                             {"N° rec. Tipo C", "000000000"},
                                                             {"N° rec. Tipo D", "000000003"},
                                                             {"N° rec. Tipo G", "000000000"},
                                                             {"N° rec. Tipo H", "000000002"},
                                                             {"N° rec. Tipo L", "000000000"},
                                                             {"Filler 6", "A"}}));
}

TEST(RecordZ, AFileWithoutHHasZerosThere) {
  Prova prova(2016);
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  file.WriteRecordTipoZ(nullptr, Date(), 0, 0);
  const test::CurFile letto(prova.files.files.at("/prova.cur"));
  EXPECT_EQ(letto.line('Z').at(34, 9), "000000000");
  EXPECT_EQ(letto.line('Z').at(52, 9), "000000000");
}

TEST(CUFileSeqOpenFile, AMissingFolderYieldsFalseAndSaysWhy) {
  Prova prova(2016);
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/manca/prova.cur");
  EXPECT_FALSE(file.OpenFile());
  EXPECT_EQ(file.rifiuto(), "Attenzione! Il percorso per il salvataggio dei files è inesistente!");
  EXPECT_TRUE(prova.files.files.empty());
}

TEST(CUFileSeqOpenFile, AnUnwritableTargetYieldsFalseWithoutAWord) {
  for (const int numero : {70, 75, 61, 57, 53}) {
    Prova prova(2016);
    prova.files.failNth(MemoryFileSystem::Operation::Open, 1, numero);
    CUFileSeq file(prova.ambiente());
    file.setFilePathName("/prova.cur");
    EXPECT_FALSE(file.OpenFile()) << numero;
    EXPECT_EQ(file.rifiuto(), "") << numero;
  }
}

TEST(CUFileSeqOpenFile, AFileAlreadyOpenYieldsFalseWithoutAWord) {
  Prova prova(2016);
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  EXPECT_TRUE(file.OpenFile());
  EXPECT_FALSE(file.OpenFile());
  EXPECT_EQ(file.rifiuto(), "");
}

TEST(CUFileSeq, NamesGoThroughToTheFile) {
  Prova prova(2016);
  CUFileSeq file(prova.ambiente());
  file.setFileName("CUR_x_2016.cur");
  file.setFilePathName("/CUR_x_2016.cur");
  EXPECT_EQ(file.FileName(), "CUR_x_2016.cur");
  EXPECT_EQ(file.FilePathName(), "/CUR_x_2016.cur");
  ASSERT_TRUE(file.OpenFile());
  EXPECT_EQ(prova.files.opened, std::vector<std::string>{"/CUR_x_2016.cur"});
}

TEST(CUFileSeq, ShowClosesTheFileAndOpensTheViewer) {
  Prova prova(2016);
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  file.ShowFile();
  EXPECT_EQ(prova.files.openNow, 0);
  EXPECT_EQ(prova.frontEnd.viewed, std::vector<std::string>{"/prova.cur"});
}

TEST(CUFileSeq, GoesWithItsFileClosedAlsoWhenTheCloseFails) {
  Prova prova(2016);
  {
    CUFileSeq file(prova.ambiente());
    file.setFilePathName("/prova.cur");
    ASSERT_TRUE(file.OpenFile());
    file.WriteRecordTipoA(false, "x");
  }
  EXPECT_EQ(prova.files.openNow, 0);
  {
    CUFileSeq file(prova.ambiente());
    file.setFilePathName("/prova.cur");
    ASSERT_TRUE(file.OpenFile());
    prova.files.failNth(MemoryFileSystem::Operation::Close, 1, 61);
  }
  EXPECT_EQ(prova.files.openNow, 0);
}

TEST(CUFileSeq, ReopeningTheSameObjectEmptiesTheFileAndKeepsTheCounters) {
  Prova prova(2016);
  const test::Righe righe(test::rispostaPrincipale({{}}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(righe.colonne());
  file.WriteRecordTipoD(righe[0], 1, "x", Comunicazione::Ordinaria, Date());
  file.CloseFile();
  ASSERT_TRUE(file.OpenFile());
  EXPECT_EQ(prova.files.files.at("/prova.cur"), "");
  EXPECT_EQ(file.NumRecD(), 1);
}

TEST(CUFileSeq, ACertificateNeedsToKnowItsColumns) {
  Prova prova(2016);
  const test::Righe righe(test::rispostaPrincipale({{}}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  EXPECT_THROW(file.WriteRecordTipoD(righe[0], 1, "x", Comunicazione::Ordinaria, Date()), Error);
  EXPECT_THROW(file.WriteRecordTipoH(righe[0], 1, 1, "x", nullptr), Error);
  file.legaQueryPrincipale(righe.colonne());
  EXPECT_THROW(file.WriteRecordTipoH(righe[0], 1, 2, "x", righe[0]), Error);
  EXPECT_EQ(prova.files.files.at("/prova.cur"), "");
}

TEST(CUFileSeq, TheFrontispieceNeedsToKnowItsColumns) {
  Prova prova(2016);
  std::vector<std::string> colonne;
  for (const std::string& nome : test::colonnePrincipali()) {
    if (nome != "CodiceCarica") colonne.push_back(nome);
  }
  const test::Righe righe(test::risposta(colonne, {{}}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  const auto numero = [&] {
    try {
      file.WriteRecordTipoB(righe[0], 1, "x", Comunicazione::Ordinaria, "", false, "", Date());
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  };
  EXPECT_EQ(numero(), kErrorObjectNotSet);
  file.legaQueryPrincipale(righe.colonne());
  EXPECT_EQ(numero(), kErrorItemNotFound);
  EXPECT_EQ(prova.files.files.at("/prova.cur"), "");
}

TEST(CUFileSeq, AColumnThatTheYearNeedsMustBeThere) {
  for (const char* manca :
       {"DataNascita", "CodiceFiscale", "ProtocolloAnnSost", "AmmontareLordo", "NonResidente"}) {
    Prova prova(2016);
    std::vector<std::string> colonne;
    for (const std::string& nome : test::colonnePrincipali()) {
      if (nome != manca) colonne.push_back(nome);
    }
    const test::Righe righe(test::risposta(colonne, {{}}));
    CUFileSeq file(prova.ambiente());
    try {
      file.legaQueryPrincipale(righe.colonne());
      ADD_FAILURE() << manca;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 3265);
      EXPECT_NE(error.description().find(manca), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace cu
