#include "desktop/search_list.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

#include "desktop/elided_line.h"
#include "desktop/first_size.h"
#include "desktop/look.h"
#include "desktop/matched_cells.h"
#include "desktop/table_commands.h"
#include "desktop/table_style.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr QSize kSize(560, 480);
constexpr int kCodeWidth = 110;
constexpr int kDescriptionWidth = 250;
constexpr int kFurtherWidth = 150;

QStringList withFurther(QStringList captions, const FurtherColumns& further) {
  for (const std::string& caption : further.captions) captions += shown(caption);
  return captions;
}

// The names of the further columns in a sentence.
QString named(const FurtherColumns& further) {
  QStringList names;
  for (const std::string& caption : further.captions) names += shown(caption).toLower();
  const QString last = names.isEmpty() ? QString() : names.takeLast();
  return names.isEmpty() ? last : names.join(QStringLiteral(", ")) + QStringLiteral(" e ") + last;
}

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
                           const QStringList& captions, const QString& typed, const FurtherColumns& further)
    : QDialog(parent),
      model_(rows, withFurther(captions, further)),
      box_(new TypedLine(this)),
      table_(new QTableView(this)),
      count_(new ElidedLine(this)),
      reader_(new FurtherReader(this)),
      furtherNames_(named(further)) {
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
  styleRows(*table_);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setModel(&model_);
  table_->setItemDelegate(
      new MatchedCells([this](const QString& text) { return model_.matched(text); }, this));
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setStretchLastSection(true);
  // The best match is first: there is no other order.
  table_->horizontalHeader()->setSectionsClickable(false);
  const int furtherColumns = static_cast<int>(further.captions.size());
  resize(firstSize(*this, {kSize.width() + furtherColumns * kFurtherWidth * 2 / 3, kSize.height()}));
  auto* const commands = new TableCommands(*table_, QStringLiteral("ricerca_") + title);
  commands->setWidths = [this, furtherColumns] { placeColumns(furtherColumns); };
  commands->placeColumns();
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
  if (!further.captions.empty()) readFurther(further);
}

void SearchDialog::placeColumns(int further) {
  table_->setColumnWidth(0, inLetters(kCodeWidth));
  if (further > 0) table_->setColumnWidth(1, inLetters(kDescriptionWidth));
  for (int i = 0; i < further; ++i) table_->setColumnWidth(2 + i, inLetters(kFurtherWidth));
}

// The list can be used meanwhile.
void SearchDialog::readFurther(const FurtherColumns& further) {
  reader_->onRead = [this](FurtherRows rows) {
    const QModelIndex current = table_->currentIndex();
    const std::int64_t moved = current.row() > 0 ? model_.record(current.row()) : 0;
    model_.addFurther(std::move(rows));
    selectRow(moved == 0 ? 0 : std::max(0, model_.rowOf(moved)));
    tell();
  };
  reader_->onFailed = [this](const QString& error) {
    failure_ = error;
    tell();
  };
  reader_->read(further);
  tell();
}

void SearchDialog::typeAhead(Keys keys) {
  for (std::unique_ptr<QKeyEvent>& key : keys) QCoreApplication::postEvent(box_, key.release());
}

void SearchDialog::narrow(const QString& typed) {
  model_.narrow(typed);
  selectRow(0);
  tell();
}

void SearchDialog::selectRow(int row) {
  if (row < model_.rowCount()) table_->selectRow(row);
}

QString SearchDialog::words() const {
  QString words = QStringLiteral("%L1 di %L2").arg(model_.rowCount()).arg(model_.total());
  const QString typed = box_->text().simplified();
  if (model_.rowCount() == 0 && !typed.isEmpty()) {
    words = !typed.contains(u' ') ? QStringLiteral("Nessuna riga contiene «%1»").arg(typed)
                                  : QStringLiteral("Nessuna riga contiene tutte queste parole");
  }
  if (reader_->reading()) words += QStringLiteral("; lettura di %1 in corso…").arg(furtherNames_);
  if (!failure_.isEmpty())
    words += QStringLiteral("; qui non si cerca per %1: %2").arg(furtherNames_, failure_);
  return words;
}

void SearchDialog::tell() {
  const QString now = words();
  count_->setWhole(now);
  box_->setAccessibleDescription(now);
  QPalette colours;
  if (model_.rowCount() == 0 || !failure_.isEmpty())
    colours.setColor(QPalette::WindowText, look::warningInk());
  count_->setPalette(colours);
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
