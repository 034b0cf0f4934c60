#include "desktop/page_source.h"

#include <poppler-qt6.h>

#include <QFile>
#include <algorithm>
#include <chrono>
#include <utility>

#include "desktop/matches.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr double kFinest = 600;  // dots per inch of an image, whatever the screen's
constexpr std::size_t kSmallKept = 40;
constexpr int kPagesAtOnce = 50;  // searched between two reports where nothing is found

QString withoutSpaces(const QString& text) {
  QString bare;
  bare.reserve(text.size());
  for (const QChar letter : text) {
    if (!letter.isSpace()) bare += letter;
  }
  return bare;
}

}  // namespace

PageSource::PageSource(std::unique_ptr<QFile> file, Texts texts)
    : texts_(std::move(texts)), file_(std::move(file)), thread_([this] { work(); }) {}

PageSource::~PageSource() {
  {
    const std::lock_guard held(lock_);
    stopped_ = true;
  }
  tasks_.notify_all();
  thread_.join();
}

void PageSource::post(std::function<void()> call) {
  QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
}

void PageSource::work() {
  load();
  std::unique_lock held(lock_);
  for (;;) {
    tasks_.wait(held, [this] { return stopped_ || wanted_ || !small_.empty() || search_; });
    if (stopped_) return;
    if (wanted_) {
      const Wanted wanted = *std::exchange(wanted_, std::nullopt);
      held.unlock();
      draw(wanted);
    } else if (!small_.empty()) {
      const auto [page, width] = small_.back();
      small_.pop_back();
      held.unlock();
      drawSmall(page, width);
    } else {
      Search search = *std::exchange(search_, std::nullopt);
      held.unlock();
      searchOn(std::move(search));
    }
    held.lock();
  }
}

void PageSource::load() {
  if (file_ != nullptr) {
    read_ = file_->readAll();
    file_.reset();
    document_ = Poppler::Document::loadFromData(read_);
  }
  if (document_ != nullptr && document_->isLocked()) document_.reset();
  if (document_ != nullptr) {
    document_->setRenderHint(Poppler::Document::Antialiasing);
    document_->setRenderHint(Poppler::Document::TextAntialiasing);
  }
  const int count = document_ != nullptr ? document_->numPages() : 0;
  {
    const std::lock_guard held(lock_);
    count_ = count;
    read_all_ = true;
  }
  done_.notify_all();
  post([this] {
    if (waitLoaded(0) && onLoaded) onLoaded();
  });
}

bool PageSource::waitLoaded(int milliseconds) {
  if (loaded_) return true;
  std::unique_lock held(lock_);
  if (!done_.wait_for(held, std::chrono::milliseconds(milliseconds), [this] { return read_all_; }))
    return false;
  loaded_ = true;
  pages_ = count_;
  bytes_ = read_;
  return true;
}

void PageSource::want(const Wanted& wanted) {
  {
    const std::lock_guard held(lock_);
    drawn_.reset();
    wanted_ = wanted;
  }
  tasks_.notify_all();
}

bool PageSource::wait(int milliseconds) {
  {
    std::unique_lock held(lock_);
    if (!done_.wait_for(held, std::chrono::milliseconds(milliseconds), [this] { return drawn_.has_value(); }))
      return false;
  }
  deliver();
  return true;
}

void PageSource::deliver() {
  std::optional<Picture> drawn;
  {
    const std::lock_guard held(lock_);
    drawn = std::exchange(drawn_, std::nullopt);
  }
  if (drawn && onPicture) onPicture(*drawn);
}

bool PageSource::outdated(const Wanted& wanted) {
  const std::lock_guard held(lock_);
  return stopped_ || (wanted_ && *wanted_ != wanted);
}

