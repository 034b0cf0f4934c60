// A run ended by a database error before the file.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/creazione_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

TEST_F(FileRun, ADatabaseErrorRisesAndWhatWasStoredStays) {
  vaiAllaFine();
  database.internal.refuseContaining("AS CodFisc", DatabaseErrorKind::Timeout, "Tempo scaduto.");
  avviaRun();
  ASSERT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_EQ(frontEnd.errors[0].text, "Tempo scaduto.");
  EXPECT_EQ(passo(), 2);
  EXPECT_THAT(istruzioni(), SizeIs(2));
  EXPECT_TRUE(factory.logs[0].released);
}

TEST_F(FileRun, AnErrorThatRisesBeforeTheFileSaysThatThereIsNone) {
  certificati(1);
  vaiAllaFine();
  for (const char* istruzione : {"AS CodFisc", "EXEC('MERGE INTO", "UPDATE ContoIndividuale SET"}) {
    database.internal.refuseContaining(istruzione, DatabaseErrorKind::Locked, "Occupato.");
    frontEnd.facts.clear();
    avviaRun();
    EXPECT_THAT(frontEnd.facts, ElementsAre("Il file telematico non è stato creato.")) << istruzione;
  }
  EXPECT_THAT(frontEnd.errors, SizeIs(3));
}

}  // namespace
}  // namespace cu::test
