#pragma once

#include <QAbstractListModel>
#include <QFile>
#include <QPointer>
#include <QWidget>
#include <vector>

class QTextBrowser;

namespace cu::desktop {

// The user's guide, with a search.
class HelpWindow : public QWidget {
 public:
  // `folder` contains "guida.md" and its pictures.
  HelpWindow(QWidget* parent, const QString& folder);
  // Scrolls to the heading with that text; to the beginning of the guide where there is none.
  void showChapter(const QString& heading);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void goToChapter();
  QTextBrowser* text_;
  QString chapter_;
};

// The property of a dialog with its chapter.
inline constexpr const char* kGuideChapter = "capitolo";

// Brings the guide to the front, at a chapter. Behind a modal window it could not be used: a guide that
// belongs to another window than `parent` is replaced by a new one.
void openGuide(QPointer<HelpWindow>& guide, QWidget* parent, const QString& folder, const QString& chapter);

// The lines of a text file of any size, each decoded when it is shown.
class FileLines : public QAbstractListModel {
 public:
  explicit FileLines(const QString& path, QObject* parent = nullptr);
  bool readable() const { return data_ != nullptr; }
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QFile file_;
  const char* data_ = nullptr;
  std::vector<qint64> starts_;  // one more than the number of lines
};

// Shows a text file.
class TextWindow : public QWidget {
 public:
  TextWindow(QWidget* parent, const QString& path);
};

}  // namespace cu::desktop
