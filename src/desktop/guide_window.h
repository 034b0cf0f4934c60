#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

#include "desktop/matches.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace cu::desktop {

class GuideText;

// The user's guide: contents, text, and a search that stays.
class HelpWindow : public QWidget {
 public:
  // `folder` contains "guida.md" and its pictures.
  HelpWindow(QWidget* parent, const QString& folder);
  // Scrolls to the heading with that text; to the beginning of the guide where there is none.
  void showChapter(const QString& heading);

  GuideText& text() { return *text_; }
  QTreeWidget& contents() { return *contents_; }
  // Searches from what is seen, counts the hits and goes to the first; an empty text ends the search.
  void search(const QString& text);
  void step(bool back);
  QString words() const;  // "3 di 12"

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void layOut();
  void fillContents();
  void follow();
  void markChapter(int heading);
  void goToHit();
  void goToChapter();
  void tell();

  GuideText* text_;
  QTreeWidget* contents_;
  QLineEdit* box_;
  QLabel* count_;
  std::vector<QWidget*> onHits_;
  std::vector<QTreeWidgetItem*> items_;  // of the headings; null for one without
  QString chapter_;
  QString searched_;
  std::vector<Stretch> hits_;
  std::size_t at_ = 0;
  bool going_ = false;
};

// The property of a dialog with its chapter.
inline constexpr const char* kGuideChapter = "capitolo";
// The chapter that lists the keys.
inline constexpr const char* kKeysChapter = "Tasti";

// Brings the guide to the front, at a chapter. Behind a modal window it could not be used: a guide that
// belongs to another window than `parent` is replaced by a new one.
void openGuide(QPointer<HelpWindow>& guide, QWidget* parent, const QString& folder, const QString& chapter);

// The keys of the guide in a window: F1 opens the window's own chapter, "" in the call, Ctrl+F1 the keys.
void addGuideKeys(QWidget* window, const std::function<void(const QString& chapter)>& open);

}  // namespace cu::desktop
