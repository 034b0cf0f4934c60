#pragma once

#include <QMenuBar>
#include <functional>

#include "controls/band.h"
#include "controls/menubar.h"
#include "desktop/view.h"

class QMenu;

namespace cu::desktop {

// The list of the steps at the side of the window; only their numbers where there is little space.
class BandView : public View {
 public:
  BandView(FormWindow& window, SideBand& band, QWidget* parent);
  void setNarrow(bool narrow);

 private:
  void refresh() override;
  SideBand& band_;
};

// The tools in menus, one per band.
class MenuView : public View {
 public:
  MenuView(FormWindow& window, MenuBar& bar, QWidget* parent);
  QMenuBar* bar() const { return widgetBar_; }
  void afterEvent() override;

 private:
  void refresh() override;
  MenuBar& tools_;
  QMenuBar* widgetBar_;
};

// Fills a menu with the tools of a band; `choose` receives the tool chosen.
void fillMenu(QMenu& menu, const MenuBar& bar, const std::string& band,
              const std::function<void(const std::string& key)>& choose);

}  // namespace cu::desktop
