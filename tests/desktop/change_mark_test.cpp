// The mark of a box that differs from the accounts, the way back, and the sum beside the gross amount.

#include "desktop/change_mark.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include "controls/listbox.h"
#include "controls/numericbox.h"
#include "desktop/cells.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

class Changes : public ::testing::Test {
 protected:
  const desktop::ChangeMark& mark(const char* name) {
    return *screen.top()->view(*screen.top()->form().find(name))->changeMark();
  }
  template <class C>
  C& model(const char* name) {
    return dynamic_cast<C&>(*screen.top()->form().find(name));
  }
  QString tip(const char* name) { return screen.find<QWidget>(name)->parentWidget()->toolTip(); }
  Screen screen;
};

TEST_F(Changes, AreMarkedWithTheAccountsValueAndTakenBackByTheKey) {
  screen.inEditor("2016", [&] {
    const Decimal read = model<AmountBox>("curField(19)").number();
    const std::string text = model<AmountBox>("curField(19)").text();
    const Decimal gross = model<AmountBox>("curField(10)").number();
    EXPECT_FALSE(mark("curField(19)").marked());
    EXPECT_FALSE(mark("curField(19)").restore().isEnabled());
    EXPECT_EQ(tip("curField(19)"), QString());
    screen.type("curField(19)", "77");
    EXPECT_TRUE(mark("curField(19)").isVisible());
    EXPECT_TRUE(tip("curField(19)").contains(QString::fromStdString(text)))
        << tip("curField(19)").toStdString();
    EXPECT_EQ(screen.find<QWidget>("curField(19)")->accessibleDescription(),
              QStringLiteral("Modificata. Nei conti: ") + QString::fromStdString(text));
    // Leaving the field makes the form compute the gross amount, which is marked too.
    screen.key(Qt::Key_Tab);
    EXPECT_NE(model<AmountBox>("curField(10)").number(), gross);
    EXPECT_TRUE(mark("curField(10)").isVisible());
    screen.find<QWidget>("curField(19)")->setFocus();
    screen.key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(model<AmountBox>("curField(19)").number(), read);
    EXPECT_FALSE(mark("curField(19)").isVisible());
    EXPECT_EQ(screen.find<QWidget>("curField(19)")->accessibleDescription(), QString());
    screen.key(Qt::Key_Tab);
    EXPECT_EQ(model<AmountBox>("curField(10)").number(), gross) << "the form's rule has run";
    EXPECT_FALSE(mark("curField(10)").isVisible());
  });
}

TEST_F(Changes, OfEveryKindOfBoxAreTakenBack) {
  screen.inEditor("2016", [&] {
    const bool advance = model<Check>("chkAnticipazione").value();
    screen.click("chkAnticipazione");
    EXPECT_TRUE(mark("chkAnticipazione").isVisible());
    mark("chkAnticipazione").restore().trigger();
    EXPECT_EQ(model<Check>("chkAnticipazione").value(), advance);
    EXPECT_FALSE(mark("chkAnticipazione").isVisible());

    auto& codes = model<ListBox>("cboCodicePerNonSoggetti");
    const auto code = codes.record();
    auto* const combo = screen.find<QComboBox>("cboCodicePerNonSoggetti");
    const int other = codes.index() == 0 ? 1 : 0;
    combo->setCurrentIndex(other);
    emit combo->activated(other);
    EXPECT_TRUE(mark("cboCodicePerNonSoggetti").isVisible());
    mark("cboCodicePerNonSoggetti").restore().trigger();
    EXPECT_EQ(codes.record(), code);
    EXPECT_FALSE(mark("cboCodicePerNonSoggetti").isVisible());

    const std::string before = model<TextBox>("txtField(6)").text();
    screen.type("txtField(6)", "RSSMRA70A01H501U");
    EXPECT_TRUE(mark("txtField(6)").isVisible());
    mark("txtField(6)").restore().trigger();
    EXPECT_EQ(model<TextBox>("txtField(6)").text(), before);
    EXPECT_FALSE(mark("txtField(6)").isVisible());
  });
}

TEST_F(Changes, AreTakenBackFromTheBoxesMenu) {
  screen.inEditor("2016", [&] {
    const Decimal read = model<AmountBox>("curField(19)").number();
    screen.type("curField(19)", "77");
    auto* const line = screen.find<QLineEdit>("curField(19)");
    QStringList entries;
    screen.whenModal([&](QWidget& popup) {
      for (QAction* action : static_cast<QMenu&>(popup).actions()) {
        entries += action->text();
        if (action == &mark("curField(19)").restore()) action->trigger();
      }
      popup.close();
    });
    const QPoint at(4, 4);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, at, line->mapToGlobal(at));
    QApplication::sendEvent(line, &asked);
    EXPECT_TRUE(entries.size() > 2) << "the line's own entries stay";
    EXPECT_EQ(model<AmountBox>("curField(19)").number(), read);
    screen.key(Qt::Key_Tab);
  });
}

TEST_F(Changes, OfEarlierCorrectionsAreMarkedWhenTheLineIsOpenedAgain) {
  screen.toGrid();
  screen.whenModal([&](QWidget&) {
    screen.type("curField(19)", "77");
    screen.click("cmdOk");
  });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  bool marked = false;
  screen.whenModal([&](QWidget&) {
    marked = mark("curField(19)").isVisible();
    screen.key(Qt::Key_Escape);
  });
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(marked);
}

TEST_F(Changes, TheMarkFollowsItsBox) {
  screen.inEditor("2016", [&] {
    screen.type("curField(19)", "77");
    screen.top()->resize(700, 600);
    settle();
    const QWidget* const box = screen.find<QWidget>("curField(19)");
    EXPECT_TRUE(mark("curField(19)").geometry().contains(box->geometry()));
    EXPECT_LE(mark("curField(19)").geometry().width(), box->width() + 6);
    screen.key(Qt::Key_Tab);
  });
}

class GrossSum : public Changes, public ::testing::WithParamInterface<const char*> {};

TEST_P(GrossSum, IsShownWhileAnAmountIsTypedAndChangesNothing) {
  screen.inEditor(GetParam(), [&] {
    auto& gross = model<AmountBox>("curField(10)");
    const std::string before = gross.text();
    const auto note = [&] {
      QStringList found;
      const auto* const cell = screen.find<QWidget>("curField(10)")->parentWidget();
      for (const auto* label : cell->findChildren<QLabel*>()) {
        if (label->isVisible() && label->text().contains(u'=')) found += label->text();
      }
      return found.join(u'|');
    };
    EXPECT_TRUE(note().startsWith(QStringLiteral("5 + 7 + 8"))) << note().toStdString();
    screen.type("curField(19)", "1000000");
    EXPECT_EQ(gross.text(), before);
    EXPECT_TRUE(note().contains(QStringLiteral("differenza: -"))) << note().toStdString();
    EXPECT_TRUE(screen.find<QWidget>("curField(10)")
                    ->accessibleDescription()
                    .contains(QStringLiteral("differenza: -")));
    screen.key(Qt::Key_Tab);
    EXPECT_TRUE(note().endsWith(QStringLiteral("differenza: 0,00"))) << note().toStdString();
  });
}

INSTANTIATE_TEST_SUITE_P(Years, GrossSum, ::testing::Values("2014", "2015", "2016", "2017"),
                         [](const auto& year) { return std::string(year.param); });

}  // namespace
}  // namespace cu::test
