#include "desktop/whole_text.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QToolTip>

#include "desktop/text.h"

namespace cu::desktop {
namespace {

// Updates whenever the box's text, width or state changes.
template <class Box>
class WholeText : public QObject {
 public:
  explicit WholeText(Box& box) : QObject(&box), box_(box) {
    box.installEventFilter(this);
    look();
  }
  void look() {
    const QString whole = cut() ? dataTip(text()) : QString();
    if (box_.toolTip() != whole) box_.setToolTip(whole);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Resize:
      case QEvent::EnabledChange:
      case QEvent::ReadOnlyChange:
      case QEvent::FontChange:
        look();
        break;
      default:
        break;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  bool cut() const;
  QString text() const;

  Box& box_;
};

template <>
QString WholeText<QLineEdit>::text() const {
  return box_.text();
}

template <>
bool WholeText<QLineEdit>::cut() const {
  if (box_.isEnabled() && !box_.isReadOnly()) return false;
  constexpr int kAround = 12;  // frame and inner margins
  return box_.fontMetrics().horizontalAdvance(box_.text()) > box_.width() - kAround;
}

template <>
QString WholeText<QComboBox>::text() const {
  return box_.currentText();
}

template <>
bool WholeText<QComboBox>::cut() const {
  QStyleOptionComboBox option;
  option.initFrom(&box_);
  const QRect field =
      box_.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box_);
  return box_.fontMetrics().horizontalAdvance(box_.currentText()) > field.width() - 4;
}

class WholeCells : public QObject {
 public:
  explicit WholeCells(QAbstractItemView& table) : QObject(&table), table_(table) {
    table.viewport()->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QModelIndex cell = table_.indexAt(help->pos());
    const QRect place = table_.visualRect(cell);
    QString tip = cell.data(Qt::ToolTipRole).toString();
    const QString text = cell.data(Qt::DisplayRole).toString();
    constexpr int kAround = 8;  // the margins of a cell
    if (tip.isEmpty() && table_.fontMetrics().horizontalAdvance(text) > place.width() - kAround)
      tip = dataTip(text);
    QToolTip::showText(help->globalPos(), tip, table_.viewport(), place);
    return true;
  }

 private:
  QAbstractItemView& table_;
};

}  // namespace

void tellWhole(QAbstractItemView& table) { new WholeCells(table); }

void tellWhole(QLineEdit& line) {
  auto* const whole = new WholeText<QLineEdit>(line);
  QObject::connect(&line, &QLineEdit::textChanged, whole, [whole] { whole->look(); });
}

void tellWhole(QComboBox& list) {
  auto* const whole = new WholeText<QComboBox>(list);
  QObject::connect(&list, &QComboBox::currentTextChanged, whole, [whole] { whole->look(); });
}

}  // namespace cu::desktop
