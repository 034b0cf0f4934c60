#include "desktop/agreement_support.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

#include "controls/band.h"
#include "controls/menubar.h"
#include "controls/numericbox.h"
#include "desktop/edit_view.h"
#include "desktop/grid_view.h"
#include "desktop/list_views.h"
#include "desktop/selector_view.h"
#include "desktop/text.h"

namespace cu::test {
namespace {

using desktop::shown;

class Comparing : public ControlVisitor {
 public:
  explicit Comparing(desktop::View& view) : view_(view) {}
  QString found;

  void visit(Frame& control) override {
    if (const auto* const section = qobject_cast<QGroupBox*>(view_.widget())) {
      same("caption", section->title(), shown(control.caption()));
    }
  }
  void visit(Label& control) override {
    const auto* const label = qobject_cast<QLabel*>(view_.widget());
    same("caption", label->text(), desktop::lines(control.caption()));
  }
  void visit(Link& control) override {
    QString text = qobject_cast<QAbstractButton*>(view_.widget())->text();
    same("caption", text.replace(QStringLiteral("&&"), QStringLiteral("&")), shown(control.caption()));
  }
  void visit(Button& control) override { button(control); }
  void visit(Option& control) override {
    button(control);
    same("value", pressed(), control.value());
  }
  void visit(Check& control) override {
    button(control);
    same("value", pressed(), control.value());
  }
  void visit(TextBox& control) override { box(control); }
  void visit(DateBox& control) override { box(control); }
  void visit(AmountBox& control) override { box(control); }
  void visit(NumberBox& control) override { box(control); }
  void visit(ListBox& control) override {
    const QComboBox& combo = *static_cast<desktop::ListView&>(view_).combo();
    same("entries", combo.count(), static_cast<int>(control.entries().size()));
    same("index", combo.currentIndex(), control.index());
    same("text", combo.currentText(), shown(control.text()));
  }
  void visit(Selector& control) override {
    const auto& boxes = static_cast<desktop::SelectorView&>(view_);
    same("code", boxes.codeBox()->text(), shown(control.code()));
    same("description", boxes.descriptionBox()->text(), shown(control.description()));
  }
  void visit(Picker& control) override {
    same("text", static_cast<desktop::PickerView&>(view_).nameBox()->text(), shown(control.text()));
  }
  void visit(Tabs& control) override {
    const auto* const bar = qobject_cast<QTabBar*>(view_.widget());
    same("selected", bar->currentIndex() + 1, control.selected());
    for (int i = 0; i < bar->count(); ++i) {
      same("tab", bar->isTabVisible(i), control.tabs()[static_cast<std::size_t>(i)].visible);
    }
  }
  void visit(Grid& control) override {
    auto& grid = static_cast<desktop::GridView&>(view_);
    same("rows", grid.model().gridRows(), static_cast<int>(control.rowCount()));
    const int current = grid.table().currentIndex().row();
    if (!grid.currentHidden())
      same("row", grid.model().gridRow(current) + 1, static_cast<int>(control.row()));
    same("columns", grid.model().columnCount(), static_cast<int>(control.columns().size()));
    for (int i = 0; i < grid.model().columnCount(); ++i) {
      const GridColumn& column = control.columns()[static_cast<std::size_t>(i)];
      same("heading", grid.model().headerData(i, Qt::Horizontal, Qt::DisplayRole).toString(),
           shown(column.caption));
      same("hidden", grid.table().isColumnHidden(i), !column.visible);
      if (control.row() == 0 || grid.currentHidden()) continue;
      const std::size_t field = control.rows()->Fields().find(column.field);
      const CellView cell = field == Columns::kNone ? CellView() : control.rows()->Get(field);
      same("cell", grid.model().text(current, i), shown(control.shown(column, cell)));
    }
  }
  void visit(SideBand& control) override {
    int steps = 0;
    for (const SideBand::Item& item : control.items()) {
      if (view_.widget()->accessibleDescription().contains(shown(item.description))) ++steps;
    }
    same("items", steps, static_cast<int>(control.items().size()));
  }
  void visit(MenuBar& control) override {
    const auto* const bar = qobject_cast<QMenuBar*>(view_.widget());
    for (const MenuBar::Tool& tool : control.tools()) {
      const auto* const entry = bar->findChild<QAction*>(shown(tool.key));
      same("tool", entry != nullptr && entry->isEnabled(), control.toolAvailable(tool) && !tool.inert);
    }
  }
  void visit(PrintControl& control) override {
    const auto& print = static_cast<desktop::PrintView&>(view_);
    same("report", print.reports()->currentData().toString(), shown(control.report()));
    same("output", print.outputs()->currentIndex() + 1, control.output());
    same("choice", print.reports()->isEnabledTo(print.widget()), control.choice());
  }

  template <class T>
  void same(const char* what, const T& widget, const T& model) {
    if (widget == model) return;
    found +=
        QStringLiteral("%1: widget \"%2\", model \"%3\"; ").arg(QLatin1String(what)).arg(widget).arg(model);
  }

 private:
  bool pressed() const { return qobject_cast<QAbstractButton*>(view_.widget())->isChecked(); }
  void button(const Control& control) {
    same("caption", qobject_cast<QAbstractButton*>(view_.widget())->text(), shown(control.caption()));
  }
  void box(const EditBox& control) {
    const QLineEdit& line = *static_cast<desktop::EditView&>(view_).line();
    same("text", line.text(), shown(control.text()));
    same("locked", line.isReadOnly(), control.locked() || view_.reads());
    const bool face = line.palette().color(QPalette::Base) == line.palette().color(QPalette::Window);
    if (control.enabled()) same("face", face, control.locked() || control.background() == Background::Face);
  }
  desktop::View& view_;
};

}  // namespace

std::string disagreements(const desktop::FormWindow& window) {
  QString all;
  for (Control* control : window.form().controls()) {
    desktop::View* const view = window.view(*control);
    if (view == nullptr) {
      all += shown(control->name()) + QStringLiteral(": not shown at all\n");
      continue;
    }
    Comparing comparing(*view);
    control->accept(comparing);
    const QWidget* const widget = view->widget();
    const auto* const frame = dynamic_cast<const Frame*>(control);
    // A disabled text that can be read and copied is no field of the keyboard.
    const bool enabled = widget->isEnabledTo(widget->parentWidget()) && !view->reads();
    comparing.same("enabled", enabled, control->enabled());
    for (const QWidget* taker : view->focusWidgets()) {
      if (view->reads()) comparing.same("focus", taker->focusPolicy() == Qt::NoFocus, true);
    }
    comparing.same("visible", !widget->isHidden(),
                   control->visible() && (frame == nullptr || frame->onStage()));
    // The user and the driver can reach the same controls.
    if (control->takesFocus()) {
      comparing.same("reachable", widget->isEnabled() && !view->reads() && widget->isVisibleTo(&window),
                     control->available());
    }
    if (!comparing.found.isEmpty())
      all += shown(control->name()) + QStringLiteral(": ") + comparing.found + u'\n';
  }
  const Control* const focus = window.form().focus();
  if (focus != nullptr && window.view(*focus) != nullptr) {
    if (!window.view(*focus)->focusWidgets().contains(window.focusWidget())) {
      all += QStringLiteral("focus: not in ") + shown(focus->name()) + u'\n';
    }
  }
  if (window.windowTitle() != desktop::titled(window.form().caption())) all += QStringLiteral("title\n");
  return all.toStdString();
}

}  // namespace cu::test
