#pragma once

#include <QHash>
#include <QImage>
#include <QTextBrowser>
#include <QTimer>
#include <vector>

#include "desktop/matches.h"

namespace cu::desktop {

// The guide's text: its pictures are those of the present look where there are such, and no wider than the
// text.
class GuideText : public QTextBrowser {
 public:
  // `folder` contains "guida.md"; its pictures, and in "scuri" beside them those of the dark look.
  GuideText(const QString& folder, QWidget* parent);

  struct Heading {
    int level = 0;
    QString text;
    int position = 0;
  };
  const std::vector<Heading>& headings() const { return headings_; }
  // The heading with that text, otherwise the beginning; scrolled to the top, with the cursor there.
  void goTo(const QString& heading);
  // The heading above what is seen first; -1 for none.
  int headingSeen() const { return headingAt(positionSeen()); }
  // The heading above a place.
  int headingAt(qsizetype position) const;

  // All places of a text; each is coloured, and one of them, from 0, is also selected and scrolled to.
  std::vector<Stretch> places(const QString& text) const;
  void mark(const std::vector<Stretch>& places, std::size_t current);
  // The first of the places at or below what is seen first, from 0.
  std::size_t firstBelow(const std::vector<Stretch>& places) const;

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fitPictures();
  QImage fitted(const QImage& picture) const;
  int room() const;
  int positionSeen() const;

  std::vector<Heading> headings_;
  QHash<QUrl, QImage> pictures_;  // as they are in the files
  QTimer pause_;                  // after a change of the size
  int room_ = 0;                  // for which the pictures are
};

}  // namespace cu::desktop
