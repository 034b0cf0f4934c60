// The grid of compensation lines in its window.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QTest>

#include "apps/comune/connessioni.h"
#include "base/error.h"
#include "desktop/agreement_support.h"
#include "desktop/grid_view.h"
#include "desktop/screen_support.h"
#include "worklist/tabella_lavoro.h"

namespace cu::test {
namespace {

class GridWindow : public ::testing::Test {
 protected:
  GridWindow() {
    QSettings().clear();
    screen.toGrid();
  }
  desktop::GridView& view() { return static_cast<desktop::GridView&>(*screen.window().view(grid())); }
  desktop::GridTable& table() { return view().table(); }
  Grid& grid() { return screen.form().grdCompensi; }
  QPoint cell(int row, const char* field) {
    const QModelIndex index = view().model().index(row, *view().model().columnOf(field));
    table().scrollTo(index);
    return table().visualRect(index).center();
  }
  std::string count() { return grid().column("Selezionato")->caption; }
  void expectAgreement() { EXPECT_EQ(disagreements(screen.window()), ""); }

  Screen screen;
};

TEST_F(GridWindow, ShowsEveryRowOfTheWorkTable) {
  EXPECT_GT(view().model().rowCount(), 40);
  EXPECT_EQ(static_cast<std::size_t>(view().model().rowCount()), grid().rowCount());
  expectAgreement();
}

TEST_F(GridWindow, SpaceAndClickTakeARowOutAndTheCaptionCounts) {
  const std::string all = count();
  table().setFocus();
  QTest::keyClick(&table(), Qt::Key_Space);
  EXPECT_NE(count(), all);
  expectAgreement();
  QTest::keyClick(&table(), Qt::Key_Space);
  EXPECT_EQ(count(), all);
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(3, "Selezionato"));
  EXPECT_NE(count(), all);
  EXPECT_EQ(grid().row(), 4U);
  expectAgreement();
}

TEST_F(GridWindow, AClickBesideTheFlagOnlyMovesToTheRow) {
  const std::string all = count();
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(5, "AnagraficaPerc"));
  EXPECT_EQ(grid().row(), 6U);
  EXPECT_EQ(count(), all);
  expectAgreement();
}

TEST_F(GridWindow, AnErrorOfWhatAClickWouldDropIsToldAndTheRowStays) {
  grid().drops = [](std::size_t) -> std::string { throw Error(13, "Tipo non corrispondente."); };
  QString told;
  screen.whenModal([&](QWidget& modal) {
    told = boxText(modal);
    QTest::keyClick(&modal, Qt::Key_Escape);
  });
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(5, "AnagraficaPerc"));
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_TRUE(told.contains(QStringLiteral("Tipo non corrispondente."))) << told.toStdString();
  EXPECT_EQ(grid().row(), 1U);
  EXPECT_FALSE(screen.frontEnd().busy());
  grid().drops = nullptr;
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(5, "AnagraficaPerc"));
  EXPECT_EQ(grid().row(), 6U);
  expectAgreement();
}

TEST_F(GridWindow, TheArrowKeysMoveTheCurrentRow) {
  table().setFocus();
  QTest::keyClick(&table(), Qt::Key_Down);
  QTest::keyClick(&table(), Qt::Key_Down);
  EXPECT_EQ(grid().row(), 3U);
  QTest::keyClick(&table(), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(grid().row(), grid().rowCount());
  expectAgreement();
}

// The editor filters the rows to its own; an exposed window redraws them all.
TEST_F(GridWindow, StaysAsDrawnBehindAnEditor) {
  screen.window().view(grid())->refreshAll();
  table().setFocus();
  QTest::keyClick(&table(), Qt::Key_Down);
  QTest::keyClick(&table(), Qt::Key_Down);
  const QImage before = table().viewport()->grab().toImage();
  QImage behind;
  int current = -1;
  std::size_t rows = 0;
  screen.whenModal([&](QWidget&) {
    behind = table().viewport()->grab().toImage();
    current = table().currentIndex().row();
    rows = grid().rowCount();
    screen.click("cmdAnnulla");
  });
  QTest::keyClick(&table(), Qt::Key_Return);
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_EQ(rows, 1U);
  EXPECT_EQ(current, 2);
  // The colour of the selection depends on the active window: the rows below it are compared.
  const QRect others(0, table().rowViewportPosition(3), before.width(), before.height() / 2);
  EXPECT_EQ(before.copy(others), behind.copy(others));
  EXPECT_EQ(table().currentIndex().row(), 2);
  expectAgreement();
}

TEST_F(GridWindow, TheRowMenuOpensByMouseAndByKey) {
  int menus = 0;
  const auto close = [&](QWidget& menu) {
    menus += qobject_cast<QMenu*>(&menu) != nullptr ? 1 : 0;
    menu.close();
  };
  screen.whenModal(close);
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(1, "Popup"));
  screen.whenModal(close);
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(table().viewport(), &byKey);
  EXPECT_EQ(menus, 2);
  expectAgreement();
}

