#include "desktop/leaving_support.h"

#include <QTest>
#include <QWindow>
#include <memory>
#include <utility>

#include "controls/datebox.h"
#include "controls/listbox.h"
#include "controls/numericbox.h"
#include "controls/picker.h"
#include "controls/selector.h"
#include "desktop/hand_support.h"
#include "desktop/text.h"

namespace cu::test {
namespace {

using nlohmann::json;
using Commands = Together::Commands;

constexpr const char* kNames[] = {"Tab", "Shift+Tab",  "another field", "bare ground", "another window",
                                  "Esc", "a mnemonic", "a button",      "Enter"};

}  // namespace

desktop::FormWindow& Leaving::screenTop() const { return *const_cast<Screen&>(screen).top(); }
QWidget& Leaving::keyboard() const {
  QWidget* const focus = screenTop().focusWidget();
  return focus == nullptr ? screenTop() : *focus;
}
QWidget& Leaving::widgetOf(const std::string& field) const {
  return *screenTop().view(control(field))->focusWidgets().first();
}

std::vector<std::string> Leaving::fields() const {
  std::vector<std::string> all;
  for (const Control* control : together.front().controls()) {
    const auto* const box = dynamic_cast<const EditBox*>(control);
    const bool field = box != nullptr ? !box->locked()
                                      : dynamic_cast<const ListBox*>(control) != nullptr ||
                                            dynamic_cast<const Selector*>(control) != nullptr ||
                                            dynamic_cast<const Check*>(control) != nullptr ||
                                            dynamic_cast<const Picker*>(control) != nullptr;
    if (field && control->available()) all.push_back(control->name());
  }
  return all;
}

void Leaving::walk(const Place& place) {
  place.enter();
  together.then([this, place] {
    const std::vector<std::string> all = fields();
    for (const std::string& field : all) {
      for (int way = 0; way <= static_cast<int>(Way::Enter); ++way) {
        visit(place, field, static_cast<Way>(way));
      }
    }
    visited += all.size();
  });
}

void Leaving::visit(const Place& place, const std::string& field, Way way) {
  const std::string what = field + " left by " + kNames[static_cast<int>(way)];
  together.part([this, field] { enter(field); },
                [this, field] {
                  return Commands{{{"do", "focus"}, {"on", together.named(field)}}};
                });
  together.part([this, field] { change(field); }, [this] { return typed_; });
  leave(place, field, way, what);
}

void Leaving::enter(const std::string& field) {
  const auto* const box = dynamic_cast<const EditBox*>(&control(field));
  if (box != nullptr && together.front().focus() != box) before_ = box->text();
  widgetOf(field).setFocus(Qt::TabFocusReason);
}

// Types a new text.
void Leaving::change(const std::string& field) {
  typed_.clear();
  pending_.clear();
  ++visits_;
  Control& changed = control(field);
  const std::string name = together.named(field);
  QTest::keyClick(&keyboard(), Qt::Key_A, Qt::ControlModifier);
  if (auto* const box = dynamic_cast<EditBox*>(&changed)) {
    const std::string text = textFor(field);
    std::string keys = text;
    // A date's slashes are inserted automatically.
    if (dynamic_cast<DateBox*>(box) != nullptr) std::erase(keys, '/');
    typeText(keyboard(), desktop::shown(keys));
    typed_ = {{{"do", "enter"}, {"in", name}, {"text", text}}};
  } else if (auto* const list = dynamic_cast<ListBox*>(&changed)) {
    QTest::keyClick(&keyboard(), list->index() == 0 ? Qt::Key_Down : Qt::Key_Up);
    typed_ = {{{"do", "choose"}, {"in", name}, {"index", list->index()}}};
  } else if (dynamic_cast<Check*>(&changed) != nullptr) {
    for (int i = 0; i < 2; ++i) QTest::keyClick(&keyboard(), Qt::Key_Space);
    typed_ = {{{"do", "click"}, {"on", name}}, {{"do", "click"}, {"on", name}}};
  } else if (dynamic_cast<Selector*>(&changed) != nullptr) {
    changeSelector(field);
  }
}

// A text typed into a selector is committed when the selector is left.
void Leaving::changeSelector(const std::string& field) {
  const bool payee = field.find("Perc") != std::string::npos;
  const bool unknown = visits_ % 4 == 0;
  const std::vector<std::string> known =
      payee ? std::vector<std::string>{"P001", "P002", "P003"} : std::vector<std::string>{"A", "M", "N"};
  const std::string code =
      unknown ? "ZZ" + std::to_string(visits_) : known[static_cast<std::size_t>(visits_) % known.size()];
  typeText(keyboard(), desktop::shown(code));
  pending_ = {{{"do", "choose"}, {"in", together.named(field)}, {"code", code}}};
  if (unknown) pending_.front()["description"] = "";
}

// Never twice the same in succession.
std::string Leaving::textFor(const std::string& field) const {
  const Control& box = control(field);
  const int days = visits_ % 18;
  if (dynamic_cast<const DateBox*>(&box) != nullptr) return std::to_string(10 + days) + "/02/2017";
  if (dynamic_cast<const AmountBox*>(&box) != nullptr) return std::to_string(1000 + visits_) + ",5";
  return std::to_string(field == "numAnno" ? 1990 + days : visits_ % 10);
}

Commands Leaving::after(json command) {
  Commands all = std::exchange(pending_, {});
  all.push_back(std::move(command));
  return all;
}

// On another step the window moves to the field where the work begins, the driver where it is sent.
Commands Leaving::pressed(const std::string& button) {
  Commands all = after({{"do", "click"}, {"on", form_ + "." + button}});
  const Control* const focus = together.front().focus();
  if (Hand::waiting().empty() && !together.front().stages().empty() && focus != nullptr) {
    all.push_back({{"do", "focus"}, {"on", together.named(focus->name())}});
  }
  return all;
}

Commands Leaving::focusNow(const std::string& field) {
  const Control* const focus = together.front().focus();
  EXPECT_NE(focus, nullptr) << field;
  if (focus == nullptr) return {};
  EXPECT_NE(focus->name(), field);
  return after({{"do", "focus"}, {"on", together.named(focus->name())}});
}

void Leaving::leave(const Place& place, const std::string& field, Way way, const std::string& what) {
  const bool forward = way == Way::Tab;
  switch (way) {
    case Way::Tab:
    case Way::ShiftTab:
      together.step(
          what, [this, field, forward] { tab(field, forward); }, [this, field] { return focusNow(field); });
      return;
    case Way::OtherField:
      leaveToField(place, field, what);
      return;
    case Way::Ground:
      together.step(
          what,
          [this] {
            const QPoint corner(1, screenTop().height() - 1);
            QTest::mouseClick(&screenTop(), Qt::LeftButton, Qt::NoModifier, corner);
          },
          [this, field] {
            return after({{"do", "leave"}, {"of", together.named(field)}});
          });
      return;
    case Way::WindowSwitch:
      together.step(
          what, [this] { switchWindow(); }, [this] { return std::exchange(pending_, {}); });
      return;
    case Way::Esc:
      takeBack(field, what);
      return;
    case Way::Mnemonic:
    case Way::ButtonClick:
      leaveByButton(place, way, what);
      return;
    case Way::Enter:
      leaveByEnter(place, what);
      return;
  }
}

// Until the focus is in another control: a selector has two boxes, and the window has fields of its own.
void Leaving::tab(const std::string& field, bool forward) {
  for (int i = 0; i < 3; ++i) {
    QTest::keyClick(&keyboard(), forward ? Qt::Key_Tab : Qt::Key_Backtab);
    const Control* const focus = together.front().focus();
    if (focus == nullptr || focus->name() == field) continue;
    if (screenTop().view(*focus)->focusWidgets().contains(&keyboard())) return;
  }
}

void Leaving::leaveToField(const Place& place, const std::string& field, const std::string& what) {
  const std::string to = field == place.other ? place.another : place.other;
  together.step(
      what,
      [this, to] {
        QWidget& box = widgetOf(to);
        QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, {4, box.height() / 2});
        EXPECT_EQ(together.front().focus(), &control(to));
      },
      [this, to] {
        // A click on a check box changes it.
        const bool check = dynamic_cast<const Check*>(&control(to)) != nullptr;
        return after({{"do", check ? "click" : "focus"}, {"on", together.named(to)}});
      });
}

