#include "desktop/grid_support.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTest>

#include "desktop/agreement_support.h"

namespace cu::test {

LinesInWindow::LinesInWindow(const char* year) {
  QSettings().clear();
  screen.toGrid(year);
}

QPoint LinesInWindow::cell(int row, const char* field) {
  const QModelIndex index = model().index(row, column(field));
  table().scrollTo(index);
  return table().visualRect(index).center();
}

void LinesInWindow::clickHeader(const char* field) {
  table().scrollTo(model().index(0, column(field)));
  QHeaderView& header = *table().horizontalHeader();
  const QPoint at(header.sectionViewportPosition(column(field)) + 12, header.height() / 2);
  QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

void LinesInWindow::filter(const char* words) {
  screen.type("filtroRighe", words);
  QTest::keyClick(screen.find<QLineEdit>("filtroRighe"), Qt::Key_Return);
}

std::vector<int> LinesInWindow::rowsInView() {
  std::vector<int> rows;
  for (int row = 0; row < model().rowCount(); ++row) rows.push_back(model().gridRow(row));
  return rows;
}

std::string LinesInWindow::stored(int row, const char* field) {
  const Recordset& rows = *grid().rows();
  std::vector<CellView> cells(rows.Fields().size());
  rows.Peek(static_cast<std::size_t>(row) + 1, cells.data());
  return cells[rows.Ordinal(field)].toText();
}

void LinesInWindow::expectAgreement() { EXPECT_EQ(disagreements(screen.window()), ""); }

}  // namespace cu::test
