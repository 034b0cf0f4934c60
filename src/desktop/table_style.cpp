#include "desktop/table_style.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTableView>
#include <algorithm>

#include "desktop/grid_drawing.h"
#include "desktop/whole_text.h"

namespace cu::desktop {
namespace {

constexpr int kAroundRow = 8;

class RowPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    paintCurrentRow(painter, option, index);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const bool number = option->displayAlignment.testFlag(Qt::AlignRight);
    if (number && showsZero(option->text)) option->palette.setColor(QPalette::Text, paleInk(option->palette));
  }
};

}  // namespace

void styleRows(QTableView& table) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setSelectionMode(QAbstractItemView::ExtendedSelection);
  table.setTabKeyNavigation(false);
  table.setAlternatingRowColors(true);
  table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table.setWordWrap(false);
  table.setCornerButtonEnabled(false);
  table.setHorizontalHeader(new WrappedHeader(&table));
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kAroundRow);
  table.setItemDelegate(new RowPainter(&table));
  tellWhole(table);
}

bool showsZero(const QString& text) {
  return !text.isEmpty() &&
         std::all_of(text.begin(), text.end(), [](QChar c) { return c == u'0' || c == u',' || c == u'.'; });
}

bool showsAmount(const QString& text) {
  const qsizetype comma = text.size() - 3;
  if (comma < 1 || text[comma] != u',') return false;
  const bool signedOne = text.front() == u'-';
  return std::all_of(text.begin() + (signedOne ? 1 : 0), text.end(),
                     [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'.' || c == u','; });
}

}  // namespace cu::desktop
