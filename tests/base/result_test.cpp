#include "base/result.h"

#include <gtest/gtest.h>

namespace cu {
namespace {

TEST(Result, WithoutRefusalsThereIsAValue) {
  const Result<int> esito(7);
  EXPECT_TRUE(esito);
  EXPECT_EQ(*esito, 7);
}

TEST(Result, AWarningIsNoRefusal) {
  Result<> esito(Done{});
  esito.warnings.push_back({"codice", "testo", "posto"});
  EXPECT_TRUE(esito);
}

TEST(Result, ARefusalMayComeWithAValueOrWithout) {
  Result<int> esito(7);
  esito.refusals.push_back({"codice", "testo", ""});
  EXPECT_FALSE(esito);
  EXPECT_EQ(*esito, 7);
  const auto senza = Result<int>::refused({"codice", "testo", ""});
  EXPECT_FALSE(senza);
  EXPECT_THROW(static_cast<void>(*senza), std::bad_optional_access);
}

}  // namespace
}  // namespace cu
