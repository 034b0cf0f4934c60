// What every table of rows offers beyond its cells, and that a table without it is noticed.

#include "desktop/table_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSettings>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include "desktop/grid_support.h"
#include "desktop/table_export.h"
#include "desktop/table_style.h"
#include "desktop/table_watch.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

class RowsWithCommands : public testing::Test {
 protected:
  RowsWithCommands() : model(2, 3) {
    model.setHorizontalHeaderLabels({"Nome", "Codice", "Lordo"});
    const char* const cells[2][3] = {{"Rossi", "P2", "1.234,50"}, {"Bianchi", "P1", "0,00"}};
    for (int row = 0; row < 2; ++row) {
      for (int column = 0; column < 3; ++column) {
        auto* const item = new QStandardItem(QString::fromUtf8(cells[row][column]));
        if (column == 2) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        model.setItem(row, column, item);
      }
    }
    desktop::styleRows(table);
    table.setAccessibleName(QStringLiteral("Prova"));
    table.setModel(&model);
    commands = new desktop::TableCommands(table, QStringLiteral("prova"));
    commands->setWidths = [this] {
      for (int column = 0; column < 3; ++column) table.setColumnWidth(column, 90);
    };
    commands->placeColumns();
    table.resize(400, 200);
    table.show();
    table.setFocus();
  }
  ~RowsWithCommands() override { QSettings().remove(QStringLiteral("griglie/prova")); }
  static std::string copied() { return QApplication::clipboard()->text().toStdString(); }
  // Presses an entry of the menu that opens next, by its caption; it is searched in submenus too.
  static void press(const QString& entry) {
    whenMenu([entry](QMenu& menu) {
      for (QAction* action : menu.findChildren<QAction*>()) {
        if (action->text() == entry) action->trigger();
      }
    });
  }
  static void whenMenu(const std::function<void(QMenu&)>& use) {
    QTimer::singleShot(0, [use] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      use(*menu);
      menu->close();
    });
  }
  void headerMenu(const char* entry) {
    press(QString::fromUtf8(entry));
    QTest::keyClick(&table, Qt::Key_Down, Qt::AltModifier);
  }

  QStandardItemModel model;
  QTableView table;
  desktop::TableCommands* commands = nullptr;
};

TEST_F(RowsWithCommands, CopiesWithAndWithoutHeadings) {
  table.selectRow(0);
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied(), "Rossi\tP2\t1.234,50");
  table.selectAll();
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(copied(), "Nome\tCodice\tLordo\nRossi\tP2\t1.234,50\nBianchi\tP1\t0,00");
}

TEST_F(RowsWithCommands, HiddenColumnsAreRememberedAndNotCopied) {
  table.setCurrentIndex(model.index(0, 1));
  headerMenu("Nascondi questa colonna");
  EXPECT_TRUE(table.isColumnHidden(1));
  EXPECT_EQ(table.currentIndex().column(), 0) << "the arrows start from a column that is seen";
  commands->copy(false);
  EXPECT_EQ(copied(), "Rossi\t1.234,50");

  QTableView other;
  desktop::styleRows(other);
  other.setModel(&model);
  desktop::TableCommands(other, QStringLiteral("prova")).placeColumns();
  EXPECT_TRUE(other.isColumnHidden(1));

  headerMenu("Codice");
  EXPECT_FALSE(table.isColumnHidden(1));
}

TEST_F(RowsWithCommands, TheLastColumnSeenCannotBeHidden) {
  headerMenu("Codice");
  headerMenu("Lordo");
  ASSERT_EQ(commands->columnsSeen(), QList<int>{0});
  headerMenu("Nascondi questa colonna");
  EXPECT_EQ(commands->columnsSeen(), QList<int>{0});
}

TEST_F(RowsWithCommands, WidthsAndOrderAreTheUsersUntilTheyAreForgotten) {
  table.setColumnWidth(0, 150);
  table.horizontalHeader()->moveSection(2, 0);
  commands->placeColumns();
  EXPECT_EQ(table.columnWidth(0), 150);
  EXPECT_EQ(commands->columnsSeen(), (QList<int>{2, 0, 1}));
  headerMenu("Larghezze e ordine originali");
  EXPECT_EQ(table.columnWidth(0), 90);
  EXPECT_EQ(commands->columnsSeen(), (QList<int>{0, 1, 2}));
}

