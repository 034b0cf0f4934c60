#include "desktop/hand_support.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSpinBox>
#include <QTest>

#include "desktop/dialogs.h"
#include "desktop/edit_view.h"
#include "desktop/grid_view.h"
#include "desktop/list_views.h"
#include "desktop/preview_dialog.h"
#include "desktop/selector_view.h"
#include "desktop/text.h"

namespace cu::test {
namespace {

using nlohmann::json;

Qt::Key keyOf(int code) {
  switch (code) {
    case 13:
      return Qt::Key_Return;
    case 27:
      return Qt::Key_Escape;
    case 32:
      return Qt::Key_Space;
    case 33:
      return Qt::Key_PageUp;
    case 34:
      return Qt::Key_PageDown;
    case 112:
      return Qt::Key_F1;
    default:
      return static_cast<Qt::Key>(code);
  }
}

Qt::KeyboardModifiers heldIn(int shift) {
  Qt::KeyboardModifiers held;
  held.setFlag(Qt::ShiftModifier, (shift & 1) != 0);
  held.setFlag(Qt::ControlModifier, (shift & 2) != 0);
  held.setFlag(Qt::AltModifier, (shift & 4) != 0);
  return held;
}

void typeOver(QLineEdit& line, const std::string& text) {
  line.setFocus();
  line.selectAll();
  if (text.empty()) QTest::keyClick(&line, Qt::Key_Delete);
  typeText(line, desktop::shown(text));
}

void pick(QComboBox& combo, int index) {
  combo.setFocus();
  if (index < 0) {
    QTest::keyClick(&combo, Qt::Key_Delete);
    return;
  }
  combo.setCurrentIndex(index);
  emit combo.activated(index);
}

}  // namespace

QWidget* Hand::modal() {
  if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
  QWidget* const modal = QApplication::activeModalWidget();
  return dynamic_cast<desktop::FormWindow*>(modal) != nullptr ? nullptr : modal;
}

std::string Hand::waiting() {
  QWidget* const shown = modal();
  if (shown == nullptr) return {};
  if (qobject_cast<QMenu*>(shown) != nullptr) return "menu";
  if (shown->objectName() == QStringLiteral("messaggio")) return "message";
  if (shown->objectName() == QStringLiteral("errore")) return "error";
  if (const auto* const files = qobject_cast<QFileDialog*>(shown)) {
    return files->fileMode() == QFileDialog::Directory ? "folder" : "save";
  }
  if (dynamic_cast<desktop::PrinterChooser*>(shown) != nullptr) return "printer";
  if (dynamic_cast<desktop::LogDialog*>(shown) != nullptr) return "log";
  if (dynamic_cast<desktop::PreviewDialog*>(shown) != nullptr) return "preview";
  return "?";
}

desktop::FormWindow* Hand::window(const std::string& form) const {
  desktop::FormWindow* const top = screen_.top();
  return top != nullptr && top->form().name() == form ? top : nullptr;
}

desktop::View* Hand::view(const std::string& fullName) const {
  const std::size_t point = fullName.find('.');
  const desktop::FormWindow* const in = window(fullName.substr(0, point));
  if (in == nullptr) return nullptr;
  const Control* const control = in->form().find(fullName.substr(point + 1));
  return control == nullptr ? nullptr : in->view(*control);
}

bool Hand::reachable(const QWidget& widget) const {
  return waiting().empty() && widget.isVisible() && widget.isEnabled();
}

bool Hand::click(const json& command) {
  desktop::View* const pressed = view(command["on"]);
  auto* const button = pressed == nullptr ? nullptr : qobject_cast<QAbstractButton*>(pressed->widget());
  if (button == nullptr || !reachable(*button)) return false;
  QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, {8, button->height() / 2});
  return true;
}

bool Hand::enter(const json& command) {
  auto* const box = dynamic_cast<desktop::EditView*>(view(command["in"]));
  if (box == nullptr || !reachable(*box->line()) || box->line()->isReadOnly()) return false;
  typeOver(*box->line(), command["text"]);
  return true;
}

bool Hand::choose(const json& command) {
  desktop::View* const in = view(command["in"]);
  if (in == nullptr || !reachable(*in->widget())) return false;
  if (auto* const list = dynamic_cast<desktop::ListView*>(in)) {
    const int index = command.contains("index")
                          ? command["index"].get<int>()
                          : list->combo()->findText(desktop::shown(command.value("text", "")));
    pick(*list->combo(), index);
    return true;
  }
  if (auto* const selector = dynamic_cast<desktop::SelectorView*>(in)) {
    typeOver(*selector->codeBox(), command["code"]);
    QTest::keyClick(selector->codeBox(), Qt::Key_Tab);
    if (command.contains("description")) {
      typeOver(*selector->descriptionBox(), command["description"]);
      QTest::keyClick(selector->descriptionBox(), Qt::Key_Backtab);
    }
    return true;
  }
  auto* const print = dynamic_cast<desktop::PrintView*>(in);
  if (print == nullptr || !print->outputs()->isEnabled()) return false;
  if (command.contains("report")) {
    pick(*print->reports(), print->reports()->findData(desktop::shown(command["report"].get<std::string>())));
  }
  if (command.contains("output")) pick(*print->outputs(), command["output"].get<int>() - 1);
  return true;
}

