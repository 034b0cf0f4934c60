#include "controls/textbox.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/controls_support.h"

namespace cu {
namespace {

using test::CountingView;
using test::Stage;

// A box that records its text at each change.
struct Box {
  Stage stage;
  TextBox box{stage.form, "txtProtocollo", nullptr};
  std::vector<std::string> changes;
  Box() {
    box.onChange = [this] { changes.push_back(box.text()); };
  }
};

bool digitsOnly(char32_t c) { return c >= U'0' && c <= U'9'; }

TEST(EditBox, AnAssignmentRaisesTheEventWhenTheTextDiffers) {
  Box on;
  CountingView view;
  on.box.attach(&view);
  on.box.setText("");
  on.box.setText("abc");
  on.box.setText("abc");
  on.box.setText("ABC");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"abc", "ABC"}));
  EXPECT_EQ(view.changes, 2);
}

TEST(EditBox, AnAssignmentIsCutAtTheLengthAndStoredWholeUntilAPersonTypes) {
  Box on;
  on.box.setMaxLength(4);
  on.box.setText("perché no");
  EXPECT_EQ(on.box.text(), "perc");
  EXPECT_EQ(on.box.stored(), "perché no");
  on.box.setText("perciò");
  EXPECT_EQ(on.box.stored(), "perciò");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"perc"}));
  EXPECT_FALSE(on.box.type(U'x'));
  EXPECT_EQ(on.box.stored(), "perciò");
  EXPECT_TRUE(on.box.eraseAt(3, 1));
  EXPECT_EQ(on.box.stored(), "per");
  EXPECT_TRUE(on.box.type(U'c'));
  EXPECT_EQ(on.box.stored(), "perc");
}

TEST(EditBox, TypingOrPastingTheLikeOfALongerTextShortensIt) {
  Box on;
  on.box.setMaxLength(2);
  on.box.setText("1234");
  on.box.enter("12");
  EXPECT_EQ(on.box.stored(), "12");
  on.box.setText("1234");
  on.box.paste("12");
  EXPECT_EQ(on.box.stored(), "12");
  on.box.setText("1234");
  on.box.setText("12");
  EXPECT_EQ(on.box.stored(), "12");
}

TEST(EditBox, EachCharacterTypedIsOneChange) {
  Box on;
  on.box.setText("vecchio");
  on.changes.clear();
  on.box.enter("però");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"p", "pe", "per", "però"}));
}

TEST(EditBox, TheFirstAcceptedCharacterReplacesTheSelection) {
  Box on;
  on.box.keyFilter = digitsOnly;
  on.box.setText("777");
  on.changes.clear();
  on.box.enter("ab1c2");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"1", "12"}));
}

TEST(EditBox, WithoutAnAcceptedCharacterTheContentStays) {
  Box on;
  on.box.keyFilter = digitsOnly;
  on.box.setText("777");
  on.changes.clear();
  on.box.enter("abc");
  EXPECT_EQ(on.box.text(), "777");
  EXPECT_TRUE(on.changes.empty());
}

TEST(EditBox, NothingTypedDeletesTheContent) {
  Box on;
  on.box.setText("777");
  on.changes.clear();
  on.box.enter("");
  on.box.enter("");
  EXPECT_EQ(on.changes, (std::vector<std::string>{""}));
}

TEST(EditBox, TypingWhatStandsThereIsAChangeToo) {
  Box on;
  on.box.setText("12");
  on.changes.clear();
  on.box.enter("12");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"1", "12"}));
  on.box.setText("7");
  on.changes.clear();
  on.box.enter("7");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"7"}));
}

TEST(EditBox, TheFilterSeesEveryCharacterAndBeepsItself) {
  Box on;
  std::u32string asked;
  on.box.keyFilter = [&](char32_t c) {
    asked.push_back(c);
    if (digitsOnly(c)) return true;
    on.stage.frontEnd.beep();
    return false;
  };
  on.box.enter("1è2x");
  EXPECT_EQ(asked, U"1è2x");
  EXPECT_EQ(on.stage.frontEnd.beeps, 2);
  EXPECT_EQ(on.box.text(), "12");
}

TEST(EditBox, TheLengthCountsCharactersAndNotBytes) {
  Box on;
  on.box.setMaxLength(3);
  on.box.enter("àèìòù");
  EXPECT_EQ(on.box.text(), "àèì");
  EXPECT_EQ(on.changes.size(), 3U);
  on.box.enter("x");
  EXPECT_EQ(on.box.text(), "x");
}

TEST(EditBox, AFullBoxTakesNoMoreButASelectionIsReplaced) {
  Box on;
  on.box.setMaxLength(3);
  on.box.setText("123");
  EXPECT_FALSE(on.box.type(U'4'));
  EXPECT_EQ(on.box.text(), "123");
  on.box.enter("4");
  EXPECT_EQ(on.box.text(), "4");
}

TEST(EditBox, OneCharacterIsTypedAtTheEnd) {
  Box on;
  on.box.setText("ab");
  EXPECT_TRUE(on.box.type(U'€'));
  EXPECT_EQ(on.box.text(), "ab€");
}

TEST(EditBox, APasteIsOneChangePastTheFilterButNotPastTheLength) {
  Box on;
  on.box.keyFilter = digitsOnly;
  on.box.setMaxLength(4);
  on.box.paste("però no");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"però"}));
  on.box.paste("però");
  EXPECT_EQ(on.changes.size(), 1U);
  on.box.paste("");
  EXPECT_EQ(on.box.text(), "");
}

