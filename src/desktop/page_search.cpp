#include "desktop/page_search.h"

#include <algorithm>

#include "desktop/pages.h"

namespace cu::desktop {

PageSearch::PageSearch(Pages& pages) : pages_(pages) {
  pages_.found = [this](const PageSource::Found& found) { receive(found); };
}

PageSearch::~PageSearch() { pages_.found = nullptr; }

void PageSearch::search(const QString& text) {
  text_ = text.simplified();
  hits_.clear();
  at_ = 0;
  searched_ = 0;
  running_ = !text_.isEmpty() && pages_.pages() > 0;
  if (pages_.mark()) pages_.setMark(std::nullopt);
  pages_.search(running_ ? text_ : QString());
  if (changed) changed();
}

void PageSearch::receive(const PageSource::Found& found) {
  searched_ = found.searched;
  running_ = !found.finished;
  if (!found.hits.empty()) {
    const auto before =
        std::upper_bound(hits_.begin(), hits_.end(), found.hits.front().page,
                         [](int page, const PageSource::Hit& hit) { return page < hit.page; });
    const auto index = static_cast<std::size_t>(before - hits_.begin());
    hits_.insert(before, found.hits.begin(), found.hits.end());
    if (at_ == 0) {
      show(index + 1);
    } else if (index < at_) {
      at_ += found.hits.size();
    }
  }
  if (changed) changed();
}

void PageSearch::step(bool back) {
  if (hits_.empty()) return;
  const std::size_t last = hits_.size();
  show(back ? (at_ <= 1 ? last : at_ - 1) : (at_ >= last ? 1 : at_ + 1));
  if (changed) changed();
}

void PageSearch::show(std::size_t at) {
  at_ = at;
  pages_.showHit(hits_[at - 1], QStringLiteral("Trovato: %1").arg(text_));
}

QString PageSearch::words() const {
  if (text_.isEmpty()) return {};
  if (running_) {
    const QString so = hits_.empty()
                           ? QStringLiteral("Si cerca")
                           : QStringLiteral("%L1 di almeno %L2, si cerca").arg(at_).arg(hits_.size());
    return so + QStringLiteral("… %L1 pagine di %L2").arg(searched_).arg(pages_.pages());
  }
  if (hits_.empty()) return QStringLiteral("Nessuna corrispondenza");
  return QStringLiteral("%L1 di %L2").arg(at_).arg(hits_.size());
}

}  // namespace cu::desktop
