// The looks: contrast of every text on its background, and the choices of the user.

#include "desktop/look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSvgRenderer>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "desktop/foot.h"
#include "desktop/frozen_columns.h"
#include "desktop/grid_view.h"
#include "desktop/icon_files.h"
#include "desktop/icons.h"
#include "desktop/look_menu.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

using desktop::look::Colours;

constexpr double kReadable = 4.5;

double luminanceOf(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrastOf(const QColor& one, const QColor& other) {
  const double a = luminanceOf(one);
  const double b = luminanceOf(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// Restores the look of the other tests.
class Look : public testing::TestWithParam<Colours> {
 protected:
  void SetUp() override { desktop::look::setColours(GetParam()); }
  void TearDown() override {
    desktop::look::setColours(Colours::Light);
    desktop::look::setLetters(desktop::look::kNormalLetters);
    QSettings().remove(QStringLiteral("aspetto"));
  }
};

struct RolePair {
  QPalette::ColorRole ink;
  QPalette::ColorRole ground;
};

TEST_P(Look, HasReadableTextInEveryRoleAndState) {
  const QPalette palette = QApplication::palette();
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (const RolePair& pair : {RolePair{QPalette::WindowText, QPalette::Window},
                                 {QPalette::WindowText, QPalette::Base},
                                 {QPalette::Text, QPalette::Base},
                                 {QPalette::Text, QPalette::AlternateBase},
                                 {QPalette::Text, QPalette::Window},  // a field with the window's background
                                 {QPalette::ButtonText, QPalette::Button},
                                 {QPalette::ButtonText, QPalette::Window},
                                 {QPalette::HighlightedText, QPalette::Highlight},
                                 {QPalette::Link, QPalette::Window},
                                 {QPalette::Link, QPalette::Base},
                                 {QPalette::PlaceholderText, QPalette::Base},
                                 {QPalette::ToolTipText, QPalette::ToolTipBase}}) {
      EXPECT_GE(contrastOf(palette.color(group, pair.ink), palette.color(group, pair.ground)), kReadable)
          << "group " << group << ", role " << pair.ink << " on " << pair.ground;
    }
  }
}

TEST_P(Look, HasReadableInksOfItsOwn) {
  const QPalette palette = QApplication::palette();
  EXPECT_GE(contrastOf(desktop::look::bandInk(), desktop::look::bandColor()), kReadable);
  for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::AlternateBase}) {
    EXPECT_GE(contrastOf(desktop::look::warningInk(), palette.color(ground)), kReadable) << ground;
  }
  // The descriptions of the steps are drawn with three quarters of the ink.
  const QColor band = desktop::look::bandColor();
  const QColor ink = desktop::look::bandInk();
  const auto mixed = [](int over, int under) { return (3 * over + under) / 4; };
  EXPECT_GE(contrastOf(QColor(mixed(ink.red(), band.red()), mixed(ink.green(), band.green()),
                              mixed(ink.blue(), band.blue())),
                       band),
            kReadable);
}

// As drawn: the colour that covers most of a widget, and the one that differs most from it.
double contrastDrawn(QWidget& widget) {
  const QImage drawn = widget.grab().toImage();
  std::map<QRgb, int> seen;
  const QRect inner = drawn.rect().adjusted(6, 4, -6, -4);
  for (int y = inner.top(); y <= inner.bottom(); ++y) {
    for (int x = inner.left(); x <= inner.right(); ++x) ++seen[drawn.pixel(x, y)];
  }
  const auto most =
      std::max_element(seen.begin(), seen.end(), [](auto& a, auto& b) { return a.second < b.second; });
  double best = 1;
  for (const auto& [colour, count] : seen)
    best = std::max(best, contrastOf(QColor(colour), QColor(most->first)));
  return best;
}

TEST_P(Look, DrawsButtonsAndFieldsReadablyWhetherOnOrOff) {
  for (const bool enabled : {true, false}) {
    QPushButton button(QStringLiteral("MEMORIZZA"));
    button.setEnabled(enabled);
    button.resize(160, 40);
    EXPECT_GE(contrastDrawn(button), kReadable) << enabled;
    QLineEdit field(QStringLiteral("MEMORIZZA"));
    field.setEnabled(enabled);
    field.resize(160, 40);
    EXPECT_GE(contrastDrawn(field), kReadable) << enabled;
    field.setReadOnly(true);
    EXPECT_GE(contrastDrawn(field), kReadable) << enabled;
  }
}