TEST(EditBox, WithoutALengthEverythingIsPasted) {
  Box on;
  on.box.paste(std::string(5000, 'x'));
  EXPECT_EQ(on.box.text().size(), 5000U);
}

TEST(EditBox, DamagedBytesTypedAreReplacementCharacters) {
  Box on;
  on.box.enter(
      "a\xFF"
      "b");
  EXPECT_EQ(on.box.text(),
            "a\xEF\xBF\xBD"
            "b");
}

TEST(EditBox, ALockedBoxTakesNothingFromAPersonButFromCode) {
  Box on;
  on.box.setText("fisso");
  on.changes.clear();
  on.box.setLocked(true);
  on.box.enter("x");
  on.box.enter("");
  on.box.paste("x");
  EXPECT_FALSE(on.box.type(U'x'));
  EXPECT_EQ(on.box.text(), "fisso");
  EXPECT_TRUE(on.changes.empty());
  on.box.setText("altro");
  EXPECT_EQ(on.box.text(), "altro");
}

TEST(EditBox, AHandlerMayChangeTheTextWhileOneTypes) {
  Box on;
  on.box.onChange = [&] {
    if (on.box.text() == "ab") on.box.setText("AB");
  };
  on.box.enter("abc");
  EXPECT_EQ(on.box.text(), "ABc");
}

TEST(EditBox, LockAndBackgroundAreToldToTheView) {
  Box on;
  CountingView view;
  on.box.attach(&view);
  EXPECT_EQ(on.box.background(), Background::Window);
  on.box.setBackground(Background::Face);
  on.box.setBackground(Background::Face);
  on.box.setLocked(true);
  on.box.setLocked(true);
  EXPECT_EQ(view.changes, 2);
  EXPECT_EQ(on.box.background(), Background::Face);
  EXPECT_TRUE(on.box.locked());
}

TEST(EditBox, ACharacterIsTypedAtAPlaceOrInPlaceOfAStretch) {
  Box on;
  on.box.setText("però no");
  on.changes.clear();
  EXPECT_TRUE(on.box.typeAt(4, 0, U'!'));
  EXPECT_EQ(on.box.text(), "però! no");
  EXPECT_TRUE(on.box.typeAt(3, 3, U'€'));
  EXPECT_EQ(on.box.text(), "per€no");
  EXPECT_TRUE(on.box.typeAt(6, 9, U'.'));
  EXPECT_EQ(on.changes, (std::vector<std::string>{"però! no", "per€no", "per€no."}));
}

TEST(EditBox, ACharacterAtAPlaceObeysLockFilterAndLength) {
  Box on;
  on.box.setMaxLength(4);
  on.box.setText("1à34");
  on.changes.clear();
  EXPECT_FALSE(on.box.typeAt(2, 0, U'5'));  // full
  EXPECT_TRUE(on.box.typeAt(2, 1, U'5'));   // the replaced character makes room
  EXPECT_EQ(on.box.text(), "1à54");
  on.box.keyFilter = digitsOnly;
  EXPECT_FALSE(on.box.typeAt(0, 1, U'x'));
  on.box.setLocked(true);
  EXPECT_FALSE(on.box.typeAt(0, 1, U'9'));
  EXPECT_EQ(on.changes, (std::vector<std::string>{"1à54"}));
}

TEST(EditBox, APasteAtAPlaceIsCutAtTheRoomThatIsLeft) {
  Box on;
  on.box.setText("però");
  on.changes.clear();
  EXPECT_TRUE(on.box.pasteAt(1, 2, "àèì"));
  EXPECT_EQ(on.box.text(), "pàèìò");
  on.box.setMaxLength(6);
  EXPECT_TRUE(on.box.pasteAt(5, 0, "xyz"));
  EXPECT_EQ(on.box.text(), "pàèìòx");
  EXPECT_EQ(on.changes, (std::vector<std::string>{"pàèìò", "pàèìòx"}));
}

TEST(EditBox, NothingIsPastedIntoAFullOrALockedBox) {
  Box on;
  on.box.setMaxLength(4);
  on.box.setText("più lungo");
  on.changes.clear();
  EXPECT_FALSE(on.box.pasteAt(2, 0, "no"));
  EXPECT_EQ(on.box.text(), "più ");
  EXPECT_EQ(on.box.stored(), "più lungo");
  on.box.setLocked(true);
  EXPECT_FALSE(on.box.pasteAt(0, 4, "x"));
  EXPECT_EQ(on.box.text(), "più ");
  EXPECT_TRUE(on.changes.empty());
}

TEST(EditBox, AStretchIsErasedUnlessTheBoxIsLocked) {
  Box on;
  on.box.setText("àèìòù");
  on.changes.clear();
  EXPECT_TRUE(on.box.eraseAt(1, 2));
  EXPECT_EQ(on.box.text(), "àòù");
  on.box.setLocked(true);
  EXPECT_FALSE(on.box.eraseAt(0, 1));
  EXPECT_EQ(on.changes, (std::vector<std::string>{"àòù"}));
}

TEST(EditBox, WithoutAHandlerItTakesTheTextAllTheSame) {
  Box on;
  on.box.onChange = nullptr;
  on.box.setText("a");
  EXPECT_TRUE(on.box.type(U'b'));
  EXPECT_EQ(on.box.text(), "ab");
}

}  // namespace
}  // namespace cu
