// Another session of the same user has loaded its lines into the work table between two steps of this one.

#include <gmock/gmock.h>

#include "base/error.h"
#include "wizard/creazione_prova.h"

namespace cu::test {
namespace {

class LinesOfAnotherSession : public FileRun {
 protected:
  LinesOfAnotherSession() {
    certificati(1);
    vaiAllaFine();
  }
};

TEST_F(LinesOfAnotherSession, AreNotWrittenWhereTheOverviewHasShownOthers) {
  ASSERT_FALSE(form().outlook().empty());
  inTabella({workRow(977, 1, {{"Anno", whole(2017)}})});
  avviaRun();
  ASSERT_EQ(frontEnd.errors.size(), 1U);
  EXPECT_EQ(frontEnd.errors.front().number, kErrorRowGone);
  EXPECT_THAT(files.files, testing::IsEmpty());
  EXPECT_THAT(database.internal.sent, testing::IsEmpty()) << "nothing has been stored";
  EXPECT_EQ(passo(), 2);
}

// Whoever shows nothing beforehand has no statement more.
TEST_F(LinesOfAnotherSession, AreNotLookedForWithoutAnOverview) {
  inTabella({});
  avviaRun();
  EXPECT_THAT(frontEnd.errors, testing::IsEmpty());
  EXPECT_TRUE(riuscito());
}

}  // namespace
}  // namespace cu::test
