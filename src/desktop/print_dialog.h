#pragma once

#include <QDialog>
#include <QString>
#include <functional>

class QCheckBox;
class QComboBox;
class QPrinter;
class QRadioButton;
class QSpinBox;

namespace cu::desktop {

// Where a preview is printed, and which of its pages. It is never the toolkit's own dialog, which reads into
// the files of a folder and would print over a database in use: a file is asked for by the program's own.
class PrintDialog : public QDialog {
 public:
  // `current` from 0. `chooseFile` asks for the file of a print to a file; empty where the user gives none.
  PrintDialog(QWidget* parent, int pages, int current, std::function<QString()> chooseFile);
  // What was chosen; after an accepted dialog.
  void setUp(QPrinter& printer) const;

 protected:
  void accept() override;

 private:
  bool toFile() const;
  void allow();

  std::function<QString()> chooseFile_;
  QString file_;
  QComboBox* printers_;
  QRadioButton* current_;
  QRadioButton* range_;
  QSpinBox* first_;
  QSpinBox* last_;
  QSpinBox* copies_;
  QCheckBox* collated_;
  QCheckBox* bothSides_;
  QCheckBox* backwards_;
};

}  // namespace cu::desktop
