#pragma once

#include <QDialog>
#include <optional>

#include "controls/frontend.h"

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace cu::desktop {

class TableCommands;

// The log of missing data: a table to read, copy from, and close.
class LogDialog : public QDialog {
 public:
  LogDialog(QWidget* parent, const LogTable& log);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fill(const LogTable& log);
  void placeColumns();
  void showMessage();
  QTableWidget* table_;
  QLabel* message_;  // of the current row, whole
  TableCommands* commands_ = nullptr;
};

// Printer and number of copies.
class PrinterChooser : public QDialog {
 public:
  explicit PrinterChooser(QWidget* parent);
  std::optional<PrinterChoice> choice() const;

 private:
  void allow();
  QComboBox* printers_;
  QSpinBox* copies_;
  QPushButton* ok_;
};

}  // namespace cu::desktop