bool Hand::key(const json& command) {
  if (!waiting().empty()) return false;
  const std::string on = command["on"];
  const bool form = on.find('.') == std::string::npos;
  desktop::FormWindow* const in = window(on.substr(0, on.find('.')));
  if (in == nullptr) return false;
  QWidget* target = in->focusWidget() != nullptr ? in->focusWidget() : in;
  if (!form) {
    target = view(on)->widget();
    target->setFocus();
  }
  QTest::keyClick(target, keyOf(command["code"]), heldIn(command.value("shift", 0)));
  return true;
}

bool Hand::press(const json& command, bool twice) {
  auto* const grid = dynamic_cast<desktop::GridView*>(view(command["in"]));
  if (grid == nullptr || !reachable(grid->table())) return false;
  desktop::GridTable& table = grid->table();
  const int row = command["row"].get<int>() - 1;
  const auto column =
      command.contains("column") ? grid->model().columnOf(command["column"].get<std::string>()) : 2;
  if (!column) return false;
  if (row < 0) {
    QHeaderView* const header = table.horizontalHeader();
    const QPoint at(header->sectionViewportPosition(*column) + 12, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    return true;
  }
  const QModelIndex cell = grid->model().index(grid->model().viewRow(row), *column);
  if (!cell.isValid()) return false;
  table.scrollTo(cell);
  const QPoint at = table.visualRect(cell).center();
  if (twice) {
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, at);
  } else {
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, at);
  }
  return true;
}

bool Hand::menu(const json& command) {
  const QString tool = desktop::shown(command["tool"].get<std::string>());
  QWidget* const from = modal() != nullptr ? modal() : screen_.top();
  auto* const entry = from->findChild<QAction*>(tool);
  if (entry == nullptr) return false;
  // A tool that a window does not show has no effect either.
  const auto* const bar = dynamic_cast<const MenuBar*>(screen_.form().find("BarMenuWzr"));
  const MenuBar::Tool* const told = bar->tool(command["tool"].get<std::string>());
  if (told != nullptr && told->inert) return told->enabled && !entry->isEnabled();
  if (!entry->isEnabled()) return false;
  if (auto* const popup = qobject_cast<QMenu*>(from)) {
    QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier, popup->actionGeometry(entry).center());
  } else {
    entry->trigger();
  }
  return true;
}

bool Hand::answer(const json& with) {
  QWidget* const shown = modal();
  if (shown == nullptr) return false;
  if (auto* const files = qobject_cast<QFileDialog*>(shown)) {
    if (with.is_string()) {
      files->reject();
      return true;
    }
    const std::string chosen = with.begin().value();
    files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(desktop::shown(chosen));
    QTest::keyClick(files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")), Qt::Key_Return);
    return true;
  }
  if (with.is_object()) {
    shown->findChild<QComboBox*>()->setEditText(desktop::shown(with["printer"].get<std::string>()));
    shown->findChild<QSpinBox*>()->setValue(with["copies"]);
    pressButton(*shown, "Stampa");
    return true;
  }
  const std::string word = with;
  if (qobject_cast<QMenu*>(shown) != nullptr) {
    QTest::keyClick(shown, Qt::Key_Escape);
  } else if (word == "ok" && (waiting() == "log" || waiting() == "preview")) {
    pressButton(*shown, "Chiudi");
  } else {
    const std::map<std::string, const char*> captions = {
        {"ok", "OK"}, {"cancel", "Annulla"}, {"yes", "Sì"}, {"no", "No"}};
    pressButton(*shown, captions.at(word));
  }
  return true;
}

bool Hand::perform(const json& command) {
  const std::string what = command["do"];
  if (what == "click") return click(command);
  if (what == "enter") return enter(command);
  if (what == "choose") return choose(command);
  if (what == "key") return key(command);
  if (what == "press") return press(command, false);
  if (what == "doubleclick") return press(command, true);
  if (what == "menu") return menu(command);
  if (what == "answer") return answer(command["with"]);
  if (what == "row") {
    auto* const grid = dynamic_cast<desktop::GridView*>(view(command["in"]));
    grid->table().setFocus();
    grid->table().setCurrentIndex(
        grid->model().index(grid->model().viewRow(command["row"].get<int>() - 1), 2));
    return true;
  }
  if (what == "focus") {
    desktop::View* const on = view(command["on"]);
    if (on == nullptr || !reachable(*on->widget())) return false;
    on->focusWidgets().first()->setFocus(Qt::TabFocusReason);
    return true;
  }
  if (what == "close") {
    desktop::FormWindow* const closing = window(command["window"]);
    return closing != nullptr && waiting().empty() && (closing->close(), true);
  }
  return true;  // read-only
}

}  // namespace cu::test
