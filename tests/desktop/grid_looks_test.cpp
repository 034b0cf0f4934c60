// What the grid of lines shows beyond its cells: totals, states, frozen columns, the choice of columns,
// copies and tables.

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <set>

#include "base/error.h"
#include "desktop/foot.h"
#include "desktop/form_window.h"
#include "desktop/frozen_columns.h"
#include "desktop/grid_drawing.h"
#include "desktop/grid_export.h"
#include "desktop/grid_support.h"
#include "desktop/look.h"
#include "desktop/row_marks.h"
#include "desktop/totals_table.h"
#include "support/umask.h"
#include "tabelle/lettura.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

class GridLooks : public LinesInWindow {
 protected:
  desktop::TotalsTable& totals() {
    return static_cast<desktop::TotalsTable&>(*screen.find<QWidget>("totali"));
  }
  // As the grid shows an amount.
  std::string sum(const std::vector<int>& rows, const std::vector<const char*>& fields) {
    Decimal sum;
    for (const int row : rows) {
      for (const char* field : fields) {
        const std::string amount = stored(row, field);
        if (!amount.empty()) sum = sum + *Decimal::parse(amount);
      }
    }
    return grid().shown({.field = {}, .caption = {}, .type = kGridDouble}, CellView::ofDecimal(sum));
  }
  bool totalled(int row, int column, const std::string& wanted) {
    return QTest::qWaitFor([&] { return totals().text(row, column).toStdString() == wanted; });
  }
  // Chooses an entry of the menu that opens next, by its caption.
  void chooseInMenu(const char* caption) {
    screen.whenModal([caption](QWidget& modal) {
      for (QAction* action : modal.findChildren<QAction*>()) {
        if (action->text() == QString::fromUtf8(caption)) action->trigger();
      }
      modal.close();
    });
  }
};

TEST_F(GridLooks, TotalsOfChosenHighlightedAndAllRows) {
  table().setFocus();
  screen.key(Qt::Key_Space);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  std::vector<int> all;
  for (int row = 0; row < model().gridRows(); ++row) all.push_back(row);
  const std::vector<int> chosen(all.begin() + 1, all.end());
  EXPECT_TRUE(totalled(0, 0, std::to_string(chosen.size())));
  EXPECT_TRUE(totalled(1, 0, "3"));
  EXPECT_TRUE(totalled(2, 0, std::to_string(all.size())));
  const std::vector<std::pair<std::vector<int>, int>> lines = {{chosen, 0}, {{0, 1, 2}, 1}, {all, 2}};
  for (const auto& [rows, line] : lines) {
    EXPECT_TRUE(totalled(line, 2, sum(rows, {"AmmontareLordo"})));
    EXPECT_TRUE(totalled(line, 4, sum(rows, {"RitenuteAcconto", "RitenuteImposta"}))) << line;
    std::set<std::string> payees;
    for (const int row : rows) payees.insert(stored(row, "IDAnagrafica"));
    EXPECT_TRUE(totalled(line, 1, std::to_string(payees.size()))) << line;
  }
}

TEST_F(GridLooks, StatesAreToldByMarkTooltipAndScreenReader) {
  table().setFocus();
  screen.key(Qt::Key_Space);
  EXPECT_THAT(model().stateNames(0), ::testing::Contains(QStringLiteral("Non scelte")));
  EXPECT_THAT(model().stateNames(1), ::testing::Not(::testing::Contains(QStringLiteral("Non scelte"))));
  const QString tip = model().headerData(0, Qt::Vertical, Qt::ToolTipRole).toString();
  EXPECT_THAT(tip.toStdString(), HasSubstr("resta fuori dal file"));
  const QString read = model().index(0, 0).data(Qt::AccessibleTextRole).toString();
  EXPECT_THAT(read.toStdString(), HasSubstr("Non scelte"));
  EXPECT_TRUE(table().verticalHeader()->isVisible());
}

