#include "desktop/thumbnails.h"

#include <QPainter>
#include <QScrollBar>

#include "desktop/pages.h"

namespace cu::desktop {
namespace {

constexpr int kSide = 110;  // of the square that contains a page
constexpr int kKept = 400;
constexpr QColor kEdge(0x8A, 0x94, 0x9E);

}  // namespace

ThumbnailModel::ThumbnailModel(QObject* parent) : QAbstractListModel(parent), pictures_(kKept) {
  setRatio(1);
}

void ThumbnailModel::setRatio(double ratio) {
  if (ratio == ratio_ && !blank_.isNull()) return;
  ratio_ = ratio;
  constexpr double kNarrow = 0.7;
  const double side = kSide * ratio_;
  QImage page(static_cast<int>(side * kNarrow), static_cast<int>(side), QImage::Format_RGB32);
  page.fill(Qt::white);
  blank_ = squareOf(page);
  pictures_.clear();
}

// All pictures have one size, whatever the pages'.
QPixmap ThumbnailModel::squareOf(const QImage& page) const {
  const int side = static_cast<int>(kSide * ratio_);
  QPixmap square(side, side);
  square.fill(Qt::transparent);
  QPainter painter(&square);
  QRect place(QPoint(), page.size().boundedTo(square.size()));
  place.moveCenter(square.rect().center());
  painter.drawImage(place.topLeft(), page);
  painter.setPen(kEdge);
  painter.drawRect(place.adjusted(0, 0, -1, -1));
  painter.end();
  square.setDevicePixelRatio(ratio_);
  return square;
}

void ThumbnailModel::show(PageSource* source) {
  beginResetModel();
  source_ = source;
  pages_ = source == nullptr ? 0 : source->pages();
  pictures_.clear();
  drawn_ = 0;
  if (source_ != nullptr) source_->onSmall = [this](int page, const QImage& image) { receive(page, image); };
  endResetModel();
}

int ThumbnailModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : pages_; }

QVariant ThumbnailModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return QStringLiteral("%L1").arg(index.row() + 1);
    case Qt::AccessibleTextRole:
      return QStringLiteral("Pagina %L1").arg(index.row() + 1);
    case Qt::DecorationRole:
      if (const QPixmap* const known = pictures_.object(index.row())) return *known;
      source_->wantSmall(index.row(), static_cast<int>(kSide * ratio_));
      return blank_;
    default:
      return {};
  }
}

void ThumbnailModel::receive(int page, const QImage& image) {
  if (page >= pages_) return;
  ++drawn_;
  pictures_.insert(page, new QPixmap(squareOf(image)));
  emit dataChanged(index(page), index(page), {Qt::DecorationRole});
}

Thumbnails::Thumbnails(Pages& pages, QWidget* parent) : QListView(parent), pages_(pages), model_(this) {
  setAccessibleName(QStringLiteral("Miniature delle pagine"));
  setModel(&model_);
  setViewMode(QListView::IconMode);
  setFlow(QListView::TopToBottom);
  setWrapping(false);
  setMovement(QListView::Static);
  setUniformItemSizes(true);
  setIconSize({kSide, kSide});
  const int text = fontMetrics().height();
  setGridSize({kSide + 2 * text, kSide + 2 * text});
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFixedWidth(gridSize().width() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth() + 2);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& now) {
    if (now.isValid() && now.row() != pages_.page()) pages_.go(now.row());
  });
}

void Thumbnails::renew() {
  model_.setRatio(devicePixelRatioF());
  model_.show(pages_.pictures() ? pages_.source() : nullptr);
  follow();
}

void Thumbnails::follow() {
  if (pages_.page() >= model_.rowCount() || currentIndex().row() == pages_.page()) return;
  setCurrentIndex(model_.index(pages_.page()));
}

void Thumbnails::showEvent(QShowEvent* event) {
  QListView::showEvent(event);
  if (currentIndex().isValid()) scrollTo(currentIndex());
}

}  // namespace cu::desktop
