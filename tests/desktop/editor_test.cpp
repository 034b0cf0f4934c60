// The editor of a line in its window: both pages, the scroll bar, rejections, the search lists.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <functional>
#include <utility>

#include "controls/numericbox.h"
#include "desktop/agreement_support.h"
#include "desktop/grid_view.h"
#include "desktop/screen_support.h"
#include "desktop/search_list.h"
#include "desktop/selector_view.h"

namespace cu::test {
namespace {

class EditorWindow : public ::testing::Test {
 protected:
  // Window and models agree before and after `act`.
  void inEditor(const char* year, const std::function<void()>& act) {
    screen.inEditor(year, [&] {
      expectAgreement();
      act();
      expectAgreement();
    });
    EXPECT_EQ(disagreements(screen.window()), "");
  }
  // In the additional data, with the cursor in the first municipality.
  void inMunicipality(const std::function<void(QLineEdit& box)>& act) {
    inEditor("2016", [&] {
      screen.whenModal([&](QWidget&) {
        auto* const box = screen.find<QWidget>("TownComuneResidenzaAnnoPrec")->findChild<QLineEdit*>();
        box->setFocus();
        act(*box);
        screen.key(Qt::Key_Escape);
      });
      screen.click("cmdDatiAggiuntivi");
    });
  }
  void expectAgreement() { EXPECT_EQ(disagreements(*screen.top()), ""); }
  AmountBox& amount(const char* name) { return dynamic_cast<AmountBox&>(*screen.top()->form().find(name)); }