TEST_F(GridLooks, WhatIsAroundTheGridHasNames) {
  for (const RowState& state : grid().states) {
    const auto* const button = screen.find<QWidget>(("stato:" + state.name).c_str());
    EXPECT_THAT(button->accessibleName().toStdString(), HasSubstr(state.name));
    EXPECT_EQ(button->accessibleDescription().toStdString(), state.meaning);
  }
  EXPECT_FALSE(screen.find<QWidget>("filtroRighe")->accessibleName().isEmpty());
  EXPECT_FALSE(table().verticalHeader()->accessibleName().isEmpty());
  EXPECT_TRUE(totalled(2, 0, "49"));
  std::vector<std::string> told;
  for (const QLabel* cell : totals().findChildren<QLabel*>())
    told.push_back(cell->accessibleName().toStdString());
  EXPECT_THAT(told, ::testing::Contains("Tutte, Righe: 49"));
}

// By shape: the pictures differ in one colour.
TEST_F(GridLooks, EachMarkHasAShapeOfItsOwn) {
  std::vector<QImage> drawn;
  for (const RowMark mark : {RowMark::None, RowMark::Changed, RowMark::LeftOut, RowMark::NoReference,
                             RowMark::Lacking, RowMark::More}) {
    QImage image(26, 26, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    desktop::paintRowMark(painter, image.rect(), mark, Qt::black);
    painter.end();
    for (const QImage& other : drawn) EXPECT_NE(image, other) << static_cast<int>(mark);
    drawn.push_back(image);
  }
}

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double inkContrast(const QColor& a, const QColor& b) {
  const double light = std::max(luminance(a), luminance(b)) + 0.05;
  return light / (std::min(luminance(a), luminance(b)) + 0.05);
}

TEST_F(GridLooks, AZeroIsPalerThanAnAmountAndReadInBothLooks) {
  int zeros = 0;
  for (int row = 0; row < model().rowCount(); ++row) {
    for (int at = 0; at < model().columnCount(); ++at) {
      const bool zero = model().text(row, at) == QStringLiteral("0,00");
      EXPECT_EQ(model().index(row, at).data(Qt::ForegroundRole).isValid(), zero) << row << " " << at;
      zeros += zero ? 1 : 0;
    }
  }
  EXPECT_GT(zeros, 0);
  for (const auto colours : {desktop::look::Colours::Dark, desktop::look::Colours::Light}) {
    desktop::look::apply(*qApp, colours);
    const QPalette palette = QApplication::palette();
    for (const auto ground : {QPalette::Base, QPalette::AlternateBase}) {
      EXPECT_GE(inkContrast(desktop::paleInk(palette), palette.color(ground)), 4.5);
    }
    EXPECT_LT(inkContrast(desktop::paleInk(palette), palette.color(QPalette::Base)),
              inkContrast(palette.color(QPalette::Text), palette.color(QPalette::Base)) / 1.5);
  }
}

class FrozenInGrid : public GridLooks {
 protected:
  desktop::FrozenColumns& frozen() { return table().frozen(); }
  void scrollAcross() { table().horizontalScrollBar()->setValue(table().horizontalScrollBar()->maximum()); }
};

TEST_F(FrozenInGrid, TheFirstFourColumnsStayInSight) {
  EXPECT_TRUE(frozen().isHidden());
  scrollAcross();
  EXPECT_FALSE(frozen().isHidden());
  for (const char* field : {"Selezionato", "Popup", "AnagraficaPerc", "Codice"}) {
    EXPECT_TRUE(frozen().shows(column(field))) << field;
    const QRect place = table().visualRect(model().index(0, column(field)));
    EXPECT_TRUE(table().viewport()->rect().contains(place)) << field;
    EXPECT_EQ(table().indexAt(place.center()), model().index(0, column(field))) << field;
  }
  EXPECT_FALSE(frozen().shows(column("AmmontareLordo")));
  table().horizontalScrollBar()->setValue(0);
  EXPECT_TRUE(frozen().isHidden());
}

TEST_F(FrozenInGrid, TheMouseOnThemIsTheGrids) {
  scrollAcross();
  const auto press = [&](int row, const char* field, Qt::MouseButton button = Qt::LeftButton) {
    const QPoint at = table().visualRect(model().index(row, column(field))).center();
    QTest::mouseClick(frozen().viewport(), button, Qt::NoModifier, at);
  };
  press(3, "AnagraficaPerc");
  EXPECT_EQ(grid().row(), 4U);
  EXPECT_EQ(grid().column("Selezionato")->caption, "[ 49 ]");
  press(4, "Selezionato");
  EXPECT_EQ(stored(4, "Selezionato"), "0");
  EXPECT_GT(table().horizontalScrollBar()->value(), 0) << "the columns stay where they are";
  QHeaderView& header = *frozen().horizontalHeader();
  const QPoint heading(header.sectionViewportPosition(column("Codice")) + 12, header.height() / 2);
  QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, heading);
  EXPECT_EQ(view().arrangement().field, "Codice");
  EXPECT_EQ(screen.window().focusWidget(), &table());
  expectAgreement();
}