void Leaving::switchWindow() {
  {
    QWidget other(&screenTop(), Qt::Tool);
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
  }
  settle();
  screenTop().activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&screenTop()));
}

// The driver has no key for it: it writes the previous text. After leaving the field both have the same
// format.
void Leaving::takeBack(const std::string& field, const std::string& what) {
  const bool box = dynamic_cast<EditBox*>(&control(field)) != nullptr;
  if (!box && dynamic_cast<Selector*>(&control(field)) == nullptr) return;
  together.step(
      what,
      [this, field] {
        QTest::keyClick(&keyboard(), Qt::Key_Escape);
        tab(field, true);
      },
      [this, field, box] {
        pending_.clear();
        if (box) pending_ = {{{"do", "paste"}, {"in", together.named(field)}, {"text", before_}}};
        return focusNow(field);
      });
}

void Leaving::leaveByButton(const Place& place, Way way, const std::string& what) {
  const bool mnemonic = way == Way::Mnemonic;
  if (place.button.empty() || (mnemonic && place.mnemonic == Qt::Key_unknown)) return;
  // A list with one entry has not changed; a button that requires a change has no effect in a window, while a
  // driver is rejected.
  const auto works = std::make_shared<bool>();
  together.step(
      what,
      [this, mnemonic, place, works] {
        form_ = together.front().name();
        *works = control(place.button).available();
        if (mnemonic) {
          QTest::keyClick(screenTop().windowHandle(), place.mnemonic, Qt::AltModifier);
        } else {
          screen.click(place.button.c_str());
        }
      },
      [this, place, works] { return *works ? pressed(place.button) : Commands(); });
  place.back();
}

