#pragma once

#include <QFileDialog>
#include <QFileIconProvider>
#include <QStringList>
#include <functional>

namespace cu::desktop {

namespace file_dialog {

// Names and pictures of files by their names alone. The toolkit's own would open each file of a folder to see
// what it holds: in this process that would release the locks of an embedded database that lies there.
class Kinds : public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo& file) const override;
  QString type(const QFileInfo& file) const override;
};

// Outlives the dialog, which reads folders in a thread of its own.
struct WithKinds {
  Kinds kinds;
};

}  // namespace file_dialog

// The program's dialog for files and folders. It is never the desktop's own, which may open files, too.
class FileDialog : private file_dialog::WithKinds, public QFileDialog {
 public:
  FileDialog(QWidget* parent, const QString& title, const QString& place = {}, const QString& filter = {});
  // For a file to write. A name without an extension gets that of the filter chosen, so that the question
  // whether to replace a file is about the one that is written.
  void saves();
  // The folder that the user has chosen, of a dialog for one. Beside the whole path of a folder in the one
  // shown, the toolkit may give the one shown, and gives it first.
  QString folder() const;
  // Why a file must not be written, of every dialog that asks for one: shown instead of accepting it. Empty
  // for nothing against it.
  static void setObjection(std::function<QString(const QString& file)> objection);

 protected:
  void accept() override;
};

// Ask for one; empty where the user gives none. `place` is a folder, or a file that is proposed.
QString fileToOpen(QWidget* parent, const QString& title, const QString& place, const QString& filter);
QStringList filesToOpen(QWidget* parent, const QString& title, const QString& place, const QString& filter);
QString folderToUse(QWidget* parent, const QString& title, const QString& place);
// Without `confirms`, a file that exists is the caller's business.
QString fileToSave(QWidget* parent, const QString& title, const QString& place, const QString& filter,
                   bool confirms = true);

}  // namespace cu::desktop
