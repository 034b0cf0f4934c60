#pragma once

#include <QAbstractListModel>
#include <QCache>
#include <QListView>
#include <QPixmap>
#include <QSet>
#include <functional>

namespace cu::desktop {

class Pages;
class PageSource;

// The pages as small pictures. A picture is drawn when it is asked for, which a list does for what it shows.
class ThumbnailModel : public QAbstractListModel {
 public:
  explicit ThumbnailModel(QObject* parent);
  // The document's pages; null for none.
  void show(PageSource* source);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  void setRatio(double ratio);
  // Pages drawn so far.
  int drawn() const { return drawn_; }

 private:
  void receive(int page, const QImage& image);
  QPixmap squareOf(const QImage& page) const;

  PageSource* source_ = nullptr;
  int pages_ = 0;
  int drawn_ = 0;
  double ratio_ = 1;
  QPixmap blank_;
  mutable QCache<int, QPixmap> pictures_;
};

// Thumbnails beside the pages: the page that is shown is the current one, and a choice goes to its page.
class Thumbnails : public QListView {
 public:
  Thumbnails(Pages& pages, QWidget* parent);
  // After open(), and whenever another page is shown.
  void renew();
  void follow();
  const ThumbnailModel& thumbnails() const { return model_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  Pages& pages_;
  ThumbnailModel model_;
};

}  // namespace cu::desktop