  Screen screen;
};

TEST_F(EditorWindow, TheGrossAmountFollowsWhenAnAmountIsLeft) {
  inEditor("2016", [&] {
    const double before = amount("curField(10)").value();
    const double taxable = amount("curField(19)").value();
    screen.type("curField(19)", "1000,50");
    screen.key(Qt::Key_Tab);
    EXPECT_NEAR(amount("curField(10)").value(), before - taxable + 1000.5, 0.001);
    EXPECT_EQ(screen.find<QLineEdit>("curField(19)")->text(), QStringLiteral("1.000,50"));
  });
}

// The release of the button is already queued when the press is processed.
TEST_F(EditorWindow, TheFirstClickCountsWhateverWorkItTookToOpen) {
  bool closed = false;
  screen.toGrid();
  screen.whenModal([&](QWidget&) {
    auto* const button = screen.find<QWidget>("cmdOk");
    const QPointF at(10, 10);
    QCoreApplication::postEvent(
        button, new QMouseEvent(QEvent::MouseButtonRelease, at, button->mapToGlobal(at), Qt::LeftButton,
                                Qt::NoButton, Qt::NoModifier));
    QTest::mousePress(button, Qt::LeftButton, {}, at.toPoint());
    settle();
    closed = screen.top() == &screen.window();
    if (!closed) screen.key(Qt::Key_Escape);
  });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(closed);
}

TEST_F(EditorWindow, PageKeysAndTheWheelMoveFormAndWindowTogether) {
  inEditor("2016", [&] {
    Form& form = screen.top()->form();
    QScrollBar* bar = nullptr;
    for (const auto* area : screen.top()->findChildren<QScrollArea*>()) {
      if (area->isVisible()) bar = area->verticalScrollBar();
    }
    ASSERT_NE(bar, nullptr);
    ASSERT_GT(bar->maximum(), 0);
    screen.key(Qt::Key_PageDown);
    EXPECT_EQ(form.scroll()->position, 1);
    EXPECT_GT(bar->value(), 0);
    QWidget* const under = screen.top()->focusWidget();
    QWheelEvent turn(QPointF(5, 5), under->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(under, &turn);
    EXPECT_EQ(form.scroll()->position, 2);
    screen.key(Qt::Key_PageUp);
    screen.key(Qt::Key_PageUp);
    EXPECT_EQ(form.scroll()->position, 0);
    EXPECT_EQ(bar->value(), 0);
    // With the window's own bar: the form follows to the nearest of its steps.
    bar->setSliderPosition(bar->maximum());
    bar->triggerAction(QAbstractSlider::SliderToMaximum);
    settle();
    EXPECT_EQ(form.scroll()->position, form.scroll()->max);
  });
}

TEST_F(EditorWindow, AModuleIsMadeSavedAndRefusedOnTheSecondPage) {
  inEditor("2016", [&] {
    screen.click("cmdAltriModuli");
    EXPECT_FALSE(screen.find<QWidget>("picModulo1")->isVisible());
    EXPECT_TRUE(screen.find<QWidget>("picAltriModuli")->isVisible());
    expectAgreement();
    if (screen.find<QWidget>("cmdNew")->isEnabled()) screen.click("cmdNew");
    screen.type("numModulo", "1");
    QString refused;
    screen.whenModal([&](QWidget& modal) {
      refused = boxText(modal);
      pressButton(modal, "OK");
    });
    screen.click("cmdSave");
    EXPECT_EQ(refused, QStringLiteral("Attenzione! Il numero modulo deve essere superiore a 1."));
    EXPECT_EQ(screen.focus()->name(), "numModulo");
    screen.type("numModulo", "9");
    screen.type("curField(17)", "12,5");
    QString missing;
    screen.whenModal([&](QWidget& modal) {
      missing = boxText(modal);
      pressButton(modal, "OK");
    });
    screen.click("cmdSave");
    EXPECT_TRUE(missing.startsWith(QStringLiteral("Attenzione! Il Codice è obbligatorio")))
        << missing.toStdString();
    screen.type("curField(17)", "");
    screen.click("cmdSave");
    const auto* const modules = screen.find<QTableView>("grdAltriModuli");
    EXPECT_GE(modules->model()->rowCount(), 1);
    screen.click("cmdModulo1");
    EXPECT_TRUE(screen.find<QWidget>("picModulo1")->isVisible());
  });
}

TEST_F(EditorWindow, AWarningRefusedKeepsTheEditorOpen) {
  inEditor("2016", [&] {
    screen.type("txtField(7)", "RSSMRA70A01H501U");
    QString report;
    screen.whenModal([&](QWidget& modal) {
      report = boxText(modal);
      QTest::keyClick(&modal, Qt::Key_Escape);
    });
    screen.click("cmdOk");
    EXPECT_TRUE(
        report.startsWith(QStringLiteral("Attenzione! Verificare la compilazione dei seguenti campi:")));
    EXPECT_NE(screen.top(), &screen.window());
  });
}

TEST_F(EditorWindow, TheMunicipalityIsFoundByTyping) {
  inMunicipality([&](QLineEdit& box) {
    screen.whenModal([&](QWidget& modal) {
      auto& search = dynamic_cast<desktop::SearchDialog&>(modal);
      EXPECT_EQ(search.box()->text(), QStringLiteral("v"));
      QTest::keyClicks(search.box(), QStringLiteral("erona"));
      EXPECT_EQ(search.box()->text(), QStringLiteral("verona"));
      EXPECT_EQ(search.model().description(0), "Verona");
      QTest::keyClick(search.box(), Qt::Key_Return);
    });
    QTest::keyClicks(&box, QStringLiteral("v"));
    EXPECT_EQ(box.text(), QStringLiteral("Verona"));
    expectAgreement();
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_EQ(box.text(), QString());
    expectAgreement();
  });
}

// The letters are already queued when the first of them opens the list.
TEST_F(EditorWindow, TheMunicipalityTypedFastArrivesWhole) {
  inMunicipality([&](QLineEdit& box) {
    screen.whenModal([&](QWidget& modal) {
      auto& search = dynamic_cast<desktop::SearchDialog&>(modal);
      EXPECT_EQ(search.box()->text(), QStringLiteral("verona"));
      EXPECT_FALSE(search.box()->hasSelectedText());
      QTest::keyClick(search.box(), Qt::Key_Return);
    });
    for (const QChar letter : QStringLiteral("verona")) {
      QCoreApplication::postEvent(
          &box, new QKeyEvent(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, letter));
    }
    settle();
    EXPECT_EQ(box.text(), QStringLiteral("Verona"));
  });
}

// Acts when the list has just received the keyboard focus.
class AtActivation : public QObject {
 public:
  explicit AtActivation(std::function<void()> act) : act_(std::move(act)) { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool now =
        event->type() == QEvent::WindowActivate && dynamic_cast<desktop::SearchDialog*>(watched) != nullptr;
    if (now) std::exchange(act_, [] {})();
    return false;
  }

 private:
  std::function<void()> act_;
};

// The desktop activates the list some time after it is shown; until then keys arrive at the window below.
TEST_F(EditorWindow, TheMunicipalityTypedWhileItsListOpensArrivesWhole) {
  inMunicipality([&](QLineEdit& box) {
    QWindow* const below = screen.top()->windowHandle();
    const AtActivation typing([&] {
      QTest::keyClick(below, Qt::Key_E);
      QTest::keyClick(below, Qt::Key_R);
    });
    screen.whenModal([&](QWidget& modal) {
      auto& search = dynamic_cast<desktop::SearchDialog&>(modal);
      EXPECT_EQ(search.box()->text(), QStringLiteral("ver"));
      QTest::keyClick(below, Qt::Key_O);
      EXPECT_EQ(search.box()->text(), QStringLiteral("ver")) << "the window below is blocked from then on";
      QTest::keyClicks(search.box(), QStringLiteral("ona"));
      QTest::keyClick(search.box(), Qt::Key_Return);
    });
    QTest::keyClicks(&box, QStringLiteral("v"));
    EXPECT_TRUE(screen.allAnswered());
    EXPECT_EQ(box.text(), QStringLiteral("Verona"));
  });
}

TEST_F(EditorWindow, AnAnnulmentOf2014ShowsOnlyTheReferences) {
  screen.click("optstType(1)");
  screen.click("optTipoComunicazione(1)");
  inEditor("2014", [&] {
    EXPECT_TRUE(screen.find<QWidget>("txtProtocollo")->isVisible());
    EXPECT_FALSE(screen.find<QWidget>("fraMain")->isVisible());
    EXPECT_LT(screen.top()->height(), 380);
    // The position of the hidden tab belongs to no tab.
    const auto* const tabs = screen.find<QTabBar>("stbMain");
    EXPECT_LE(tabs->width(), tabs->tabRect(0).width() + 2);
    screen.type("txtProtocollo", "");
    QString refused;
    screen.whenModal([&](QWidget& modal) {
      refused = boxText(modal);
      pressButton(modal, "OK");
    });
    screen.click("cmdOk");
    EXPECT_EQ(refused, QStringLiteral("Attenzione! Il protocollo è un campo obbligatorio."));
    EXPECT_EQ(screen.focus()->name(), "txtProtocollo");
  });
}

TEST(SelectorWindow, ACodeIsLookedUpWhenItIsLeftAndAnUnknownOneStands) {
  Screen screen;
  screen.type("KrnCDPerc(0)", "P003");
  screen.key(Qt::Key_Tab);
  EXPECT_NE(screen.form().KrnCDPerc0.record(), 0);
  EXPECT_FALSE(screen.form().KrnCDPerc0.description().empty());
  EXPECT_EQ(disagreements(screen.window()), "");
  screen.type("KrnCDPerc(0)", "ZZZ");
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(screen.form().KrnCDPerc0.record(), 0);
  EXPECT_EQ(screen.form().KrnCDPerc0.code(), "ZZZ");
  EXPECT_EQ(screen.form().KrnCDPerc0.description(), "");
  EXPECT_EQ(disagreements(screen.window()), "");
}

TEST(SelectorWindow, ACodeThatNoRowHasIsNotedBesideItsBox) {
  Screen screen;
  const auto& view = static_cast<desktop::SelectorView&>(*screen.window().view(screen.form().KrnCDPerc0));
  const auto note = [&] { return view.note()->isVisible() ? view.note()->text() : QString(); };
  EXPECT_EQ(note(), QString());
  screen.type("KrnCDPerc(0)", "ZZZ");
  EXPECT_EQ(note(), QString()) << "not while it is typed";
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(note(), QStringLiteral("Codice inesistente"));
  EXPECT_EQ(view.codeBox()->accessibleDescription(), note());
  screen.type("KrnCDPerc(0)", "P003");
  EXPECT_EQ(note(), QString()) << "it was about the code before";
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(note(), QString());
  screen.type("KrnCDPerc(0)", "");
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(note(), QString());
  typeText(*view.descriptionBox(), QStringLiteral("Rossi"));
  screen.find<QWidget>("KRNCboEsCont(0)")->setFocus();
  EXPECT_EQ(note(), QStringLiteral("Manca il codice"));
}

// Enter selects the current row, which is required to be the highlighted one.
TEST(SelectorWindow, TheSearchListsCurrentRowIsAlwaysHighlighted) {
  Screen screen;
  auto& view = static_cast<desktop::SelectorView&>(*screen.window().view(screen.form().KrnCDPerc0));
  screen.whenModal([&](QWidget& modal) {
    QTableView& table = *dynamic_cast<desktop::SearchDialog&>(modal).table();
    table.setFocus();
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_End}) {
      QTest::keyClick(&table, key, Qt::ControlModifier);
      EXPECT_TRUE(table.selectionModel()->isRowSelected(table.currentIndex().row()));
    }
    const QPoint row = table.visualRect(table.currentIndex()).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, row);
    EXPECT_TRUE(table.selectionModel()->isRowSelected(table.currentIndex().row()));
    modal.close();
  });
  view.openSearch({});
}

