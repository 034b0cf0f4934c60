#pragma once

#include <QList>
#include <QObject>
#include <functional>

#include "desktop/column_memory.h"

class QMenu;
class QPoint;
class QTableView;

namespace cu::desktop {

// A model's own name of a column, in its horizontal header. Without one it is the heading. A column with
// neither only fills the table: it is not copied, and cannot be hidden.
inline constexpr int kColumnNameRole = Qt::UserRole + 100;

// What a user does with a table of rows besides moving along them, the same in every window: its order and
// its columns from the menu of a heading (Alt+Down), copies (Ctrl+C, with Shift with the headings), a table
// in a file, and these from the menu of a row. Widths, order and choice of the columns are remembered.
class TableCommands : public QObject {
 public:
  // `name` is that of the table in the user's settings. Without one nothing is remembered, and columns stay.
  TableCommands(QTableView& table, const QString& name);

  // The first widths of the columns; the user's follow.
  std::function<void()> setWidths;
  // Adds the commands of the window for the current row to its menu, before those of every table.
  std::function<void(QMenu& menu)> addRowCommands;

  // Puts widths, order and choice of the columns. To be called where the columns have changed.
  void placeColumns();
  // What changes widths without the user.
  void quietly(const std::function<void()>& change);
  // From left to right.
  QList<int> columnsSeen() const;
  void copy(bool headings) const;
  void exportTable();
  void openHeaderMenu(int column);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool keyPressed(int key, Qt::KeyboardModifiers held);
  void goToEnd(bool last);
  QString nameOf(int column) const;
  QString headingOf(int column) const;
  bool remembers() const { return !name_.isEmpty(); }
  void rowMenu(const QPoint& at);
  void headerMenu(int column, const QPoint& at);
  void addOrder(QMenu& menu, int column);
  void addColumns(QMenu& menu, int column);
  void addCopies(QMenu& menu);
  void hideColumn(int column, bool hidden);
  void rememberOrder();
  void keepCurrentSeen();

  QTableView& table_;
  QString name_;
  ColumnMemory memory_;
  bool placed_ = false;
  bool quiet_ = false;
};

}  // namespace cu::desktop