void PageSource::draw(const Wanted& wanted) {
  const std::unique_ptr<Poppler::Page> page = document_ == nullptr ? nullptr : document_->page(wanted.page);
  Picture drawn{wanted, wanted.dots, {}};
  if (page != nullptr) {
    if (drawn.dots <= 0) {
      drawn.dots =
          std::clamp(wanted.room * kPointsPerInch / page->pageSizeF().width(), kSmallestPage, kLargestPage);
    }
    const double fine = std::min(drawn.dots * wanted.ratio, std::max(kFinest, drawn.dots));
    struct Asked {
      PageSource* source;
      Wanted wanted;
    } asked{this, wanted};
    drawn.image = page->renderToImage(
        fine, fine, -1, -1, -1, -1, Poppler::Page::Rotate0, nullptr, nullptr,
        [](const QVariant& payload) {
          auto* const it = static_cast<Asked*>(payload.value<void*>());
          return it->source->outdated(it->wanted);
        },
        QVariant::fromValue(static_cast<void*>(&asked)));
    drawn.image.setDevicePixelRatio(fine / drawn.dots);
  }
  {
    const std::lock_guard held(lock_);
    if (stopped_ || wanted_) return;
    drawn_ = std::move(drawn);
  }
  done_.notify_all();
  post([this] { deliver(); });
}

void PageSource::wantSmall(int page, int width) {
  {
    const std::lock_guard held(lock_);
    const std::pair<int, int> one(page, width);
    std::erase(small_, one);
    small_.push_back(one);
    if (small_.size() > kSmallKept) small_.pop_front();
  }
  tasks_.notify_all();
}

void PageSource::drawSmall(int number, int width) {
  const std::unique_ptr<Poppler::Page> page = document_ == nullptr ? nullptr : document_->page(number);
  if (page == nullptr) return;
  const double dots =
      width * kPointsPerInch / std::max(page->pageSizeF().width(), page->pageSizeF().height());
  const QImage image = page->renderToImage(dots, dots);
  post([this, number, image] {
    if (onSmall) onSmall(number, image);
  });
}

void PageSource::search(const Query& query) {
  {
    const std::lock_guard held(lock_);
    search_ = Search{query, 0, ++generation_};
  }
  tasks_.notify_all();
}

void PageSource::stopSearch() {
  const std::lock_guard held(lock_);
  search_.reset();
  ++generation_;
}

int PageSource::searchedPages(const Query& query) const {
  if (query.inTexts || document_ == nullptr) return static_cast<int>(texts_->size());
  return document_->numPages();
}

// Searches until something else is wanted, and continues after that.
void PageSource::searchOn(Search search) {
  const int total = searchedPages(search.query);
  Found found;
  int looked = 0;
  bool disturbed = false;
  while (search.done < total && !disturbed && found.hits.empty() && looked < kPagesAtOnce) {
    const int page = (search.query.from + search.done) % total;
    found.hits = hitsOn(page, search.query);
    ++search.done;
    ++looked;
    const std::lock_guard held(lock_);
    disturbed = stopped_ || wanted_ || !small_.empty() || search_ || search.generation != generation_;
  }
  found.searched = search.done;
  found.finished = search.done >= total;
  const int generation = search.generation;
  {
    const std::lock_guard held(lock_);
    if (search_ || generation != generation_) return;
    if (!found.finished) search_ = std::move(search);
  }
  post([this, found, generation] {
    if (generation == generation_ && onFound) onFound(found);
  });
}

// Reading the text of a drawing takes much longer than looking at a text that is known. Spaces are not
// compared: in a drawing they are gaps.
bool PageSource::mayContain(int page, const QString& text) const {
  const auto at = static_cast<std::size_t>(page);
  if (at >= texts_->size()) return true;
  const QString whole = withoutSpaces(folded(shown((*texts_)[at])));
  const QStringList words = folded(text).split(u' ', Qt::SkipEmptyParts);
  return std::all_of(words.begin(), words.end(), [&](const QString& word) { return whole.contains(word); });
}

std::vector<PageSource::Hit> PageSource::hitsOn(int number, const Query& query) const {
  std::vector<Hit> hits;
  if (query.inTexts || document_ == nullptr) {
    const QString text = lines((*texts_)[static_cast<std::size_t>(number)]);
    for (const Stretch& each : matches(text, query.text))
      hits.push_back({number, {}, each.from, each.length});
    return hits;
  }
  if (!mayContain(number, query.text)) return hits;
  const std::unique_ptr<Poppler::Page> page = document_->page(number);
  if (page == nullptr) return hits;
  const auto places =
      page->search(folded(query.text), Poppler::Page::IgnoreCase | Poppler::Page::IgnoreDiacritics);
  for (const QRectF& place : places) hits.push_back({number, place, 0, 0});
  return hits;
}

}  // namespace cu::desktop
