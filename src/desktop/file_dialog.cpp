#include "desktop/file_dialog.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTreeView>
#include <utility>

#include "desktop/first_size.h"

namespace cu::desktop {
namespace {

void propose(QFileDialog& dialog, const QString& place) {
  const QFileInfo proposed(place);
  if (place.isEmpty() || proposed.isDir()) return;
  dialog.setDirectory(proposed.absolutePath());
  dialog.selectFile(proposed.fileName());
}

std::function<QString(const QString&)>& objectionToFiles() {
  static std::function<QString(const QString&)> objection;
  return objection;
}

QStringList selected(QFileDialog& dialog) {
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

}  // namespace

QIcon file_dialog::Kinds::icon(const QFileInfo& file) const { return icon(file.isDir() ? Folder : File); }

QString file_dialog::Kinds::type(const QFileInfo& file) const {
  if (file.isDir()) return QStringLiteral("Cartella");
  return file.suffix().isEmpty() ? QStringLiteral("File") : QStringLiteral("File ") + file.suffix().toUpper();
}

FileDialog::FileDialog(QWidget* parent, const QString& title, const QString& place, const QString& filter)
    : QFileDialog(parent, title, QString(), filter) {
  setOption(QFileDialog::DontUseNativeDialog);
  setIconProvider(&kinds);
  if (QFileInfo(place).isDir()) setDirectory(place);
  propose(*this, place);
  // Wide enough to show captions and dates in full.
  resize(firstSize(*this, {820, 480}));
  auto* const details = findChild<QTreeView*>(QStringLiteral("treeView"));
  if (details == nullptr) return;
  QHeaderView& header = *details->header();
  header.setStretchLastSection(false);
  for (int column = 0; column < header.count(); ++column) {
    header.setSectionResizeMode(column, column == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
  }
}

void FileDialog::saves() {
  setAcceptMode(QFileDialog::AcceptSave);
  const auto follow = [this](const QString& filter) {
    static const QRegularExpression kEnding(QStringLiteral("\\*\\.(\\w+)"));
    setDefaultSuffix(kEnding.match(filter).captured(1));
  };
  follow(selectedNameFilter());
  connect(this, &QFileDialog::filterSelected, this, follow);
}

void FileDialog::setObjection(std::function<QString(const QString& file)> objection) {
  objectionToFiles() = std::move(objection);
}

void FileDialog::accept() {
  if (acceptMode() == QFileDialog::AcceptSave && objectionToFiles()) {
    for (const QString& file : selectedFiles()) {
      const QString against = objectionToFiles()(file);
      if (against.isEmpty()) continue;
      QMessageBox box(QMessageBox::Warning, windowTitle(), {}, QMessageBox::Ok, this);
      box.setTextFormat(Qt::PlainText);
      box.setText(against);
      box.exec();
      return;
    }
  }
  QFileDialog::accept();
}

QString FileDialog::folder() const {
  return selectedFiles().isEmpty() ? QString() : selectedFiles().constLast();
}

QString fileToOpen(QWidget* parent, const QString& title, const QString& place, const QString& filter) {
  FileDialog dialog(parent, title, place, filter);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return selected(dialog).value(0);
}

QStringList filesToOpen(QWidget* parent, const QString& title, const QString& place, const QString& filter) {
  FileDialog dialog(parent, title, place, filter);
  dialog.setFileMode(QFileDialog::ExistingFiles);
  return selected(dialog);
}

QString folderToUse(QWidget* parent, const QString& title, const QString& place) {
  FileDialog dialog(parent, title, place);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  return dialog.exec() == QDialog::Accepted ? dialog.folder() : QString();
}

QString fileToSave(QWidget* parent, const QString& title, const QString& place, const QString& filter,
                   bool confirms) {
  FileDialog dialog(parent, title, place, filter);
  dialog.saves();
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !confirms);
  propose(dialog, place);
  return selected(dialog).value(0);
}

}  // namespace cu::desktop