TEST_F(FrozenInGrid, TheKeyboardStaysWithTheOneTable) {
  scrollAcross();
  EXPECT_EQ(frozen().focusPolicy(), Qt::NoFocus);
  table().setFocus();
  for (int i = 0; i < 30; ++i) screen.key(Qt::Key_Down);
  EXPECT_EQ(frozen().verticalScrollBar()->value(), table().verticalScrollBar()->value());
  EXPECT_GT(table().verticalScrollBar()->value(), 0);
  EXPECT_GT(table().horizontalScrollBar()->value(), 0);
  for (int i = 0; i < 30; ++i) screen.key(Qt::Key_Right);
  for (int i = 0; i < 30; ++i) screen.key(Qt::Key_Left);
  EXPECT_EQ(table().horizontalScrollBar()->value(), 0) << "the way back is the keyboard's too";
}

TEST_F(FrozenInGrid, AColumnReachedByKeyIsNotBehindThem) {
  table().setFocus();
  for (int i = 0; i < 12; ++i) screen.key(Qt::Key_Right);
  for (int i = 0; i < 5; ++i) {
    screen.key(Qt::Key_Left);
    const QRect place = table().visualRect(table().currentIndex());
    EXPECT_GE(place.left(), frozen().shownWidth()) << i;
  }
}

TEST_F(GridLooks, AColumnIsHiddenAndShownFromTheMenuAndStaysSo) {
  chooseInMenu("Nascondi questa colonna");
  view().openHeaderMenu(column("Anticipazione"));
  EXPECT_TRUE(table().isColumnHidden(column("Anticipazione")));
  EXPECT_TRUE(grid().column("Anticipazione")->visible) << "the form's grid is as it was";
  {
    Screen another;
    another.toGrid();
    auto& kept = static_cast<desktop::GridView&>(*another.window().view(another.form().grdCompensi));
    EXPECT_TRUE(kept.table().isColumnHidden(*kept.model().columnOf("Anticipazione")));
  }
  chooseInMenu("Anticipazione");
  view().openHeaderMenu(column("Codice"));
  EXPECT_FALSE(table().isColumnHidden(column("Anticipazione")));
}

TEST_F(GridLooks, TheMenuOfAColumnOpensByKeyAndSorts) {
  table().setFocus();
  for (int i = 0; i < 2; ++i) screen.key(Qt::Key_Right);
  ASSERT_EQ(table().currentIndex().column(), column("AnagraficaPerc"));
  chooseInMenu("Ordine decrescente");
  screen.key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(view().arrangement().field, "AnagraficaPerc");
  EXPECT_TRUE(view().arrangement().descending);
}

TEST_F(GridLooks, TheColumnOfTheKeyboardStaysInAnotherOrder) {
  table().setFocus();
  for (int i = 0; i < 2; ++i) screen.key(Qt::Key_Right);
  const int before = table().currentIndex().column();
  for (const char* order : {"Ordine decrescente", "Ordine crescente", "Ordine di partenza"}) {
    chooseInMenu(order);
    screen.key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(table().currentIndex().column(), before) << order;
  }
  filter("rossi");
  EXPECT_EQ(table().currentIndex().column(), before);
}

TEST_F(GridLooks, TheColumnOfTheChoiceCannotBeHidden) {
  bool offered = true;
  bool named = true;
  screen.whenModal([&](QWidget& menu) {
    for (QAction* action : menu.findChildren<QAction*>()) {
      if (action->text() == QStringLiteral("Nascondi questa colonna")) offered = action->isEnabled();
    }
    menu.close();
  });
  view().openHeaderMenu(column("Selezionato"));
  EXPECT_FALSE(offered);
  screen.whenModal([&](QWidget& menu) {
    const QList<QAction*> actions = menu.findChildren<QAction*>();
    named = std::any_of(actions.begin(), actions.end(),
                        [](const QAction* action) { return action->text() == QStringLiteral("Scelta"); });
    menu.close();
  });
  view().openHeaderMenu(column("Codice"));
  EXPECT_FALSE(named);
}

