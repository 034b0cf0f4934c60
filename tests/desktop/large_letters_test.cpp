// Large letters: hints, columns, notes and windows have room for them, or say elsewhere what they have not.

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <algorithm>

#include "desktop/elided_line.h"
#include "desktop/first_size.h"
#include "desktop/flow_row.h"
#include "desktop/grid_support.h"
#include "desktop/hint.h"
#include "desktop/look.h"
#include "desktop/preview_dialog.h"

namespace cu::test {
namespace {

// Restores the letters of the other tests.
class LargeLetters : public ::testing::TestWithParam<int> {
 protected:
  LargeLetters() { desktop::look::setLetters(GetParam()); }
  ~LargeLetters() override { desktop::look::setLetters(desktop::look::kNormalLetters); }
};

INSTANTIATE_TEST_SUITE_P(Sizes, LargeLetters, ::testing::Values(100, 130, 160, 175));

bool fitsHint(const QLineEdit& box) {
  return box.fontMetrics().horizontalAdvance(box.placeholderText()) <= box.width() - 8;
}

TEST_P(LargeLetters, AHintIsWholeOrInTheTooltip) {
  QLineEdit box;
  const QString hint = QStringLiteral("codice fiscale, nome o causale");
  desktop::setHint(box, hint);
  box.show();
  const int wide = box.fontMetrics().horizontalAdvance(hint) + 20;
  box.resize(wide, 30);
  settle();
  EXPECT_EQ(box.placeholderText(), hint);
  EXPECT_EQ(box.toolTip(), QString());
  box.resize(wide - 40, 30);
  settle();
  EXPECT_EQ(box.placeholderText(), QString());
  EXPECT_TRUE(box.toolTip().contains(hint));
  desktop::setHint(box, QStringLiteral("nome"));
  EXPECT_EQ(box.placeholderText(), QStringLiteral("nome"));
  EXPECT_EQ(box.toolTip(), QString());
  box.setToolTip(QStringLiteral("Che cosa si cerca"));
  box.resize(30, 30);
  settle();
  EXPECT_EQ(box.placeholderText(), QString());
  EXPECT_EQ(box.toolTip(), QStringLiteral("Che cosa si cerca")) << "a tooltip of another is kept";
}

class LettersInGrid : public LargeLetters {
 protected:
  // In the size in which the window opens with these letters on a screen of this width.
  void open(int width) {
    screen.toGrid();
    const QSize wanted(desktop::inLetters(1040), desktop::inLetters(700));
    screen.top()->resize(wanted.boundedTo({width, width * 9 / 16}));
    settle();
  }
  Screen screen;
};

INSTANTIATE_TEST_SUITE_P(Sizes, LettersInGrid, ::testing::Values(100, 130, 160, 175));

TEST_P(LettersInGrid, TheHintsOfSearchAndFilterAreNeverCut) {
  open(1024);
  for (const int width : {1024, 1366, 1920}) {
    screen.top()->resize(width, width * 9 / 16);
    settle();
    for (const char* name : {"ricercaRapida", "filtroRighe"}) {
      const auto& box = *screen.find<QLineEdit>(name);
      EXPECT_TRUE(fitsHint(box)) << name << " " << width;
      EXPECT_FALSE(box.placeholderText().isEmpty() && box.toolTip().isEmpty()) << name << " " << width;
    }
  }
}

TEST_P(LettersInGrid, NoAmountOfTheFirstRowsIsCut) {
  open(1366);
  auto& view = static_cast<desktop::GridView&>(*screen.window().view(screen.form().grdCompensi));
  int amounts = 0;
  for (int column = 0; column < view.model().columnCount(); ++column) {
    for (int row = 0; row < view.model().rowCount() && !view.table().isColumnHidden(column); ++row) {
      const QString text = view.model().textAt(row, column);
      if (!text.endsWith(QStringLiteral(",00"))) continue;
      ++amounts;
      EXPECT_LE(view.table().fontMetrics().horizontalAdvance(text), view.table().columnWidth(column) - 10)
          << text.toStdString();
    }
  }
  EXPECT_GT(amounts, 20);
}

TEST_P(LettersInGrid, TheFirstRowsAreInViewOnALowScreen) {
  screen.toGrid();
  auto& table = static_cast<desktop::GridView&>(*screen.window().view(screen.form().grdCompensi)).table();
  screen.find<QLineEdit>("filtroRighe")->setFocus();
  screen.top()->resize(1024, 560);
  settle();
  table.setFocus();
  settle();
  const QRect first = table.visualRect(table.model()->index(0, 0));
  EXPECT_TRUE(table.viewport()->visibleRegion().boundingRect().contains(first)) << first.bottom();
}

TEST_P(LettersInGrid, TheStepsLeaveRoomForThePage) {
  open(1024);
  const QWidget& band = *screen.find<QWidget>("ctlWizardSideBand");
  EXPECT_LE(band.width() * 3, screen.top()->width());
}

TEST_P(LargeLetters, APreviewSaysInFullThatNothingWasFound) {
  Preview preview;
  preview.pages = {"Pagina 1\r\n", "Pagina 2\r\n"};
  desktop::PreviewDialog dialog(nullptr, preview);
  dialog.show();
  for (const int width : {984, 1366}) {
    dialog.resize(width, 560);
    settle();
    EXPECT_LE(dialog.width(), width) << "fits the screen";
    const auto boxes = dialog.findChildren<QLineEdit*>();
    const auto found = std::find_if(boxes.begin(), boxes.end(), [](const QLineEdit* each) {
      return each->accessibleName() == QStringLiteral("Cerca nelle pagine");
    });
    ASSERT_NE(found, boxes.end());
    QLineEdit& box = **found;
    box.setFocus();
    box.selectAll();
    typeText(box, QStringLiteral("zzz"));
    const auto says = [&dialog] {
      const auto labels = dialog.findChildren<QLabel*>();
      return std::any_of(labels.begin(), labels.end(), [](const QLabel* each) {
        return each->text() == QStringLiteral("Nessuna corrispondenza");
      });
    };
    EXPECT_TRUE(QTest::qWaitFor(says, 5000)) << width;
    const int place = dialog.view().y();
    box.clear();
    settle();
    EXPECT_EQ(dialog.view().y(), place) << "the pages keep their place whatever is said";
  }
}

TEST_P(LargeLetters, AWindowOpensAsMuchLargerAsItsScreenPermits) {
  const QWidget window;
  const QSize normal(600, 300);
  const QSize first = desktop::firstSize(window, normal);
  const QSize room = window.screen()->availableSize();
  EXPECT_EQ(first.width(), std::min(600 * GetParam() / 100, room.width() - 40));
  EXPECT_EQ(first.height(), std::min(300 * GetParam() / 100, room.height() - 60));
}

TEST(FlowRow, GivesTheRestOfALineToWhatExpands) {
  QWidget window;
  auto* const row = new desktop::FlowRow(&window);
  row->setContentsMargins(0, 0, 0, 0);
  row->setGap(4);
  auto* const first = new QPushButton(QStringLiteral("Cerca"), &window);
  auto* const middle = new desktop::ElidedLine(&window);
  middle->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  middle->setWhole(QStringLiteral("nulla"));
  auto* const last = new QPushButton(QStringLiteral("Chiudi"), &window);
  row->addWidget(first);
  row->addWidget(middle);
  row->beginEnd();
  row->addWidget(last);
  window.show();
  window.resize(600, 80);
  settle();
  EXPECT_EQ(last->geometry().right(), window.width() - 1);
  EXPECT_EQ(middle->geometry().right() + 5, last->geometry().left());
  // On lines of their own, each side keeps its edge.
  window.resize(first->sizeHint().width() + middle->sizeHint().width() + 10, 80);
  settle();
  EXPECT_GT(last->y(), first->y());
  EXPECT_EQ(last->geometry().right(), window.width() - 1);
  EXPECT_EQ(middle->geometry().right(), window.width() - 1);
}

}  // namespace
}  // namespace cu::test
