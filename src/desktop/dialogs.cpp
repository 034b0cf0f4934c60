#include "desktop/dialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/first_size.h"
#include "desktop/guide_window.h"
#include "desktop/table_commands.h"
#include "desktop/table_style.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kMessageWidth = 320;
constexpr int kTextWidth = 220;
constexpr int kAroundMessage = 10;

}  // namespace

LogDialog::LogDialog(QWidget* parent, const LogTable& log)
    : QDialog(parent), table_(new QTableWidget(this)), message_(new QLabel(this)) {
  const bool ofMissingData = log.title.empty();
  setWindowTitle(ofMissingData ? QStringLiteral("Dati mancanti") : shown(log.title));
  if (ofMissingData) setProperty(kGuideChapter, QStringLiteral("Se manca qualche dato"));
  auto* column = new QVBoxLayout(this);
  auto* head = new QLabel(
      ofMissingData
          ? QStringLiteral(
                "Il file non è stato creato: mancano questi dati. Completarli e premere di nuovo Avvia.")
          : shown(log.head),
      this);
  head->setWordWrap(true);
  column->addWidget(head);
  column->addWidget(table_, 1);
  column->addWidget(message_);
  message_->setObjectName(QStringLiteral("messaggioIntero"));
  message_->setTextFormat(Qt::PlainText);
  message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  message_->setWordWrap(true);

  styleRows(*table_);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setStretchLastSection(true);
  commands_ = new TableCommands(*table_,
                                ofMissingData ? QStringLiteral("dati_mancanti") : QStringLiteral("messaggi"));
  fill(log);
  connect(table_, &QTableWidget::currentCellChanged, this, [this] { showMessage(); });
  showMessage();

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* const close = buttons->addButton(QStringLiteral("Chiudi"), QDialogButtonBox::AcceptRole);
  QPushButton* const copied =
      buttons->addButton(QStringLiteral("&Copia tutto"), QDialogButtonBox::ActionRole);
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, [this] { accept(); });
  connect(copied, &QPushButton::clicked, this, [this] {
    table_->selectAll();
    commands_->copy(false);
  });
  column->addWidget(buttons);
  resize(firstSize(*this, {1000, 420}));
  table_->setFocus();
}

void LogDialog::fill(const LogTable& log) {
  // The kind of message is the same in every row and has no information for a user; the message comes first.
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < log.columns.size(); ++i) {
    if (log.columns[i] == "Message") order.insert(order.begin(), i);
    if (log.columns[i] != "Message" && log.columns[i] != "MessageType") order.push_back(i);
  }
  table_->setAccessibleName(windowTitle());
  table_->setColumnCount(static_cast<int>(order.size()));
  table_->setRowCount(static_cast<int>(log.rows.size()));
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  for (int at = 0; const std::size_t from : order) {
    const std::string& name = log.columns[from];
    table_->setHorizontalHeaderItem(
        at++, new QTableWidgetItem(name == "Message" ? QStringLiteral("Messaggio") : shown(name)));
  }
  for (int row = 0; const auto& values : log.rows) {
    for (int at = 0; const std::size_t from : order) {
      const std::string text = from < values.size() ? values[from].view().toText() : std::string();
      auto* const item = new QTableWidgetItem(shown(text));
      item->setToolTip(dataTip(item->text()));
      table_->setItem(row, at++, item);
    }
    ++row;
  }
  table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  table_->setSortingEnabled(true);
  commands_->setWidths = [this] { placeColumns(); };
  commands_->placeColumns();
  if (!log.rows.empty()) table_->selectRow(0);
}

// A long text must not push the other columns out of view: it is cut, and its tooltip shows it in full.
void LogDialog::placeColumns() {
  table_->resizeColumnsToContents();
  for (int at = 0; at < table_->columnCount(); ++at) {
    table_->setColumnWidth(
        at, std::min(table_->columnWidth(at), inLetters(at == 0 ? kMessageWidth : kTextWidth)));
  }
}

// Below the table where any is cut there, in two lines at least, so that the table keeps its height.
void LogDialog::showMessage() {
  const int row = table_->currentRow();
  const QTableWidgetItem* const item = row < 0 ? nullptr : table_->item(row, 0);
  int widest = 0;
  for (int at = 0; at < table_->rowCount(); ++at)
    widest = std::max(widest, table_->fontMetrics().horizontalAdvance(table_->item(at, 0)->text()));
  message_->setVisible(item != nullptr && widest > inLetters(kMessageWidth) - kAroundMessage);
  message_->setMinimumHeight(2 * message_->fontMetrics().lineSpacing());
  message_->setText(item == nullptr ? QString() : item->text());
}

// Ctrl+C works wherever in the dialog the keyboard is.
void LogDialog::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    commands_->copy(false);
    return;
  }
  QDialog::keyPressEvent(event);
}

PrinterChooser::PrinterChooser(QWidget* parent)
    : QDialog(parent), printers_(new QComboBox(this)), copies_(new QSpinBox(this)) {
  setWindowTitle(QStringLiteral("Stampa"));
  auto* column = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("&Stampante"), printers_);
  form->addRow(QStringLiteral("&Copie"), copies_);
  column->addLayout(form);
  const QStringList names = QPrinterInfo::availablePrinterNames();
  printers_->addItems(names);
  // A printer may be available without being listed.
  printers_->setEditable(true);
  printers_->setMinimumWidth(320);
  printers_->setAccessibleName(QStringLiteral("Stampante"));
  const int usual = static_cast<int>(names.indexOf(QPrinterInfo::defaultPrinterName()));
  printers_->setCurrentIndex(usual >= 0 || names.isEmpty() ? usual : 0);
  copies_->setRange(1, 9999);
  copies_->setAccessibleName(QStringLiteral("Copie"));
  if (names.isEmpty()) column->addWidget(new QLabel(QStringLiteral("Nessuna stampante è installata."), this));
  auto* buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton(QStringLiteral("Stampa"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QStringLiteral("Annulla"), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connect(printers_, &QComboBox::editTextChanged, this, [this] { allow(); });
  column->addWidget(buttons);
  allow();
}

void PrinterChooser::allow() { ok_->setEnabled(!printers_->currentText().trimmed().isEmpty()); }

std::optional<PrinterChoice> PrinterChooser::choice() const {
  if (result() != QDialog::Accepted) return std::nullopt;
  return PrinterChoice{utf8(printers_->currentText().trimmed()), copies_->value()};
}

}  // namespace cu::desktop
