#include "desktop/print_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace cu::desktop {
namespace {

constexpr int kMostCopies = 9999;

QSpinBox* pageNumber(QWidget* parent, const QString& name, int pages, int value) {
  auto* const made = new QSpinBox(parent);
  made->setRange(1, pages);
  made->setGroupSeparatorShown(true);
  made->setValue(value);
  made->setAccessibleName(name);
  return made;
}

}  // namespace

PrintDialog::PrintDialog(QWidget* parent, int pages, int current, std::function<QString()> chooseFile)
    : QDialog(parent),
      chooseFile_(std::move(chooseFile)),
      printers_(new QComboBox(this)),
      current_(new QRadioButton(QStringLiteral("&Quella in vista, la %L1").arg(current + 1), this)),
      range_(new QRadioButton(QStringLiteral("&Dalla"), this)),
      first_(pageNumber(this, QStringLiteral("Dalla pagina"), pages, 1)),
      last_(pageNumber(this, QStringLiteral("Alla pagina"), pages, pages)),
      copies_(new QSpinBox(this)),
      collated_(new QCheckBox(QStringLiteral("&Fascicolate"), this)),
      bothSides_(new QCheckBox(QStringLiteral("Fronte e &retro"), this)),
      backwards_(new QCheckBox(QStringLiteral("Dall'&ultima alla prima"), this)) {
  setWindowTitle(QStringLiteral("Stampa"));
  printers_->setObjectName(QStringLiteral("stampante"));
  printers_->addItems(QPrinterInfo::availablePrinterNames());
  const int usual = printers_->findText(QPrinterInfo::defaultPrinterName());
  printers_->addItem(QStringLiteral("Un file PDF"));
  printers_->setCurrentIndex(usual < 0 ? 0 : usual);
  printers_->setMinimumContentsLength(28);
  copies_->setRange(1, kMostCopies);
  collated_->setChecked(true);

  auto* const all = new QRadioButton(
      pages == 1 ? QStringLiteral("&Tutta") : QStringLiteral("&Tutte, da 1 a %L1").arg(pages), this);
  all->setChecked(true);
  range_->setObjectName(QStringLiteral("intervallo"));
  current_->setObjectName(QStringLiteral("inVista"));
  auto* const between = new QHBoxLayout;
  between->addWidget(range_);
  between->addWidget(first_);
  between->addWidget(new QLabel(QStringLiteral("alla"), this));
  between->addWidget(last_);
  between->addStretch(1);
  auto* const which = new QVBoxLayout;
  which->addWidget(all);
  which->addWidget(current_);
  which->addLayout(between);
  auto* const how = new QVBoxLayout;
  for (QCheckBox* each : {collated_, bothSides_, backwards_}) how->addWidget(each);

  auto* const form = new QFormLayout;
  form->addRow(QStringLiteral("&Stampante"), printers_);
  form->addRow(QStringLiteral("Pagine"), which);
  form->addRow(QStringLiteral("&Copie"), copies_);
  form->addRow(QString(), how);
  auto* const buttons = new QDialogButtonBox(this);
  buttons->addButton(QStringLiteral("Sta&mpa"), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(QStringLiteral("Annulla"), QDialogButtonBox::RejectRole);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(form);
  column->addStretch(1);
  column->addWidget(buttons);

  connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connect(printers_, &QComboBox::currentIndexChanged, this, [this] { allow(); });
  connect(copies_, &QSpinBox::valueChanged, this, [this] { allow(); });
  for (QSpinBox* each : {first_, last_}) {
    connect(each, &QSpinBox::valueChanged, this, [this] { range_->setChecked(true); });
  }
  for (QRadioButton* each : {current_, range_}) each->setVisible(pages > 1);
  for (int i = 0; i < between->count(); ++i) {
    if (QWidget* const part = between->itemAt(i)->widget()) part->setVisible(pages > 1);
  }
  allow();
}

bool PrintDialog::toFile() const { return printers_->currentIndex() == printers_->count() - 1; }

// A file has each page once.
void PrintDialog::allow() {
  copies_->setEnabled(!toFile());
  bothSides_->setEnabled(!toFile());
  collated_->setEnabled(!toFile() && copies_->value() > 1);
}

void PrintDialog::accept() {
  if (toFile()) {
    file_ = chooseFile_();
    if (file_.isEmpty()) return;
  }
  QDialog::accept();
}

void PrintDialog::setUp(QPrinter& printer) const {
  if (toFile()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file_);
  } else {
    printer.setPrinterName(printers_->currentText());
    printer.setCopyCount(copies_->value());
    printer.setCollateCopies(collated_->isChecked());
    if (bothSides_->isChecked()) printer.setDuplex(QPrinter::DuplexAuto);
  }
  printer.setPageOrder(backwards_->isChecked() ? QPrinter::LastPageFirst : QPrinter::FirstPageFirst);
  if (range_->isChecked()) {
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(std::min(first_->value(), last_->value()), std::max(first_->value(), last_->value()));
  } else {
    printer.setPrintRange(current_->isChecked() ? QPrinter::CurrentPage : QPrinter::AllPages);
  }
}

}  // namespace cu::desktop
