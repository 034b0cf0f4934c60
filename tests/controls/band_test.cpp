#include "controls/band.h"

#include <gtest/gtest.h>

#include "controls/controls_support.h"

namespace cu {
namespace {

TEST(SideBand, ListsItemsAndSelectsFromOne) {
  test::Stage stage;
  SideBand band(stage.form, "ctlWizardSideBand", nullptr);
  EXPECT_EQ(band.selected(), 0);
  band.add("- Passo iniziale", "Filtri di selezione");
  band.add("- Passo finale", "Completamento delle operazioni");
  ASSERT_EQ(band.items().size(), 2U);
  EXPECT_EQ(band.items()[1].title, "- Passo finale");
  EXPECT_EQ(band.items()[1].description, "Completamento delle operazioni");
  band.select(2);
  EXPECT_EQ(band.selected(), 2);
}

TEST(SideBand, ANumberWithoutAnItemChangesNothing) {
  test::Stage stage;
  SideBand band(stage.form, "ctlWizardSideBand", nullptr);
  band.select(1);
  EXPECT_EQ(band.selected(), 0);
  band.add("- Passo iniziale", "");
  band.select(1);
  band.select(2);
  band.select(0);
  band.select(-1);
  EXPECT_EQ(band.selected(), 1);
}

TEST(SideBand, ClearedItHasNothing) {
  test::Stage stage;
  SideBand band(stage.form, "ctlWizardSideBand", nullptr);
  test::CountingView view;
  band.attach(&view);
  band.add("a", "b");
  band.select(1);
  band.clear();
  EXPECT_TRUE(band.items().empty());
  EXPECT_EQ(band.selected(), 0);
  EXPECT_EQ(view.changes, 3);
}

}  // namespace
}  // namespace cu
