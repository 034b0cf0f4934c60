#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "desktop/page_source.h"

namespace cu::desktop {

class Pages;

// A search in pages: the hits of all of them, and the one that is shown. It goes to the first hit, in the
// order of the pages from the present one, as soon as it is known. It must not outlive the pages.
class PageSearch {
 public:
  explicit PageSearch(Pages& pages);
  ~PageSearch();
  PageSearch(const PageSearch&) = delete;
  PageSearch& operator=(const PageSearch&) = delete;

  // An empty text ends the search and removes the mark.
  void search(const QString& text);
  // Searches for the same text again, in other pages.
  void again() { search(text_); }
  const QString& text() const { return text_; }
  // Goes to the following hit or to the one before it, around the ends.
  void step(bool back);

  std::size_t hits() const { return hits_.size(); }
  // From 1; 0 before the first hit.
  std::size_t at() const { return at_; }
  bool running() const { return running_; }
  // "3 di 12", how far the search is, or that there is nothing; empty without a text.
  QString words() const;
  std::function<void()> changed;

 private:
  void receive(const PageSource::Found& found);
  void show(std::size_t at);

  Pages& pages_;
  QString text_;
  std::vector<PageSource::Hit> hits_;  // in the order of the pages
  std::size_t at_ = 0;
  int searched_ = 0;
  bool running_ = false;
};

}  // namespace cu::desktop