TEST_P(Look, ReachesAWindowThatIsOpenAlready) {
  desktop::look::setColours(Colours::Light);
  desktop::Foot foot(nullptr, {});
  auto* const link = foot.findChild<QToolButton*>(QStringLiteral("apriFile"));
  desktop::look::setColours(GetParam());
  settle();
  EXPECT_EQ(link->palette().color(QPalette::ButtonText), QApplication::palette().color(QPalette::Link));
  EXPECT_EQ(foot.palette().color(QPalette::Window), QApplication::palette().color(QPalette::Window));
}

INSTANTIATE_TEST_SUITE_P(Both, Look, testing::Values(Colours::Light, Colours::Dark),
                         [](const auto& look) { return look.param == Colours::Dark ? "Dark" : "Light"; });

// What the library cannot read of a drawing it leaves out, with a message.
TEST(Pictures, AreReadWhole) {
  static QStringList messages;
  messages.clear();
  const QtMessageHandler before = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString& message) { messages += message; });
  for (const IconFile& file : iconFiles()) {
    const QSvgRenderer drawing(
        QByteArray(reinterpret_cast<const char*>(file.bytes), static_cast<qsizetype>(file.size)));
    EXPECT_TRUE(drawing.isValid()) << file.name;
    EXPECT_EQ(drawing.viewBoxF().width(), drawing.viewBoxF().height()) << file.name;
  }
  qInstallMessageHandler(before);
  EXPECT_EQ(messages, QStringList());
}

TEST(Pictures, AreDrawnInEverySize) {
  using desktop::Picture;
  for (int each = 0; each <= static_cast<int>(Picture::Modules); ++each) {
    for (const double ratio : {1.0, 1.25, 2.0}) {
      const QPixmap picture = desktop::pixmapOf(static_cast<Picture>(each), 20, ratio);
      EXPECT_EQ(picture.width(), 20 * ratio);
      EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(20, 20));
      const QImage drawn = picture.toImage();
      int covered = 0;
      for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x) covered += drawn.pixelColor(x, y).alpha() > 127 ? 1 : 0;
      EXPECT_GT(covered, drawn.width() * drawn.height() / 5) << each << " at " << ratio;
      EXPECT_LT(covered, drawn.width() * drawn.height()) << each << " at " << ratio;
    }
  }
}

TEST(Pictures, OfStatesDifferByShape) {
  using desktop::Picture;
  std::set<std::vector<bool>> shapes;
  const std::vector<Picture> states{Picture::Modified, Picture::NotChosen, Picture::ProtocolMissing,
                                    Picture::Modules};
  for (const Picture picture : states) {
    const QImage drawn = desktop::pixmapOf(picture, 16).toImage();
    std::vector<bool> covered;
    for (int y = 0; y < drawn.height(); ++y)
      for (int x = 0; x < drawn.width(); ++x) covered.push_back(drawn.pixelColor(x, y).alpha() > 127);
    shapes.insert(covered);
  }
  EXPECT_EQ(shapes.size(), states.size());
}

TEST(Pictures, OfBoxesAreTheProgramsOwn) {
  for (const auto& [icon, picture] : {std::pair{QMessageBox::Information, desktop::Picture::Information},
                                      {QMessageBox::Warning, desktop::Picture::Warning},
                                      {QMessageBox::Critical, desktop::Picture::Error},
                                      {QMessageBox::Question, desktop::Picture::Question}}) {
    QMessageBox box;
    box.setIcon(icon);
    const QPixmap shownPicture = box.iconPixmap();
    ASSERT_FALSE(shownPicture.isNull());
    EXPECT_EQ(
        shownPicture.toImage().convertToFormat(QImage::Format_ARGB32),
        desktop::pixmapOf(picture, shownPicture.width()).toImage().convertToFormat(QImage::Format_ARGB32));
  }
}

class LookMenu : public Look {};

QAction* choiceOf(QMenu& menu, const char* caption) {
  for (QAction* const entry : menu.actions()) {
    if (entry->text().remove(u'&') == QString::fromUtf8(caption)) return entry;
  }
  return nullptr;
}

TEST_P(LookMenu, TakesEffectAtOnceAndIsRememberedForTheNextStart) {
  Screen screen;
  QMenu menu;
  desktop::fillLookMenu(menu);
  const double before = screen.find<QWidget>("cmdNav(3)")->font().pointSizeF();
  ASSERT_NE(choiceOf(menu, "Colori scuri"), nullptr);
  choiceOf(menu, "Colori scuri")->trigger();
  choiceOf(menu, "Caratteri molto grandi")->trigger();
  settle();
  EXPECT_TRUE(desktop::look::dark());
  EXPECT_NEAR(screen.find<QWidget>("cmdNav(3)")->font().pointSizeF(), before * 1.3, 0.2);
  EXPECT_EQ(desktop::look::rememberedColours(), Colours::Dark);
  EXPECT_EQ(desktop::look::rememberedLetters(), 130);
  EXPECT_TRUE(choiceOf(menu, "Colori scuri")->isChecked());
  EXPECT_FALSE(choiceOf(menu, "Colori chiari")->isChecked());
}