TEST(SelectorWindow, TheSearchListIsNarrowedByTypingAndGivenUpWithEsc) {
  Screen screen;
  auto& view = static_cast<desktop::SelectorView&>(*screen.window().view(screen.form().KrnCDPerc0));
  screen.whenModal([&](QWidget& modal) {
    auto& search = dynamic_cast<desktop::SearchDialog&>(modal);
    const int all = search.model().rowCount();
    QTest::keyClicks(search.box(), QStringLiteral("rossi"));
    EXPECT_LT(search.model().rowCount(), all);
    EXPECT_EQ(search.model().description(0), "Rossi");
    QTest::keyClick(search.box(), Qt::Key_Escape);
  });
  view.openSearch({});
  EXPECT_EQ(screen.form().KrnCDPerc0.code(), "");
  screen.whenModal([&](QWidget& modal) {
    auto& search = dynamic_cast<desktop::SearchDialog&>(modal);
    search.box()->setText(QStringLiteral("ross"));
    QTest::keyClick(search.box(), Qt::Key_Return);
  });
  settle();
  view.codeBox()->setFocus();
  screen.key(Qt::Key_F4);
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_EQ(screen.form().KrnCDPerc0.description(), "Rossi");
  EXPECT_EQ(disagreements(screen.window()), "");
}

}  // namespace
}  // namespace cu::test
