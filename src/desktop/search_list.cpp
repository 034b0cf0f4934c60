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
#include <algorithm>
#include <array>
#include <numeric>

#include "desktop/matched_cells.h"
#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu::desktop {
namespace {

constexpr std::size_t kRanks = 4;

// The first place where the word begins a word of the text; -1 for none.
qsizetype beginningOfWord(const QString& text, const QString& word) {
  for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
    if (at == 0 || !text[at - 1].isLetterOrNumber()) return at;
  }
  return -1;
}

}  // namespace

SearchModel::SearchModel(Recordset& rows, QStringList captions, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), captions_(std::move(captions)), cells_(rows.Fields().size()) {
  keys_.reserve(rows_.RecordCount());
  for (std::size_t at = 1; at <= rows_.RecordCount(); ++at) {
    rows_.Peek(at, cells_.data());
    keys_.push_back({folded(shown(cells_[1].toText())), folded(shown(cells_[2].toText()))});
  }
  passing_.resize(keys_.size());
  std::iota(passing_.begin(), passing_.end(), 0U);
  matching_ = passing_;
}

std::optional<std::size_t> SearchModel::rank(const Key& key) const {
  const auto has = [&](const QString& word) {
    return key.code.contains(word) || key.description.contains(word);
  };
  if (!std::all_of(words_.begin(), words_.end(), has)) return std::nullopt;
  if (key.code == narrowed_ || key.description == narrowed_) return 0;
  if (key.code.startsWith(narrowed_) || key.description.startsWith(narrowed_)) return 1;
  const auto begins = [&](const QString& word) {
    return key.code.startsWith(word) || beginningOfWord(key.description, word) >= 0;
  };
  return std::all_of(words_.begin(), words_.end(), begins) ? 2 : 3;
}

void SearchModel::narrow(const QString& typed) {
  const QString wanted = folded(typed.simplified());
  beginResetModel();
  // A text that continues the previous one narrows the result further.
  if (narrowed_.isEmpty() || !wanted.startsWith(narrowed_)) {
    passing_.resize(keys_.size());
    std::iota(passing_.begin(), passing_.end(), 0U);
  }
  narrowed_ = wanted;
  words_ = wanted.split(u' ', Qt::SkipEmptyParts);
  std::array<std::vector<std::uint32_t>, kRanks> ranked;
  if (!wanted.isEmpty()) {
    std::erase_if(passing_, [&](std::uint32_t at) {
      const auto found = rank(keys_[at]);
      if (found) ranked[*found].push_back(at);
      return !found;
    });
    matching_.clear();
    for (const auto& each : ranked) matching_.insert(matching_.end(), each.begin(), each.end());
  } else {
    matching_ = passing_;
  }
  endResetModel();
}

std::vector<Stretch> SearchModel::matched(const QString& text) const {
  std::vector<Stretch> all;
  for (const QString& word : words_) {
    const std::vector<Stretch> found = matches(text, word);
    const auto first = std::find_if(found.begin(), found.end(), [&](const Stretch& each) {
      return each.from == 0 || !text[each.from - 1].isLetterOrNumber();
    });
    if (!found.empty()) all.push_back(first != found.end() ? *first : found.front());
  }
  return all;
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
  table_->setItemDelegate(
      new MatchedCells([this](const QString& text) { return model_.matched(text); }, this));
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