// The boxes that are only read or off have the window's background, whatever it was when they were made.
TEST_P(LookMenu, ReachesTheBoxesOfAnOpenStep) {
  desktop::look::setColours(Colours::Light);
  Screen screen;
  screen.toEnd();
  auto& path = *screen.find<QLineEdit>("txtPercorsoCU");
  ASSERT_TRUE(path.isReadOnly());
  path.setText(QStringLiteral("MEMORIZZA"));
  for (const Colours each : {Colours::Dark, Colours::Light}) {
    desktop::look::setColours(each);
    settle();
    EXPECT_EQ(path.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
    EXPECT_GE(contrastDrawn(path), kReadable);
  }
}

TEST_P(LookMenu, ReachesTheMarksOfTheReadyFilters) {
  desktop::look::setColours(Colours::Light);
  Screen screen;
  screen.toGrid();
  auto& state = *screen.find<QToolButton>("stato:Modificate");
  const auto ink = [&state] {
    const QImage mark = state.icon().pixmap(39).toImage();
    QColor strongest;
    for (int y = 0; y < mark.height(); ++y) {
      for (int x = 0; x < mark.width(); ++x) {
        const QColor dot = mark.pixelColor(x, y);
        if (!strongest.isValid() || dot.alpha() > strongest.alpha()) strongest = dot;
      }
    }
    strongest.setAlpha(255);
    return strongest;
  };
  for (const Colours each : {Colours::Dark, Colours::Light}) {
    desktop::look::setColours(each);
    settle();
    EXPECT_GE(contrastOf(ink(), QApplication::palette().color(QPalette::Button)), kReadable);
  }
}

TEST_P(LookMenu, LargeLettersHaveRoomInTheBoxesOfAnOpenStep) {
  Screen screen;
  screen.toEnd();
  auto& date = *screen.find<QWidget>("dtDataFirma")->findChild<QLineEdit*>();
  const auto fits = [&date] {
    return date.width() > date.fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000")) + 8;
  };
  ASSERT_TRUE(fits());
  desktop::look::setLetters(160);
  settle();
  EXPECT_TRUE(fits());
}

TEST_P(LookMenu, LargeLettersHaveRoomInAnOpenGrid) {
  Screen screen;
  screen.toGrid();
  auto& table = static_cast<desktop::GridView&>(*screen.window().view(screen.form().grdCompensi)).table();
  desktop::look::setLetters(160);
  settle();
  EXPECT_GE(table.rowHeight(0), table.fontMetrics().height());
  EXPECT_EQ(table.frozen().rowHeight(0), table.rowHeight(0));
  for (int column = 0; column < table.model()->columnCount(); ++column) {
    if (table.isColumnHidden(column)) continue;
    const QString caption = table.model()->headerData(column, Qt::Horizontal).toString();
    for (const QString& word : caption.split(u' ')) {
      EXPECT_GE(table.columnWidth(column), table.horizontalHeader()->fontMetrics().horizontalAdvance(word))
          << word.toStdString();
    }
  }
}

TEST_P(LookMenu, LargeLettersLeaveRowsAboveTheTotalsOfALowGrid) {
  Screen screen;
  screen.toGrid();
  auto& table = static_cast<desktop::GridView&>(*screen.window().view(screen.form().grdCompensi)).table();
  const auto* const totals = screen.find<QWidget>("totali");
  for (const int letters : {desktop::look::kNormalLetters, 160, desktop::look::kLargestLetters}) {
    desktop::look::setLetters(letters);
    screen.top()->resize(1024, 560);
    settle();
    EXPECT_GE(totals->y(), table.geometry().bottom()) << letters;
    EXPECT_GE(table.viewport()->height(), 2 * table.rowHeight(0)) << letters;
  }
}

TEST_P(LookMenu, IsInTheMenuBarOfTheWizard) {
  Screen screen;
  QStringList titles;
  for (const QAction* entry : screen.window().findChild<QMenuBar*>()->actions()) titles += entry->text();
  EXPECT_TRUE(titles.contains(QStringLiteral("Aspett&o")));
}

INSTANTIATE_TEST_SUITE_P(One, LookMenu, testing::Values(Colours::Light));

}  // namespace
}  // namespace cu::test
