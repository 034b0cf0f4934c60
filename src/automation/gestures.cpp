#include "automation/gestures.h"

#include "automation/reach.h"
#include "base/text.h"
#include "controls/datebox.h"
#include "controls/grid.h"
#include "controls/menubar.h"
#include "controls/numericbox.h"
#include "controls/textbox.h"

namespace cu {
namespace {

// Each visitor sets `event` to the effect of the gesture on its control.
struct Click : RefusingVisitor {
  Click() : RefusingVisitor("qui non c'è nulla da premere") {}
  using RefusingVisitor::visit;
  void visit(Button& control) override {
    event = [&] { control.click(); };
  }
  void visit(Link& control) override {
    event = [&] { control.click(); };
  }
  void visit(Option& control) override {
    event = [&] { control.click(); };
  }
  void visit(Check& control) override {
    event = [&] { control.click(); };
  }
  Event event;
};

struct Edit : RefusingVisitor {
  Edit() : RefusingVisitor("qui non si scrive") {}
  using RefusingVisitor::visit;
  void visit(TextBox& control) override { take(control); }
  void visit(DateBox& control) override { take(control); }
  void visit(AmountBox& control) override { take(control); }
  void visit(NumberBox& control) override { take(control); }
  EditBox* box = nullptr;

 private:
  void take(EditBox& control) {
    if (control.locked()) refuse(control, "il controllo è in sola lettura");
    box = &control;
  }
};

struct Rows : RefusingVisitor {
  Rows() : RefusingVisitor("il controllo non è una griglia") {}
  using RefusingVisitor::visit;
  void visit(Grid& control) override { grid = &control; }
  Grid* grid = nullptr;
};

EditBox& editBox(Control& control) {
  Edit edit;
  control.accept(edit);
  requireReach(control);
  return *edit.box;
}

Grid& gridOf(Control& control) {
  Rows rows;
  control.accept(rows);
  return *rows.grid;
}

std::size_t existingRow(const Grid& grid, std::int64_t row, std::int64_t least) {
  const auto count = static_cast<std::int64_t>(grid.rowCount());
  if (row < least || row > count) {
    refuse(grid, "la riga " + fromInteger(row) + " non esiste: le righe sono " + fromInteger(count));
  }
  return static_cast<std::size_t>(row);
}

}  // namespace

void clickOn(Control& control) {
  Click click;
  control.accept(click);
  requireReach(control);
  control.form().perform(control, click.event);
}

void typeInto(Control& control, const std::string& text) {
  EditBox& box = editBox(control);
  control.form().perform(control, [&] { box.enter(text); });
}

void pasteInto(Control& control, const std::string& text) {
  EditBox& box = editBox(control);
  control.form().perform(control, [&] { box.paste(text); });
}

void focusOn(Control& control) {
  if (!control.takesFocus()) refuse(control, "il controllo non può avere il fuoco");
  requireReach(control);
  control.form().perform(control, {});
}

void leave(Control& control) {
  if (!control.takesFocus()) refuse(control, "il controllo non può avere il fuoco");
  requireReach(control);
  control.form().perform(control, [&] { control.form().setFocus(nullptr); });
}

void selectRow(Control& control, std::int64_t row) {
  Grid& grid = gridOf(control);
  requireReach(control);
  const std::size_t chosen = existingRow(grid, row, 1);
  control.form().perform(control, [&] { grid.selectRow(chosen); });
}

void pressCell(Control& control, std::int64_t row, const std::string& column) {
  Grid& grid = gridOf(control);
  requireReach(control);
  const std::size_t pressed = existingRow(grid, row, 0);
  const GridColumn* const shown = grid.column(column);
  if (shown == nullptr) refuse(control, "la colonna \"" + column + "\" non esiste");
  if (!shown->visible) refuse(control, "la colonna \"" + column + "\" è nascosta");
  const std::string field = shown->field;
  control.form().perform(control, [&] { grid.press(pressed, field); });
}

void doubleClickRow(Control& control, std::int64_t row) {
  Grid& grid = gridOf(control);
  requireReach(control);
  const std::size_t clicked = existingRow(grid, row, 0);
  control.form().perform(control, [&] { grid.doubleClick(clicked); });
}

bool pressKey(Control& control, std::int16_t code, std::int16_t shift) {
  Grid& grid = gridOf(control);
  requireReach(control);
  bool consumed = false;
  control.form().perform(control, [&] { consumed = grid.keyDown(code, shift); });
  return consumed;
}

bool pressKey(Form& form, std::int16_t code, std::int16_t shift) {
  bool consumed = false;
  form.perform([&] { consumed = form.keyDown(code, shift); });
  return consumed;
}

void turnWheel(Form& form, int delta) {
  form.frontEnd().runEvent([&] { form.wheel(delta); });
}

void chooseTool(MenuBar& bar, const std::string& tool) {
  requireReach(bar);
  bar.form().perform(bar, [&] { bar.click(tool); });
}

void closeBox(Form& form) {
  form.frontEnd().runEvent([&] { form.close(); });
}

}  // namespace cu
