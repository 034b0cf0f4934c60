#include "telematic/elabora_compensi.h"

#include <gtest/gtest.h>

#include <string>

#include "base/error.h"
#include "data/recordset.h"
#include "support/cur_reader.h"
#include "telematic/prova.h"

namespace cu {
namespace {

using test::MemoryFileSystem;
using test::text;
using test::whole;

constexpr const char* kFileElaborato = "/cu/CUR_01234567890_2016.cur";
const Date kFirma = Date::fromYmd(2017, 2, 28).value();

class ElaboraCompensiTest : public testing::Test {
 protected:
  ElaboraCompensiTest() {
    prova_.files.folders = {"/cu", "/documenti"};
    test::FakeConnection& database = prova_.database.internal;
    database.answerContaining("FROM tmpprequadrivio12",
                              test::rispostaPrincipale({{{"Anno", whole(2016)},
                                                         {"IDAnagrafica", whole(7)},
                                                         {"IDAzienda", whole(1)},
                                                         {"IDCausalePagamento", whole(3)}}}));
    database.answerContaining("FROM ModuloXContoIndividuale", test::rispostaModuli({}));
    DatiFornitura dati;
    dati.CodiceFiscaleAzienda = "01234567890";
    elabora_.setDati(dati);
    elabora_.setFileName("CUR_01234567890_2016.cur");
    elabora_.setFilePathName(kFileElaborato);
    elabora_.setFilePathNameMyDocuments(kFileElaborato);
    elabora_.setFolderPathNameMyDocuments("/documenti/CU");
  }
  std::string tipi(const std::string& file) { return test::CurFile(prova_.files.files.at(file)).types(); }
  template <class Operation>
  static int errore(const Operation& operation) {
    try {
      operation();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  }

  test::Prova prova_{2016};
  ElaboraCompensi elabora_{prova_.ambiente()};
};

TEST_F(ElaboraCompensiTest, MakesTheFileAndTheFolderOfTheDocuments) {
  EXPECT_TRUE(elabora_.CreaFiles(kFirma));
  EXPECT_EQ(tipi(kFileElaborato), "ABDHZ");
  EXPECT_TRUE(prova_.files.folders.contains("/documenti/CU"));
  EXPECT_EQ(prova_.files.files.size(), 1U);
  EXPECT_EQ(elabora_.certificazioni(), 1U);
}

TEST_F(ElaboraCompensiTest, AFolderThatIsThereIsLeftAlone) {
  prova_.files.folders.insert("/documenti/CU");
  prova_.files.failNth(MemoryFileSystem::Operation::CreateFolder, 1, 75);
  EXPECT_TRUE(elabora_.CreaFiles(kFirma));
}

TEST_F(ElaboraCompensiTest, TheFolderIsMadeAlsoWhenNothingIsWritten) {
  prova_.database.internal.answerContaining("FROM tmpprequadrivio12", test::rispostaPrincipale({}));
  EXPECT_TRUE(elabora_.CreaFiles(kFirma));
  EXPECT_TRUE(prova_.files.folders.contains("/documenti/CU"));
  EXPECT_TRUE(prova_.files.files.empty());
  EXPECT_EQ(elabora_.certificazioni(), 0U);
}

TEST_F(ElaboraCompensiTest, AMissingParentIsAnErrorBeforeAnyFileIsTouched) {
  prova_.files.folders.erase("/documenti");
  EXPECT_EQ(errore([&] { static_cast<void>(elabora_.CreaFiles(kFirma)); }), 76);
  EXPECT_TRUE(prova_.files.files.empty());
  EXPECT_TRUE(prova_.database.internal.sent.empty());
  EXPECT_EQ(elabora_.rifiuto(), "");
}

TEST_F(ElaboraCompensiTest, AFolderThatCannotBeMadeIsAnErrorBeforeAnyFileIsTouched) {
  prova_.files.failNth(MemoryFileSystem::Operation::CreateFolder, 1, 75);
  EXPECT_EQ(errore([&] { static_cast<void>(elabora_.CreaFiles(kFirma)); }), 75);
  EXPECT_TRUE(prova_.files.files.empty());
}

TEST_F(ElaboraCompensiTest, AMissingTargetFolderIsToldAndYieldsFalse) {
  prova_.files.folders.erase("/cu");
  elabora_.setFilePathNameMyDocuments("/documenti/altro.cur");
  EXPECT_FALSE(elabora_.CreaFiles(kFirma));
  EXPECT_EQ(elabora_.rifiuto(), "Attenzione! Il percorso per il salvataggio dei files è inesistente!");
  EXPECT_TRUE(prova_.files.files.empty());
}

TEST_F(ElaboraCompensiTest, AnotherPathOfTheDocumentsGetsACopyThatOverwrites) {
  prova_.files.files["/documenti/CU/copia.cur"] = "vecchia";
  prova_.files.folders.insert("/documenti/CU");
  elabora_.setFilePathNameMyDocuments("/documenti/CU/copia.cur");
  EXPECT_TRUE(elabora_.CreaFiles(kFirma));
  EXPECT_EQ(prova_.files.files.at("/documenti/CU/copia.cur"), prova_.files.files.at(kFileElaborato));
  EXPECT_EQ(tipi(kFileElaborato), "ABDHZ");
}

TEST_F(ElaboraCompensiTest, ACopyThatFailsRisesAndTheFileIsThere) {
  elabora_.setFilePathNameMyDocuments("/documenti/CU/copia.cur");
  prova_.files.failNth(MemoryFileSystem::Operation::Copy, 1, 61);
  EXPECT_EQ(errore([&] { static_cast<void>(elabora_.CreaFiles(kFirma)); }), 61);
  EXPECT_EQ(tipi(kFileElaborato), "ABDHZ");
}

TEST_F(ElaboraCompensiTest, EachRunBeginsWithCountersAtZero) {
  EXPECT_TRUE(elabora_.CreaFiles(kFirma));
  EXPECT_EQ(test::CurFile(prova_.files.files.at(kFileElaborato)).line('A').at(16, 5), "CUR17");
  EXPECT_TRUE(elabora_.CreaFiles(kFirma));
  const test::CurFile secondo(prova_.files.files.at(kFileElaborato));
  EXPECT_EQ(secondo.types(), "ABDHZ");
  EXPECT_EQ(secondo.line('Z').at(34, 9), "000000001");
}

TEST_F(ElaboraCompensiTest, KeepsACloneOfTheWorklistAndReadsByItsOwnQuery) {
  test::FakeConnection worklist;
  worklist.answer("tmpprequadrivio12", test::Table({"Selezionato"}, {{whole(0)}, {whole(0)}}));
  Recordset righe;
  righe.Open(worklist, "tmpprequadrivio12");
  righe.MoveNext();
  elabora_.setRsMain(righe);
  elabora_.sbWriteRecord();
  elabora_.sbShowLog();
  EXPECT_TRUE(elabora_.CreaFiles(kFirma));
  EXPECT_EQ(righe.AbsolutePosition(), 2U);
  EXPECT_EQ(tipi(kFileElaborato), "ABDHZ");
  Recordset chiuso;
  EXPECT_EQ(errore([&] { elabora_.setRsMain(chiuso); }), 3704);
}

TEST_F(ElaboraCompensiTest, NamesCanBeReadBack) {
  EXPECT_EQ(elabora_.FileName(), "CUR_01234567890_2016.cur");
  EXPECT_EQ(elabora_.FilePathName(), kFileElaborato);
}

TEST_F(ElaboraCompensiTest, AnErrorOfTheRunRisesAndNothingIsCopied) {
  elabora_.setFilePathNameMyDocuments("/documenti/CU/copia.cur");
  prova_.files.failNth(MemoryFileSystem::Operation::Write, 3, 61);
  EXPECT_EQ(errore([&] { static_cast<void>(elabora_.CreaFiles(kFirma)); }), 61);
  EXPECT_EQ(tipi(kFileElaborato), "AB");
  EXPECT_FALSE(prova_.files.files.contains("/documenti/CU/copia.cur"));
}

}  // namespace
}  // namespace cu
