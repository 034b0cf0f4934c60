#include "desktop/table_style.h"

#include <QTableView>

namespace cu::desktop {

void styleRows(QTableView& table) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setSelectionMode(QAbstractItemView::ExtendedSelection);
  table.setTabKeyNavigation(false);
  table.setAlternatingRowColors(true);
  table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table.setWordWrap(false);
  table.setCornerButtonEnabled(false);
}

}  // namespace cu::desktop