TEST_F(GridWindow, TheMenuBarsRowCommandIsEnabledOnTheGridAlone) {
  auto* const command = screen.window().findChild<QAction*>(QStringLiteral("ModificaCompenso"));
  EXPECT_TRUE(command->isEnabled());
  screen.click("cmdNav(3)");
  EXPECT_FALSE(command->isEnabled());
  screen.click("cmdNav(2)");
  EXPECT_TRUE(command->isEnabled());
  screen.whenModal([](QWidget& modal) { pressButton(modal, "No"); });
  screen.click("cmdNav(2)");
  EXPECT_FALSE(command->isEnabled());
}

TEST_F(GridWindow, ADoubleClickAndEnterOpenTheEditorAndEscLeavesIt) {
  std::vector<std::string> opened;
  const auto leave = [&](QWidget&) {
    opened.push_back(screen.top()->form().name());
    EXPECT_EQ(disagreements(*screen.top()), "");
    screen.key(Qt::Key_Escape);
  };
  screen.whenModal(leave);
  QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(2, "AnagraficaPerc"));
  screen.whenModal(leave);
  table().setFocus();
  QTest::keyClick(&table(), Qt::Key_Return);
  EXPECT_EQ(opened, (std::vector<std::string>{"frmCompenso2017", "frmCompenso2017"}));
  EXPECT_EQ(grid().row(), 3U);
  expectAgreement();
}

TEST_F(GridWindow, CopiesTheSelectedRowsAsTheyAreShown) {
  table().setFocus();
  QTest::keyClick(&table(), Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
  const QStringList rows = QApplication::clipboard()->text().split(u'\n');
  ASSERT_EQ(rows.size(), 2);
  EXPECT_TRUE(rows[0].startsWith(QStringLiteral("Sì\t"))) << rows[0].toStdString();
  EXPECT_TRUE(rows[0].contains(view().model().text(0, *view().model().columnOf("AmmontareLordo"))));
}

TEST_F(GridWindow, SpaceActsOnAllHighlightedRowsByTheRoutineForEach) {
  const auto chosen = [&] {
    QStringList flags;
    for (int row = 0; row < 6; ++row)
      flags += view().model().text(row, *view().model().columnOf("Selezionato"));
    return flags.join(u' ');
  };
  const QString yes = QStringLiteral("Sì");
  const QString no = QStringLiteral("No");
  table().setFocus();
  screen.key(Qt::Key_Down);
  screen.key(Qt::Key_Space);
  ASSERT_EQ(chosen(), QStringList({yes, no, yes, yes, yes, yes}).join(u' '));
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  screen.key(Qt::Key_Space);
  EXPECT_EQ(chosen(), QStringList({yes, yes, no, no, yes, yes}).join(u' ')) << "each is inverted";
  EXPECT_EQ(grid().row(), 4U) << "the current row is the one that it was";
  EXPECT_EQ(table().selectionModel()->selectedRows().size(), 3) << "and the highlight stays";
  EXPECT_EQ(screen.frontEnd().pointer(), 0);
  expectAgreement();
  screen.key(Qt::Key_Space);
  EXPECT_EQ(chosen(), QStringList({yes, no, yes, yes, yes, yes}).join(u' '));
  const QString all = QStringLiteral("[ %1 ]").arg(grid().rowCount() - 1);
  EXPECT_EQ(count(), all.toStdString());
}

TEST_F(GridWindow, TheCurrentRowIsAlwaysHighlighted) {
  const auto highlighted = [&] {
    return table().selectionModel()->isRowSelected(table().currentIndex().row());
  };
  table().setFocus();
  for (const Qt::Key key : {Qt::Key_End, Qt::Key_Home, Qt::Key_Down, Qt::Key_PageDown}) {
    screen.key(key, Qt::ControlModifier);
    EXPECT_TRUE(highlighted()) << key;
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), 1) << key;
    expectAgreement();
  }
  const auto ctrlClick = [&](int row) {
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ControlModifier, cell(row, "AnagraficaPerc"));
    EXPECT_TRUE(highlighted()) << row;
    expectAgreement();
  };
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(2, "AnagraficaPerc"));
  ctrlClick(2);
  EXPECT_EQ(grid().row(), 3U) << "the only one stays";
  ctrlClick(5);
  EXPECT_EQ(grid().row(), 6U);
  EXPECT_EQ(table().selectionModel()->selectedRows().size(), 2);
  ctrlClick(5);
  EXPECT_EQ(grid().row(), 3U) << "the one that is left";
  EXPECT_EQ(table().selectionModel()->selectedRows().size(), 1);
}

