#include "desktop/search_list.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <numeric>

#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu::desktop {

SearchModel::SearchModel(Recordset& rows, QStringList captions, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), captions_(std::move(captions)), cells_(rows.Fields().size()) {
  keys_.reserve(rows_.RecordCount());
  for (std::size_t at = 1; at <= rows_.RecordCount(); ++at) {
    rows_.Peek(at, cells_.data());
    keys_.push_back({folded(shown(cells_[1].toText())), folded(shown(cells_[2].toText()))});
  }
  matching_.resize(keys_.size());
  std::iota(matching_.begin(), matching_.end(), 0U);
}

void SearchModel::narrow(const QString& typed) {
  const QString wanted = folded(typed.trimmed());
  beginResetModel();
  // A text that continues the previous one narrows the result further.
  if (narrowed_.isEmpty() || !wanted.startsWith(narrowed_)) {
    matching_.resize(keys_.size());
    std::iota(matching_.begin(), matching_.end(), 0U);
  }
  if (!wanted.isEmpty()) {
    std::vector<std::uint32_t> first;
    std::vector<std::uint32_t> further;
    for (const std::uint32_t at : matching_) {
      const Key& key = keys_[at];
      if (key.description.startsWith(wanted) || key.code.startsWith(wanted)) {
        first.push_back(at);
      } else if (key.description.contains(wanted) || key.code.contains(wanted)) {
        further.push_back(at);
      }
    }
    first.insert(first.end(), further.begin(), further.end());
    matching_ = std::move(first);
  }
  // The order of the remaining rows is that of the last search; a shorter text starts again from all rows.
  narrowed_ = wanted;
  endResetModel();
}

int SearchModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(matching_.size());
}

std::string SearchModel::text(int row, std::size_t field) const {
  rows_.Peek(matching_[static_cast<std::size_t>(row)] + 1, cells_.data());
  return cells_[field].toText();
}

std::int64_t SearchModel::record(int row) const {
  rows_.Peek(matching_[static_cast<std::size_t>(row)] + 1, cells_.data());
  return cells_[0].integer();
}

QVariant SearchModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole) return {};
  return shown(text(index.row(), static_cast<std::size_t>(index.column()) + 1));
}

QVariant SearchModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(captions_.value(section)) : QVariant();
}

namespace {

// Typing continues the present text: the cursor is at its end, nothing is selected.
class TypedLine : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    if (selectedText() == text()) end(false);
  }
};

}  // namespace

SearchDialog::SearchDialog(QWidget* parent, const QString& title, Recordset& rows,
                           const QStringList& captions, const QString& typed)
    : QDialog(parent),
      model_(rows, captions),
      box_(new TypedLine(this)),
      table_(new QTableView(this)),
      count_(new QLabel(this)) {
  setWindowTitle(title);
  auto* column = new QVBoxLayout(this);
  auto* caption = new QLabel(QStringLiteral("&Cerca"), this);
  caption->setBuddy(box_);
  column->addWidget(caption);
  column->addWidget(box_);
  column->addWidget(table_, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Annulla"));
  column->addWidget(count_);
  column->addWidget(buttons);
  box_->setClearButtonEnabled(true);
  box_->setAccessibleName(QStringLiteral("Testo da cercare"));
  table_->setAccessibleName(QStringLiteral("Righe trovate"));
  table_->setModel(&model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  tellWhole(*table_);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->setColumnWidth(0, 110);
  resize(560, 480);
  connect(box_, &QLineEdit::textChanged, this, [this](const QString& now) { narrow(now); });
  connect(table_, &QTableView::doubleClicked, this, [this] { take(); });
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { take(); });
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  // Enter selects the current row, which therefore has to be highlighted, whatever key or click with Ctrl has
  // moved there.
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    const QModelIndex current = table_->currentIndex();
    if (current.isValid() && !table_->selectionModel()->hasSelection()) table_->selectRow(current.row());
  });
  box_->installEventFilter(this);
  box_->setText(typed);
  if (typed.isEmpty()) narrow({});
}

void SearchDialog::typeAhead(Keys keys) {
  for (std::unique_ptr<QKeyEvent>& key : keys) QCoreApplication::postEvent(box_, key.release());
}

void SearchDialog::narrow(const QString& typed) {
  model_.narrow(typed);
  count_->setText(QStringLiteral("%L1 di %L2").arg(model_.rowCount()).arg(model_.total()));
  if (model_.rowCount() > 0) table_->selectRow(0);
}

// In the box, arrow and page keys move in the list.
bool SearchDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == box_ && event->type() == QEvent::KeyPress) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        QApplication::sendEvent(table_, event);
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void SearchDialog::take() {
  const int row = table_->currentIndex().row();
  if (row < 0 || row >= model_.rowCount()) {
    QApplication::beep();
    return;
  }
  chosen_ = {model_.record(row), model_.code(row), model_.description(row)};
  accept();
}

}  // namespace cu::desktop
