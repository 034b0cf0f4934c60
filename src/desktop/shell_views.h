#pragma once

#include <QMenuBar>
#include <functional>

#include "controls/band.h"
#include "controls/menubar.h"
#include "desktop/view.h"

class QMenu;

namespace cu::desktop {

// The list of the steps at the window's side; where there is little room, only their numbers.
class BandView : public View {
 public:
  BandView(FormWindow& window, SideBand& band, QWidget* parent);
  void setNarrow(bool narrow);

 private:
  void refresh() override;
  SideBand& band_;
};

// The tools in menus, one for each band.
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

// The tools of a band as the entries of a menu; what is chosen is given to `choose`.
void fillMenu(QMenu& menu, const MenuBar& bar, const std::string& band,
              const std::function<void(const std::string& key)>& choose);

}  // namespace cu::desktop
