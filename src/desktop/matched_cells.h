#pragma once

#include <QStyledItemDelegate>
#include <functional>
#include <vector>

#include "desktop/matches.h"

namespace cu::desktop {

// Draws the cells of a list with the parts of their texts that were searched for in bold and underlined.
class MatchedCells : public QStyledItemDelegate {
 public:
  using Matched = std::function<std::vector<Stretch>(const QString& text)>;
  MatchedCells(Matched matched, QObject* parent);
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  Matched matched_;
};

}  // namespace cu::desktop
