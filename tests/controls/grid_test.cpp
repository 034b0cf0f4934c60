#include "controls/grid.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "controls/controls_support.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::CountingView;
using test::lines;
using test::OpenRows;
using test::Stage;
using test::text;
using test::whole;

GridColumn columnOf(int type, std::string field = "x") {
  GridColumn column;
  column.field = std::move(field);
  column.type = type;
  return column;
}

struct Bound {
  Stage stage;
  Grid grid{stage.form, "grdCompensi", nullptr};
  OpenRows rows{lines(4)};
  CountingView view;
  std::vector<std::size_t> rowChanges;
  Bound() {
    grid.attach(&view);
    grid.onRowChange = [this] { rowChanges.push_back(grid.row()); };
  }
};

TEST(Grid, ColumnsAreFoundByNameAndRecaptioned) {
  Bound on;
  on.grid.addColumn(
      {.field = "Selezionato", .caption = "[ 0 ]", .type = kGridBoolean, .width = 700, .alignment = 2});
  on.grid.addColumn({.field = "Codice", .caption = "Codice pagamento"});
  ASSERT_EQ(on.grid.columns().size(), 2U);
  ASSERT_NE(on.grid.column("selezionato"), nullptr);
  EXPECT_EQ(on.grid.column("Anno"), nullptr);
  EXPECT_EQ(on.grid.columns()[1].type, kGridText);
  EXPECT_TRUE(on.grid.columns()[1].visible);
  EXPECT_FALSE(on.grid.columns()[1].editable);
  const int before = on.view.changes;
  on.grid.setColumnCaption("Selezionato", "[ 7 ]");
  on.grid.setColumnCaption("Selezionato", "[ 7 ]");
  on.grid.setColumnCaption("Anno", "x");
  EXPECT_EQ(on.grid.columns()[0].caption, "[ 7 ]");
  EXPECT_EQ(on.view.changes, before + 1);
  on.grid.clearColumns();
  EXPECT_TRUE(on.grid.columns().empty());
}

TEST(Grid, UnboundOrClosedItHasNoRows) {
  Bound on;
  EXPECT_EQ(on.grid.rowCount(), 0U);
  EXPECT_EQ(on.grid.row(), 0U);
  Recordset closed;
  on.grid.bind(&closed);
  EXPECT_EQ(on.grid.rowCount(), 0U);
  EXPECT_EQ(on.grid.row(), 0U);
  on.grid.selectRow(1);
  on.grid.press(1, "Numero");
  on.grid.doubleClick(1);
  EXPECT_TRUE(on.rowChanges.empty());
  on.grid.bind(nullptr);
  EXPECT_EQ(on.grid.rows(), nullptr);
}

TEST(Grid, ItsCurrentRowIsTheRecordsets) {
  Bound on;
  on.grid.bind(&on.rows.set);
  EXPECT_EQ(on.grid.rowCount(), 4U);
  EXPECT_EQ(on.grid.row(), 1U);
  on.rows.set.MoveTo(on.rows.set.RecordCount());
  EXPECT_EQ(on.grid.row(), 4U);
  on.rows.set.MoveNext();
  EXPECT_EQ(on.grid.row(), 0U);
  on.rows.set.SetFilter("Numero > 2");
  EXPECT_EQ(on.grid.rowCount(), 2U);
}

TEST(Grid, SelectingARowMovesTheRecordsetAndRaisesTheEvent) {
  Bound on;
  on.grid.bind(&on.rows.set);
  on.rowChanges.clear();
  on.grid.selectRow(3);
  EXPECT_EQ(on.rows.set.Get("Numero").integer(), 3);
  on.grid.selectRow(3);
  on.grid.selectRow(0);
  on.grid.selectRow(5);
  EXPECT_EQ(on.rowChanges, (std::vector<std::size_t>{3}));
  EXPECT_EQ(on.grid.row(), 3U);
}

