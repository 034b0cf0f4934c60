// The boxes of an editor: one grid of columns over all sections, and the numbers of the printed form.

#include "desktop/cells.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <set>
#include <vector>

#include "desktop/screen_support.h"

namespace cu::test {
namespace {

class BoxGrid : public ::testing::Test, public ::testing::WithParamInterface<const char*> {
 protected:
  std::vector<const desktop::CellBox*> shownBoxes() {
    std::vector<const desktop::CellBox*> found;
    for (const auto* widget : screen.top()->findChildren<QWidget*>()) {
      const auto* const box = dynamic_cast<const desktop::CellBox*>(widget);
      if (box != nullptr && box->isVisible()) found.push_back(box);
    }
    return found;
  }
  Screen screen;
};

TEST_P(BoxGrid, HasTheSameColumnsInEverySection) {
  screen.inEditor(GetParam(), [&] {
    for (const int width : {700, 1024, 1400}) {
      screen.top()->resize(width, 600);
      settle();
      std::set<int> lefts;
      int boxes = 0;
      int widest = 0;
      for (const auto* box : shownBoxes()) widest = std::max(widest, box->width());
      for (const auto* box : shownBoxes()) {
        if (box->width() < widest) continue;  // two sections side by side
        ++boxes;
        for (const QObject* child : box->children()) {
          const auto* const cell = dynamic_cast<const desktop::Cell*>(child);
          if (cell != nullptr && cell->isVisible()) {
            lefts.insert(cell->mapTo(screen.top(), QPoint()).x());
          }
        }
      }
      EXPECT_GE(boxes, 2) << width;
      EXPECT_LE(lefts.size(), 5U) << width;
    }
  });
}

TEST_P(BoxGrid, ShowsTheNumbersOfThePrintedForm) {
  screen.inEditor(GetParam(), [&] {
    const auto titleOf = [&](const char* name) {
      const auto* const cell = screen.find<QWidget>(name)->parentWidget();
      QStringList texts;
      for (const auto* label : cell->findChildren<QLabel*>()) texts += label->text();
      return texts.join(u' ');
    };
    EXPECT_TRUE(titleOf("curField(10)").contains(QStringLiteral("4 Ammontare")))
        << titleOf("curField(10)").toStdString();
    EXPECT_TRUE(titleOf("curField(19)").contains(QStringLiteral("8 Imponibile")));
    EXPECT_TRUE(titleOf("curField(22)").contains(QStringLiteral("7.b ")));
    EXPECT_TRUE(titleOf("curField(11)").contains(QStringLiteral("5 Somme")));
  });
}

INSTANTIATE_TEST_SUITE_P(Years, BoxGrid, ::testing::Values("2014", "2015", "2016", "2017"),
                         [](const auto& year) { return std::string(year.param); });

}  // namespace
}  // namespace cu::test