TEST_F(GridWindow, CtrlShiftEndAndHomeHighlightTheRowsUpToThere) {
  const auto rows = [&] { return static_cast<std::size_t>(table().selectionModel()->selectedRows().size()); };
  const QScrollBar& across = *table().horizontalScrollBar();
  ASSERT_GT(across.maximum(), 0);
  table().setFocus();
  screen.key(Qt::Key_Down);
  screen.key(Qt::Key_Down);
  screen.key(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(rows(), grid().rowCount() - 2);
  EXPECT_EQ(grid().row(), grid().rowCount());
  EXPECT_EQ(across.value(), 0) << "the first columns stay in sight";
  screen.key(Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(rows(), 3U);
  EXPECT_EQ(grid().row(), 1U);
  screen.key(Qt::Key_Space);
  EXPECT_EQ(count(), "[ " + std::to_string(grid().rowCount() - 3) + " ]");
  screen.key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(rows(), 1U);
  EXPECT_EQ(grid().row(), grid().rowCount());
  EXPECT_EQ(across.value(), 0);
  expectAgreement();
}

// Another session has deleted a row of the table meanwhile.
TEST_F(GridWindow, TheHighlightStaysWhenSpaceFailsOnOneOfItsRows) {
  const auto rows = [&] { return table().selectionModel()->selectedRows().size(); };
  table().setFocus();
  screen.key(Qt::Key_Down);
  for (int i = 0; i < 3; ++i) screen.key(Qt::Key_Down, Qt::ShiftModifier);
  ASSERT_EQ(rows(), 4);
  grid().rows()->MoveTo(3);
  const std::string payee = std::to_string(grid().rows()->Get("IDAnagrafica").integer());
  const std::string reason = std::to_string(grid().rows()->Get("IDCausalePagamento").integer());
  grid().rows()->MoveTo(5);
  creaConnessione(screen.profile().database)
      ->Execute("DELETE FROM " + fnNomeTabellaLavoro(12) + " WHERE IDAnagrafica = " + payee +
                " AND IDCausalePagamento = " + reason);
  QString told;
  screen.whenModal([&](QWidget& modal) {
    told = boxText(modal);
    QTest::keyClick(&modal, Qt::Key_Escape);
  });
  screen.key(Qt::Key_Space);
  EXPECT_TRUE(told.startsWith(QStringLiteral("La tabella di lavoro"))) << told.toStdString();
  EXPECT_EQ(rows(), 4);
  EXPECT_EQ(grid().row(), 5U);
  expectAgreement();
}

// Upwards: the current row is the first of them, and the last one inverted is another.
TEST_F(GridWindow, TheHighlightStaysWhereverItsCurrentRowIs) {
  table().setFocus();
  for (int i = 0; i < 4; ++i) screen.key(Qt::Key_Down);
  for (int i = 0; i < 2; ++i) screen.key(Qt::Key_Up, Qt::ShiftModifier);
  screen.key(Qt::Key_Space);
  EXPECT_EQ(table().selectionModel()->selectedRows().size(), 3);
  EXPECT_EQ(grid().row(), 3U);
  screen.key(Qt::Key_Space);
  EXPECT_EQ(count(), "[ " + std::to_string(grid().rowCount()) + " ]");
  expectAgreement();
}

TEST_F(GridWindow, WidthsAndOrderAreThePersonsAndTheModelKeepsItsOwn) {
  const int column = *view().model().columnOf("AnagraficaPerc");
  const int width = grid().columns()[static_cast<std::size_t>(column)].width;
  table().horizontalHeader()->resizeSection(column, 321);
  table().horizontalHeader()->moveSection(2, 4);
  EXPECT_EQ(grid().columns()[static_cast<std::size_t>(column)].width, width);
  Screen another;
  another.toGrid();
  auto& kept = static_cast<desktop::GridView&>(*another.window().view(another.form().grdCompensi));
  EXPECT_EQ(kept.table().columnWidth(column), 321);
  EXPECT_EQ(kept.table().horizontalHeader()->visualIndex(column), 4);
}

TEST_F(GridWindow, ProtocolsForAllSelectedLinesAreTypedInTheirDialog) {
  screen.whenModal([](QWidget& modal) { pressButton(modal, "No"); });
  screen.click("cmdNav(2)");
  screen.click("optTipoComunicazione(1)");
  screen.click("cmdNav(3)");
  screen.whenModal([&](QWidget&) {
    EXPECT_EQ(screen.top()->form().name(), "frmProtocollo");
    EXPECT_FALSE(screen.find<QWidget>("cmdOk")->isEnabled());
    screen.type("txtProtocollo", "17a0123");
    screen.type("txtProgressivo", "12");
    EXPECT_EQ(disagreements(*screen.top()), "");
    screen.key(Qt::Key_Return);
  });
  screen.click("cmdProtocollo");
  const int column = *view().model().columnOf("ProtocolloAnnSost");
  EXPECT_EQ(view().model().text(0, column), QStringLiteral("170123"));
  expectAgreement();
}

}  // namespace
}  // namespace cu::test