TEST(Grid, BindingAndRefreshingShowTheCurrentRow) {
  Bound on;
  on.grid.bind(&on.rows.set);
  EXPECT_EQ(on.rowChanges, (std::vector<std::size_t>{1}));
  on.rows.set.MoveTo(2);
  on.grid.refresh();
  EXPECT_EQ(on.rowChanges, (std::vector<std::size_t>{1, 2}));
  on.rows.set.SetFilter("Numero = 99");
  on.grid.refresh();
  on.grid.bind(nullptr);
  EXPECT_EQ(on.rowChanges.size(), 2U);
}

TEST(Grid, WhileDrawingIsSuspendedNothingIsDrawn) {
  Bound on;
  on.grid.bind(&on.rows.set);
  on.rowChanges.clear();
  const int before = on.view.changes;
  on.grid.suspendDrawing();
  on.grid.suspendDrawing();
  EXPECT_FALSE(on.grid.drawing());
  on.grid.refresh();
  on.grid.resumeDrawing();
  EXPECT_FALSE(on.grid.drawing());
  EXPECT_EQ(on.view.changes, before);
  on.grid.resumeDrawing();
  EXPECT_TRUE(on.grid.drawing());
  EXPECT_EQ(on.view.changes, before + 1);
  EXPECT_TRUE(on.rowChanges.empty());
  on.grid.resumeDrawing();
  EXPECT_TRUE(on.grid.drawing());
}

TEST(Grid, APauseEndsWithItsScopeAlsoAfterAnError) {
  Bound on;
  try {
    const DrawingPause pause(on.grid);
    EXPECT_FALSE(on.grid.drawing());
    throw Error(5, "guasto");
  } catch (const Error&) {
  }
  EXPECT_TRUE(on.grid.drawing());
}

TEST(Grid, APressMakesTheRowCurrentAndThenRunsTheEvent) {
  Bound on;
  on.grid.bind(&on.rows.set);
  std::vector<std::pair<std::size_t, std::string>> presses;
  std::vector<std::int64_t> currents;
  on.grid.onMouseUp = [&](std::size_t row, const std::string& field) {
    presses.emplace_back(row, field);
    currents.push_back(on.rows.set.Get("Numero").integer());
  };
  on.grid.press(3, "Selezionato");
  on.grid.press(0, "Selezionato");
  on.grid.press(5, "Selezionato");
  EXPECT_EQ(presses,
            (std::vector<std::pair<std::size_t, std::string>>{{3, "Selezionato"}, {0, "Selezionato"}}));
  EXPECT_EQ(currents, (std::vector<std::int64_t>{3, 3}));
}

TEST(Grid, ADoubleClickOnTheHeaderOrBelowTheRowsDoesNothing) {
  Bound on;
  on.grid.bind(&on.rows.set);
  std::vector<std::int64_t> opened;
  on.grid.onDoubleClick = [&] { opened.push_back(on.rows.set.Get("Numero").integer()); };
  on.grid.doubleClick(2);
  on.grid.doubleClick(0);
  on.grid.doubleClick(5);
  EXPECT_EQ(opened, (std::vector<std::int64_t>{2}));
}

TEST(Grid, TheFormSeesAKeyFirst) {
  Bound on;
  std::vector<std::string> seen;
  on.stage.form.onKeyDown = [&](std::int16_t& code, std::int16_t& shift) {
    seen.push_back("form");
    if (code == 112) code = shift = 0;
  };
  on.grid.onKeyDown = [&](std::int16_t& code, std::int16_t& shift) {
    seen.push_back("grid");
    if (code == 32) code = shift = 0;
  };
  EXPECT_TRUE(on.grid.keyDown(112, 0));
  EXPECT_EQ(seen, (std::vector<std::string>{"form"}));
  EXPECT_TRUE(on.grid.keyDown(32, 0));
  EXPECT_FALSE(on.grid.keyDown(65, 1));
  EXPECT_EQ(seen, (std::vector<std::string>{"form", "form", "grid", "form", "grid"}));
}