void Leaving::leaveByEnter(const Place& place, const std::string& what) {
  together.part(
      [this] {
        form_ = together.front().name();
        QTest::keyClick(&keyboard(), Qt::Key_Return);
      },
      [this] {
        return after({{"do", "key"}, {"on", form_}, {"code", 13}});
      });
  dropModule();
  together.step(
      what, [] {}, [] { return Commands(); });
  if (!place.enterCloses) return;
  answerBoxes();
  place.enter();
}

// Only the window asks for confirmation about an unsaved module.
void Leaving::dropModule() {
  together.then([this] {
    if (Hand::modal() == nullptr || Hand::modal()->objectName() != QStringLiteral("conferma")) return;
    together.part([] { pressButton(*Hand::modal(), "Prosegui senza salvare"); }, [] { return Commands(); });
  });
}

void Leaving::click(const char* button) {
  together.step(
      std::string("press ") + button,
      [this, button] {
        form_ = together.front().name();
        screen.click(button);
      },
      [this, button] { return pressed(button); });
}

void Leaving::closeForms() {
  together.then([this] {
    if (together.front().name() == "frmWizard") return;
    together.step(
        "close the form",
        [this] {
          form_ = together.front().name();
          QTest::keyClick(&keyboard(), Qt::Key_Escape);
        },
        [this] {
          return Commands{{{"do", "key"}, {"on", form_}, {"code", 27}}};
        });
    closeForms();
  });
}

void Leaving::answerBoxes(const char* caption, const char* answer) {
  together.then([this, caption, answer] {
    if (Hand::waiting() != "message") return;
    together.step(
        "a box", [caption] { pressButton(*Hand::modal(), caption); },
        [answer] {
          return Commands{{{"do", "answer"}, {"with", answer}}};
        });
    answerBoxes(caption, answer);
  });
}

}  // namespace cu::test
