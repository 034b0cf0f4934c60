// Every field of every form, left in every way: after each the window has the same state as the driver that
// received the same actions.

#include <QTabBar>
#include <QTest>

#include "controls/tabs.h"
#include "desktop/leaving_support.h"

namespace cu::test {
namespace {

using Commands = Together::Commands;

class WizardFields : public Leaving {
 protected:
  explicit WizardFields(std::int32_t mode = 247) : Leaving(mode) {}
  void toTelematicFile(const char* year = "2016") {
    click("optstType(1)");
    together.step(
        "the year", [this, year] { screen.choose("KRNCboEsCont(0)", year); },
        [year] {
          return Commands{{{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", year}}};
        });
  }
  // Of the first step: forward with the mnemonic, back without storing anything.
  Place firstStep() {
    Place place;
    place.enter = [] {};
    place.other = "KrnCDCausContrib(1)";
    place.another = "KRNCboEsCont(0)";
    place.button = "cmdNav(3)";
    place.mnemonic = Qt::Key_A;
    place.back = [this] {
      click("cmdNav(2)");
      answerBoxes("No", "no");
    };
    place.enterCloses = false;
    return place;
  }
};

TEST_F(WizardFields, OfTheFirstStep) {
  toTelematicFile();
  walk(firstStep());
  together.run();
  EXPECT_GE(visited, 6U);
}

class AccountFields : public WizardFields {
 protected:
  AccountFields() : WizardFields(246) {}
};

TEST_F(AccountFields, OfTheFirstStep) {
  walk(firstStep());
  together.run();
  EXPECT_GE(visited, 7U);
}

TEST_F(AccountFields, OfThePrintOptions) {
  Place options;
  options.enter = [this] {
    together.then([this] {
      if (together.front().name() != "frmWizard") return;
      click("cmdOpzioni");
      click("chkPrintInter");
    });
  };
  options.other = "txtInter";
  options.another = "ChkNewPage";
  options.button = "cmdOk";
  options.back = options.enter;
  walk(options);
  closeForms();
  together.run();
  EXPECT_EQ(visited, 3U);
}

TEST_F(WizardFields, OfTheLastStep) {
  toTelematicFile();
  for (const char* button : {"cmdNav(3)", "cmdNav(3)", "chkIntermediari"}) click(button);
  Place place;
  place.enter = [] {};
  place.other = "dtDataFirma";
  place.another = "txtCodiceFiscale";
  place.button = "cmdNav(2)";
  place.mnemonic = Qt::Key_I;
  place.back = [this] { click("cmdNav(3)"); };
  place.enterCloses = false;
  walk(place);
  together.run();
  EXPECT_EQ(visited, 5U);
}

TEST_F(WizardFields, OfTheReferencesOfAllLines) {
  toTelematicFile();
  for (const char* button : {"optTipoComunicazione(2)", "cmdNav(3)"}) click(button);
  Place place;
  place.enter = [this] {
    together.then([this] {
      if (together.front().name() == "frmWizard") click("cmdProtocollo");
    });
  };
  place.other = "txtProtocollo";
  place.another = "txtProgressivo";
  place.button = "cmdAnnulla";
  place.back = place.enter;
  walk(place);
  closeForms();
  together.run();
  EXPECT_EQ(visited, 3U);
}

class EditorFields : public WizardFields, public ::testing::WithParamInterface<const char*> {
 protected:
  bool oldest() const { return GetParam() == std::string("2014"); }
  // Opens the first line where no editor is open, and selects the page.
  std::function<void()> opened(bool firstPage) {
    return [this, firstPage] {
      together.then([this, firstPage] {
        if (together.front().name() == "frmWizard") openEditor();
        together.then([this, firstPage] { turnTo(firstPage); });
      });
    };
  }
  void openEditor() {
    together.step(
        "open the editor",
        [this] {
          screen.find<QWidget>("grdCompensi")->setFocus();
          QTest::keyClick(screen.top()->focusWidget(), Qt::Key_Return);
        },
        [] {
          return Commands{{{"do", "doubleclick"}, {"in", "frmWizard.grdCompensi"}, {"row", 1}}};
        });
  }
  void turnTo(bool firstPage) {
    if (oldest()) {
      const auto& tabs = dynamic_cast<const Tabs&>(*together.front().find("stbMain"));
      const int tab = firstPage ? 1 : 2;
      if (tabs.selected() == tab) return;
      together.step(
          "turn the page",
          [this, tab] {
            auto* const bar = screen.find<QTabBar>("stbMain");
            QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(tab - 1).center());
          },
          [this, tab] {
            return Commands{{{"do", "choose"}, {"in", together.named("stbMain")}, {"index", tab}}};
          });
      return;
    }
    const char* const button = firstPage ? "cmdModulo1" : "cmdAltriModuli";
    if (together.front().find(button)->available()) click(button);
  }

  Place page(bool first) {
    Place place;
    place.enter = opened(first);
    place.other = first ? "curField(11)" : "curField(18)";
    place.another = first ? "curField(20)" : "curField(21)";
    place.back = place.enter;
    if (oldest()) {
      place.button = first ? "cmdOk" : "cmdSave";
      if (!first) place.mnemonic = Qt::Key_L;
      place.back = [this, first] {
        answerBoxes();
        opened(first)();
      };
    } else {
      place.button = first ? "cmdAltriModuli" : "cmdModulo1";
      place.mnemonic = first ? Qt::Key_A : Qt::Key_M;
    }
    return place;
  }
  void toGrid() {
    toTelematicFile(GetParam());
    click("cmdNav(3)");
  }
};

TEST_P(EditorFields, OfTheFirstPage) {
  toGrid();
  walk(page(true));
  closeForms();
  together.run();
  EXPECT_GE(visited, oldest() ? 16U : 50U);
}

TEST_P(EditorFields, OfTheOtherModules) {
  toGrid();
  walk(page(false));
  closeForms();
  together.run();
  EXPECT_GE(visited, oldest() ? 7U : 30U);
}

// The oldest layout has them on its first page.
class AdditionalFields : public EditorFields {};

TEST_P(AdditionalFields, OfTheDialog) {
  toTelematicFile(GetParam());
  click("optTipoComunicazione(2)");
  click("cmdNav(3)");
  Place place;
  place.enter = [this] {
    together.then([this] {
      if (together.front().name() == "frmWizard") openEditor();
      together.then([this] {
        if (together.front().name() != "frmDatiAggiuntivi") click("cmdDatiAggiuntivi");
      });
    });
  };
  place.other = "txtProtocollo";
  place.another = "txtProgressivo";
  place.button = "cmdOk";
  place.back = [this, place] {
    answerBoxes();
    place.enter();
  };
  walk(place);
  closeForms();
  together.run();
  EXPECT_GE(visited, 6U);
}

INSTANTIATE_TEST_SUITE_P(Years, EditorFields, ::testing::Values("2014", "2015", "2016"),
                         [](const auto& year) { return std::string(year.param); });

INSTANTIATE_TEST_SUITE_P(Years, AdditionalFields, ::testing::Values("2015", "2016"),
                         [](const auto& year) { return std::string(year.param); });

}  // namespace
}  // namespace cu::test
