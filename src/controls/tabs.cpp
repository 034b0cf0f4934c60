#include "controls/tabs.h"

namespace cu {

void Tabs::add(const std::string& caption, Frame& page) {
  tabs_.push_back({caption, &page, true});
  page.setVisible(tabs_.size() == 1);
  if (selected_ == 0) selected_ = 1;
  notify();
}

bool Tabs::selectable(int tab) const {
  return tab >= 1 && tab <= static_cast<int>(tabs_.size()) &&
         tabs_[static_cast<std::size_t>(tab - 1)].visible;
}

void Tabs::select(int tab) {
  if (tab == selected_ || !selectable(tab)) return;
  selected_ = tab;
  for (int each = 1; const Tab& page : tabs_) page.page->setVisible(each++ == selected_);
  notify();
}

void Tabs::setTabVisible(int tab, bool visible) {
  if (tab < 1 || tab > static_cast<int>(tabs_.size())) return;
  Tab& changed = tabs_[static_cast<std::size_t>(tab - 1)];
  if (changed.visible == visible) return;
  changed.visible = visible;
  if (!visible && tab == selected_) {
    int first = 1;
    while (first <= static_cast<int>(tabs_.size()) && !selectable(first)) ++first;
    select(first);
  }
  notify();
}

int Tabs::indexOf(std::string_view caption) const {
  for (std::size_t at = 0; at < tabs_.size(); ++at) {
    if (tabs_[at].caption == caption) return static_cast<int>(at) + 1;
  }
  return 0;
}

}  // namespace cu