TEST_F(RowsWithCommands, TheMenuOfARowBeginsWithItsOwnCommands) {
  int opened = 0;
  commands->addRowCommands = [&](QMenu& menu) {
    menu.addAction(QStringLiteral("Apri"), [&opened] { ++opened; });
  };
  table.setCurrentIndex(model.index(1, 0));
  whenMenu([](QMenu& menu) {
    ASSERT_GT(menu.actions().size(), 2);
    EXPECT_EQ(menu.actions().first()->text(), QStringLiteral("Apri"));
    menu.actions().first()->trigger();
  });
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(&table, &byKey);
  EXPECT_EQ(opened, 1);
}

TEST_F(RowsWithCommands, CtrlHomeAndEndStayInTheColumn) {
  table.setCurrentIndex(model.index(0, 1));
  QTest::keyClick(&table, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(table.currentIndex(), model.index(1, 1));
  QTest::keyClick(&table, Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(table.currentIndex(), model.index(0, 1));
}

TEST_F(RowsWithCommands, NumbersAtTheRightAreNumbersInAFile) {
  const tabelle::TabellaDaScrivere written = desktop::tableAsShown(model, {1, 2});
  EXPECT_EQ(written.colonne, (std::vector<std::string>{"Codice", "Lordo"}));
  EXPECT_EQ(tabelle::scriviCsv(written),
            "\xEF\xBB\xBF"
            "Codice;Lordo\r\nP2;1234,50\r\nP1;0,00\r\n");
  EXPECT_EQ(desktop::numberShown(QStringLiteral("-1.000")).view().integer(), -1000);
  EXPECT_EQ(desktop::numberShown(QStringLiteral("12/A")).view().text(), "12/A");
}

TEST_F(RowsWithCommands, AZeroIsPaleOnlyAmongNumbers) {
  EXPECT_TRUE(desktop::showsZero(QStringLiteral("0,00")));
  EXPECT_TRUE(desktop::showsZero(QStringLiteral("0")));
  EXPECT_FALSE(desktop::showsZero(QStringLiteral("10,00")));
  EXPECT_FALSE(desktop::showsZero(QString()));
  EXPECT_TRUE(desktop::showsAmount(QStringLiteral("-1.234,50")));
  EXPECT_FALSE(desktop::showsAmount(QStringLiteral("12/A,50")));
  EXPECT_FALSE(desktop::showsAmount(QStringLiteral(",50")));
  // As drawn: no pixel of a pale zero is as dark as those of an amount.
  const auto darkest = [this](const QModelIndex& cell) {
    const QImage drawn = table.viewport()->grab(table.visualRect(cell).adjusted(3, 3, -3, -3)).toImage();
    int least = 255;
    for (int y = 0; y < drawn.height(); ++y) {
      for (int x = 0; x < drawn.width(); ++x) least = std::min(least, qGray(drawn.pixel(x, y)));
    }
    return least;
  };
  table.clearSelection();
  table.setCurrentIndex({});
  EXPECT_GT(darkest(model.index(1, 2)), darkest(model.index(0, 2)) + 20);
}

// The watch over all tables of all windows.
TEST(TableStyle, IsMissedWhereATableHasItsOwn) {
  QTableView plain;
  EXPECT_THAT(tableFaults(plain), HasSubstr("highlights cells"));
  EXPECT_THAT(tableFaults(plain), HasSubstr("cannot be copied"));
  TableWatch watch;
  EXPECT_NONFATAL_FAILURE(
      {
        QEvent shown(QEvent::Show);
        watch.eventFilter(&plain, &shown);
      },
      "the table");
}

TEST_F(RowsWithCommands, HaveTheStyleOfAllTables) {
  EXPECT_EQ(tableFaults(table), "");
  EXPECT_EQ(misplacedAmounts(table), "");
  model.item(0, 2)->setTextAlignment(Qt::AlignLeft);
  EXPECT_EQ(misplacedAmounts(table), "1.234,50\n");
  model.item(0, 2)->setTextAlignment(Qt::AlignRight);
}

}  // namespace
}  // namespace cu::test
