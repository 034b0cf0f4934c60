// Texts of the editor that can only be read: legible, selectable, copied, and no stop of the keyboard.

#include "desktop/reading_line.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <cmath>

#include "controls/selector.h"
#include "desktop/screen_support.h"
#include "desktop/selector_view.h"

namespace cu::test {
namespace {

double brightness(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QLineEdit& line) {
  const QPalette::ColorGroup group = line.isEnabled() ? QPalette::Active : QPalette::Disabled;
  const double ink = brightness(line.palette().color(group, QPalette::Text));
  const double ground = brightness(line.palette().color(group, QPalette::Base));
  return (std::max(ink, ground) + 0.05) / (std::min(ink, ground) + 0.05);
}

class ReadingLine : public ::testing::Test {
 protected:
  QLineEdit& payee() {
    const Control& control = *screen.top()->form().find("cdPercipiente");
    return *static_cast<desktop::SelectorView*>(screen.top()->view(control))->codeBox();
  }
  Screen screen;
};

TEST_F(ReadingLine, IsLegible) {
  screen.inEditor("2016", [&] {
    for (QLineEdit* line :
         {&payee(), screen.find<QLineEdit>("txtField(11)"), screen.find<QLineEdit>("numModulo1")}) {
      EXPECT_FALSE(line->text().isEmpty()) << line->objectName().toStdString();
      EXPECT_GE(contrast(*line), 4.5) << line->objectName().toStdString();
      EXPECT_TRUE(line->isReadOnly());
    }
  });
}

TEST_F(ReadingLine, IsSelectedWithTheMouseAndCopiedByTheKeyWhereverTheFocusIs) {
  screen.inEditor("2016", [&] {
    auto& line = *screen.find<QLineEdit>("txtField(11)");
    const Control* const focus = screen.focus();
    QApplication::clipboard()->setText(QStringLiteral("altro"));
    QTest::mouseDClick(&line, Qt::LeftButton, {}, QPoint(12, line.height() / 2));
    EXPECT_EQ(line.selectedText(), line.text());
    EXPECT_EQ(screen.focus(), focus) << "the form knows nothing of it";
    screen.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), line.text());
    // The selection ends with a click elsewhere, and the key is again that of the focused field.
    auto& other = *screen.find<QLineEdit>("curField(19)");
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_FALSE(line.hasSelectedText());
    other.selectAll();
    screen.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), other.text());
  });
}

TEST_F(ReadingLine, IsNoStopOfTheKeyboardAndTakesNoText) {
  screen.inEditor("2016", [&] {
    auto& line = *screen.find<QLineEdit>("txtField(11)");
    const QString text = line.text();
    QTest::mouseClick(&line, Qt::LeftButton);
    QTest::keyClicks(&line, QStringLiteral("x"));
    EXPECT_EQ(line.text(), text);
    for (int i = 0; i < 80; ++i) {
      screen.key(Qt::Key_Tab);
      ASSERT_TRUE(screen.top()->focusWidget() == nullptr ||
                  screen.top()->focusWidget()->focusPolicy() != Qt::NoFocus);
    }
  });
}

TEST_F(ReadingLine, IsAFieldAgainWhereTheFormEnablesIt) {
  screen.inEditor("2016", [&] {
    Control& box = *screen.top()->form().find("txtField(11)");
    auto& line = *screen.find<QLineEdit>("txtField(11)");
    EXPECT_EQ(line.focusPolicy(), Qt::NoFocus);
    box.setEnabled(true);
    EXPECT_EQ(line.focusPolicy(), Qt::StrongFocus);
    box.setEnabled(false);
    EXPECT_EQ(line.focusPolicy(), Qt::NoFocus);
  });
}

}  // namespace
}  // namespace cu::test
