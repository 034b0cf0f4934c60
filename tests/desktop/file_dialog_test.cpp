#include "desktop/file_dialog.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QListView>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QTimer>

#include "support/held_locks.h"
#include "support/temp_folder.h"

namespace cu::desktop {
namespace {

class DialogBesideADatabase : public ::testing::Test {
 protected:
  DialogBesideADatabase() : database_(folder_.write("a.db", std::string("SQLite format 3") + '\0')) {
    file_ = ::open(database_.c_str(), O_RDWR | O_CLOEXEC);
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    EXPECT_EQ(::fcntl(file_, F_SETLK, &lock), 0);
    EXPECT_TRUE(test::holdsLock(database_));
  }
  ~DialogBesideADatabase() override { ::close(file_); }

  // Until the dialog lists the database, and for a moment more.
  static bool listed(QFileDialog& dialog) {
    dialog.show();
    QElapsedTimer since;
    since.start();
    bool seen = false;
    while (since.elapsed() < (seen ? 500 : 10000)) {
      QApplication::processEvents(QEventLoop::AllEvents, 20);
      const auto* const list = dialog.findChild<QListView*>(QStringLiteral("listView"));
      if (list == nullptr || seen || list->model()->rowCount(list->rootIndex()) == 0) continue;
      seen = true;
      since.restart();
    }
    return seen;
  }

  test::TempFolder folder_;
  std::string database_;
  int file_ = -1;
};

TEST_F(DialogBesideADatabase, LeavesItsLocks) {
  FileDialog dialog(nullptr, QStringLiteral("Prova"), QString::fromStdString(folder_.path()));
  ASSERT_TRUE(listed(dialog));
  EXPECT_TRUE(test::holdsLock(database_));
}

// What the test would miss: a look into the file, as the toolkit takes one, does release them.
TEST_F(DialogBesideADatabase, LooksIntoNoFileAsTheToolkitDoes) {
  QMimeDatabase().mimeTypeForFile(QString::fromStdString(database_), QMimeDatabase::MatchContent);
  EXPECT_FALSE(test::holdsLock(database_));
}

TEST(FileDialogs, NameKindsInItalian) {
  const test::TempFolder folder;
  const file_dialog::Kinds kinds;
  EXPECT_EQ(kinds.type(QFileInfo(QString::fromStdString(folder.path()))), QStringLiteral("Cartella"));
  EXPECT_EQ(kinds.type(QFileInfo(QStringLiteral("a.cur"))), QStringLiteral("File CUR"));
  EXPECT_EQ(kinds.type(QFileInfo(QStringLiteral("a"))), QStringLiteral("File"));
}

TEST(FileDialogs, ProposeAFileInItsFolder) {
  const test::TempFolder folder;
  const QString place = QString::fromStdString(folder / "righe.csv");
  FileDialog dialog(nullptr, QStringLiteral("Prova"), place,
                    QStringLiteral("Foglio (*.xlsx);;Testo (*.csv)"));
  dialog.saves();
  EXPECT_EQ(dialog.directory().absolutePath(), QString::fromStdString(folder.path()));
  EXPECT_EQ(dialog.selectedFiles(), QStringList{place});
  EXPECT_EQ(dialog.defaultSuffix(), QStringLiteral("xlsx"));
  dialog.selectNameFilter(QStringLiteral("Testo (*.csv)"));
  emit dialog.filterSelected(dialog.selectedNameFilter());
  EXPECT_EQ(dialog.defaultSuffix(), QStringLiteral("csv"));
}

// While a whole path is typed the toolkit selects each folder on the way: the one that it shows, too.
TEST(FileDialogs, TakeTheFolderThatIsTypedAndNotTheOneAroundIt) {
  const test::TempFolder folder;
  const QString shown = QString::fromStdString(folder.path());
  const QString inside = QString::fromStdString(folder / "moduli");
  ASSERT_TRUE(QDir().mkpath(inside));
  FileDialog dialog(nullptr, QStringLiteral("Prova"), shown);
  dialog.setFileMode(QFileDialog::Directory);
  auto* const list = dialog.findChild<QListView*>(QStringLiteral("listView"));
  ASSERT_NE(list, nullptr);
  const auto* const files = qobject_cast<const QFileSystemModel*>(list->model());
  ASSERT_NE(files, nullptr);
  for (const QString& path : {shown, inside}) {
    list->selectionModel()->select(files->index(path),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
  ASSERT_EQ(dialog.selectedFiles(), QStringList({shown, inside}));
  EXPECT_EQ(dialog.folder(), inside);
}

// What is against a file is shown instead of accepting it, and the dialog goes on asking.
TEST(FileDialogs, AFileThatMustNotBeWrittenIsNotAccepted) {
  const test::TempFolder folder;
  const QString forbidden = QString::fromStdString(folder / "in uso.db");
  FileDialog::setObjection(
      [&](const QString& file) { return file == forbidden ? QStringLiteral("No.") : QString(); });
  FileDialog dialog(nullptr, QStringLiteral("Prova"), QString::fromStdString(folder.path()));
  dialog.saves();
  dialog.show();
  dialog.selectFile(forbidden);
  QString said;
  QTimer::singleShot(0, &dialog, [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    said = box->text();
    box->accept();
  });
  QMetaObject::invokeMethod(&dialog, "accept");
  EXPECT_EQ(said, QStringLiteral("No."));
  EXPECT_TRUE(dialog.isVisible());
  dialog.selectFile(QString::fromStdString(folder / "altro.db"));
  QMetaObject::invokeMethod(&dialog, "accept");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  FileDialog::setObjection({});
}

}  // namespace
}  // namespace cu::desktop