TEST_F(GridLooks, CopiesWithHeadingsInTheOrderOfTheView) {
  clickHeader("AmmontareLordo");
  table().setFocus();
  screen.key(Qt::Key_Home, Qt::ControlModifier);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  screen.key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  const QStringList lines = QApplication::clipboard()->text().split(u'\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_TRUE(lines[0].startsWith(QStringLiteral("Scelta\tPercipiente\tCodice pagamento\t")));
  for (const int row : {0, 1}) {
    EXPECT_EQ(lines[row + 1].split(u'\t')[1], model().text(row, column("AnagraficaPerc")));
  }
}

class GridExport : public GridLooks {
 protected:
  tabelle::Tabella exported(const char* name) {
    path = screen.documents() + u'/' + QString::fromUtf8(name);
    desktop::writeTable(desktop::tableAsSeen(view()), path);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    return tabelle::leggiTabella({bytes.data(), static_cast<std::size_t>(bytes.size())}, name);
  }
  QString path;
};

TEST_F(GridExport, WritesTheRowsAndColumnsAsTheyAreSeen) {
  clickHeader("AmmontareLordo");
  filter("rossi");
  ASSERT_GT(model().rowCount(), 0);
  chooseInMenu("Nascondi questa colonna");
  view().openHeaderMenu(column("Anticipazione"));
  for (const char* name : {"righe.csv", "righe.xlsx"}) {
    const tabelle::Tabella table = exported(name);
    ASSERT_EQ(table.righe.size(), static_cast<std::size_t>(model().rowCount())) << name;
    EXPECT_EQ(table.intestazione.celle.size(), static_cast<std::size_t>(view().columnsSeen().size()));
    EXPECT_EQ(table.intestazione.cella(0).testo, "Scelta");
    const auto lordo = view().columnsSeen().indexOf(column("AmmontareLordo"));
    for (int row = 0; row < model().rowCount(); ++row) {
      const tabelle::RigaTabella& written = table.righe[static_cast<std::size_t>(row)];
      EXPECT_EQ(written.cella(1).testo, stored(model().gridRow(row), "AnagraficaPerc")) << name;
      std::string amount(written.cella(static_cast<std::size_t>(lordo)).testo);
      std::replace(amount.begin(), amount.end(), ',', '.');
      EXPECT_EQ(Decimal::parse(amount), Decimal::parse(stored(model().gridRow(row), "AmmontareLordo")))
          << name;
    }
  }
}

TEST_F(GridExport, ANewFileIsItsOwnersAloneAndAnExistingOneKeepsItsReaders) {
  const Umask open(0);
  for (const char* name : {"righe.csv", "righe.xlsx"}) {
    exported(name);
    EXPECT_EQ(modeOf(path.toStdString()), 0600U) << name;
    EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    exported(name);
    EXPECT_EQ(modeOf(path.toStdString()), 0640U) << name;
  }
}

TEST_F(GridExport, AFileThatCannotBeWrittenIsReportedAndTheOldOneStays) {
  const QString nowhere = screen.documents() + QStringLiteral("/manca/righe.csv");
  try {
    desktop::writeTable({}, nowhere);
    ADD_FAILURE() << "written";
  } catch (const Error& error) {
    EXPECT_EQ(QString::fromStdString(error.description()).section(u' ', 0, 0), nowhere)
        << "as the user named it";
  }
}

TEST_F(GridExport, TheMenuNamesTheFileAndTheStatusTheRows) {
  screen.whenModal([](QWidget& modal) {
    for (QAction* action : modal.findChildren<QAction*>()) {
      if (action->text().startsWith(QStringLiteral("Esporta"))) action->trigger();
    }
    modal.close();
  });
  const QString wanted = screen.documents() + QStringLiteral("/uscita.csv");
  screen.whenModal([&](QWidget& modal) {
    auto* const name = modal.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    name->setText(wanted);
    QTest::keyClick(name, Qt::Key_Return);
  });
  view().openHeaderMenu(column("Codice"));
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_TRUE(QFile::exists(wanted));
  EXPECT_THAT(screen.window().foot()->words().toStdString(), HasSubstr("Esportate 49 righe"));
}

}  // namespace
}  // namespace cu::test