TEST(Grid, ShowsCellsByTheirColumnsType) {
  Bound on;
  const auto shown = [&](int type, const Value& value) {
    return on.grid.shown(columnOf(type), value.view());
  };
  EXPECT_EQ(shown(kGridText, text("Nicolò")), "Nicolò");
  EXPECT_EQ(shown(kGridText, Value()), "");
  EXPECT_EQ(shown(kGridLong, whole(2016)), "2016");
  EXPECT_EQ(shown(kGridLong, Value()), "");
  EXPECT_EQ(shown(kGridBigInteger, whole(-5)), "-5");
  EXPECT_EQ(shown(kGridBoolean, whole(-1)), "Sì");
  EXPECT_EQ(shown(kGridBoolean, whole(1)), "Sì");
  EXPECT_EQ(shown(kGridBoolean, whole(0)), "No");
  EXPECT_EQ(shown(kGridBoolean, Value()), "");
}

TEST(Grid, ShowsAmountsWithTwoPlacesAndItsOwnMarks) {
  Bound on;
  const auto shown = [&](std::string_view value) {
    return on.grid.shown(columnOf(kGridDouble), test::amount(value).view());
  };
  EXPECT_EQ(shown("0"), "0,00");
  EXPECT_EQ(shown("1.5"), "1,50");
  EXPECT_EQ(shown("999.999"), "1.000,00");
  EXPECT_EQ(shown("999.99"), "999,99");
  EXPECT_EQ(shown("1000"), "1.000,00");
  EXPECT_EQ(shown("1234567.891"), "1.234.567,89");
  EXPECT_EQ(shown("-1234.5"), "-1.234,50");
  EXPECT_EQ(shown("-123"), "-123,00");
  EXPECT_EQ(shown("-100000"), "-100.000,00");
  EXPECT_EQ(on.grid.shown(columnOf(kGridDouble), whole(12).view()), "12,00");
  EXPECT_EQ(on.grid.shown(columnOf(kGridDouble), CellView()), "");
  on.grid.decimalMark = '.';
  on.grid.thousandsMark = ',';
  EXPECT_EQ(shown("1234567.891"), "1,234,567.89");
}

TEST(Grid, ACallbackMayPaintAnotherValue) {
  Bound on;
  on.grid.paintValue = [](const GridColumn& column, Value& value) {
    if (column.field == "Popup") value = whole(2);
  };
  EXPECT_EQ(on.grid.shown(columnOf(kGridBigInteger, "Popup"), CellView()), "2");
  EXPECT_EQ(on.grid.shown(columnOf(kGridText, "Codice"), text("A").view()), "A");
}

TEST(Grid, ItsStateIsZeroAtRest) {
  Bound on;
  EXPECT_EQ(on.grid.state(), 0);
  on.grid.setState(1);
  EXPECT_EQ(on.grid.state(), 1);
}

TEST(Grid, WithoutHandlersAPressStillMovesTheRow) {
  Bound on;
  on.grid.bind(&on.rows.set);
  on.grid.press(3, "Selezionato");
  EXPECT_EQ(on.grid.row(), 3U);
  on.grid.doubleClick(2);
  EXPECT_EQ(on.grid.row(), 2U);
  EXPECT_FALSE(on.grid.keyDown(32, 0));
  EXPECT_EQ(on.grid.row(), 2U);
}

TEST(Grid, NoKeyIsNoneThatAHandlerConsumed) {
  Bound on;
  EXPECT_FALSE(on.grid.keyDown(0, 1));
}

TEST(Grid, UnboundNoRowCanBeSelected) {
  Bound on;
  on.grid.selectRow(1);
  EXPECT_EQ(on.grid.row(), 0U);
  EXPECT_TRUE(on.rowChanges.empty());
}

}  // namespace
}  // namespace cu
