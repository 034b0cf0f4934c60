// A run that a database or a disk stops.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "telematic/cu_ele_prova.h"

namespace cu::corsa {
namespace {

TEST_F(CUEleTest, ADatabaseThatRefusesTheMainQueryStopsBeforeAnyFile) {
  database().refuseContaining("tmpprequadrivio12");
  EXPECT_THROW(static_cast<void>(crea()), DatabaseError);
  EXPECT_TRUE(prova_.files.opened.empty());
  EXPECT_EQ(database().readDepth, 0);
}

TEST_F(CUEleTest, ADatabaseThatFailsHalfwayLeavesTheLinesBeforeWithoutAZ) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  database().refuseContaining("IDAnagrafica = 9");
  EXPECT_THROW(static_cast<void>(crea()), DatabaseError);
  EXPECT_EQ(letto().types(), "ABDHDH");
  EXPECT_EQ(prova_.files.openNow, 0);
  EXPECT_EQ(database().readDepth, 0);
}

TEST_F(CUEleTest, AValueThatCannotBeWrittenStopsThereAndTheLinesBeforeStay) {
  Contenuti male = certificato(9, 4, "Rossi", "M");
  male["CodiceEventoEccezionale"] = text("12345678901234567");
  righe({certificato(7, 3, "Bianchi", "A"), male, certificato(11, 3, "Verdi", "A")});
  try {
    static_cast<void>(crea());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 5);
    for (const char* parte : {"Rossi", "M", "DA002009"}) {
      EXPECT_NE(error.description().find(parte), std::string::npos) << error.description();
    }
  }
  EXPECT_EQ(letto().types(), "ABDH");
  EXPECT_EQ(prova_.files.openNow, 0);
}

TEST_F(CUEleTest, AFullDiskAtAnyLineRisesAndTheLinesBeforeStay) {
  const std::string tutte = "ABDHDHZ";
  for (std::size_t n = 0; n < tutte.size(); ++n) {
    test::Prova prova(2016);
    prova.files.folders.insert("/cu");
    prova.database.internal.answerContaining("FROM ModuloXContoIndividuale", test::rispostaModuli({}));
    prova.database.internal.answer(
        kQueryPrincipale,
        test::rispostaPrincipale({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")}));
    prova.files.failNth(test::MemoryFileSystem::Operation::Write, static_cast<int>(n) + 1, 61);
    CUEle ele(prova.ambiente());
    ele.setFilePathName(kFile);
    ele.setDati(dati_);
    try {
      static_cast<void>(ele.Create(kFirma));
      FAIL();
    } catch (const FileError& error) {
      EXPECT_EQ(error.number(), 61);
    }
    EXPECT_EQ(CurFile(prova.files.files.at(kFile)).types(), tutte.substr(0, n));
    EXPECT_EQ(prova.files.openNow, 0);
  }
}

TEST_F(CUEleTest, AShortWriteRisesAndLeavesWhatFitted) {
  righe({certificato(7, 3, "Bianchi", "A")});
  prova_.files.limitSpace(1900 * 2 + 100);
  EXPECT_THROW(static_cast<void>(crea()), FileError);
  EXPECT_EQ(prova_.files.files.at(kFile).size(), 3900U);
  EXPECT_EQ(prova_.files.files.at(kFile).substr(3800, 1), "D");
}

TEST_F(CUEleTest, ACloseThatFailsRises) {
  righe({certificato(7, 3, "Bianchi", "A")});
  prova_.files.failNth(test::MemoryFileSystem::Operation::Close, 1, 61);
  EXPECT_THROW(static_cast<void>(crea()), FileError);
  EXPECT_EQ(prova_.files.openNow, 0);
}

TEST_F(CUEleTest, AnErrorIsToldAlsoWhenTheCloseBehindItFailsToo) {
  righe({certificato(7, 3, "Bianchi", "A")});
  prova_.files.failNth(test::MemoryFileSystem::Operation::Write, 2, 61, "il primo");
  prova_.files.failNth(test::MemoryFileSystem::Operation::Close, 1, 57, "il secondo");
  try {
    static_cast<void>(crea());
    FAIL();
  } catch (const FileError& error) {
    EXPECT_EQ(error.number(), 61);
    EXPECT_EQ(error.description(), "il primo");
  }
}

}  // namespace
}  // namespace cu::corsa
