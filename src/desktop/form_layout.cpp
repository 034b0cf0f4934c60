#include "desktop/form_layout.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/band.h"
#include "controls/grid.h"
#include "controls/menubar.h"
#include "controls/tabs.h"
#include "desktop/first_size.h"
#include "desktop/flow_row.h"
#include "desktop/foot.h"
#include "desktop/grid_surround.h"
#include "desktop/grid_view.h"
#include "desktop/layouter.h"
#include "desktop/outlook_place.h"
#include "desktop/overview.h"
#include "desktop/qt_front_end.h"
#include "desktop/row_steps.h"
#include "desktop/shell_views.h"
#include "desktop/simple_views.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kMargin = 12;
constexpr int kNarrowBelow = 860;  // in normal letters: below it the band shows only numbers

// Passes the window's width to the band.
class BandWidth : public QObject {
 public:
  BandWidth(FormWindow& window, BandView& band) : QObject(&window), window_(window), band_(band) {
    window.installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange)
      band_.setNarrow(window_.width() < inLetters(kNarrowBelow));
    return QObject::eventFilter(watched, event);
  }

 private:
  FormWindow& window_;
  BandView& band_;
};

// The top-level controls of a form, by their place.
struct Parts {
  Control* menu = nullptr;
  Control* band = nullptr;
  std::vector<Frame*> pages;
  std::vector<Control*> content;
  std::vector<Control*> above;   // buttons and links above the pages
  std::vector<Control*> bottom;  // the buttons at the foot
};

Parts partsOf(FormWindow& window) {
  Parts parts;
  const Form& form = window.form();
  const auto controls = Layouter(window).inside(nullptr);
  for (Control* control : controls) {
    auto* const frame = dynamic_cast<Frame*>(control);
    if (dynamic_cast<MenuBar*>(control) != nullptr) {
      parts.menu = control;
    } else if (dynamic_cast<SideBand*>(control) != nullptr) {
      parts.band = control;
    } else if (frame != nullptr && isPage(*frame)) {
      parts.pages.push_back(frame);
    } else {
      parts.content.push_back(control);
    }
  }
  // The buttons that close the form are placed at its foot; where it has pages, the others are placed above
  // them.
  while (!parts.content.empty() && kindOf(*parts.content.back()) == Kind::Button) {
    parts.bottom.insert(parts.bottom.begin(), parts.content.back());
    parts.content.pop_back();
  }
  if (parts.pages.empty() || parts.band != nullptr) return parts;
  const auto closes = [&](const Control* control) {
    return control == form.defaultButton || control == form.cancelButton;
  };
  std::vector<Control*> all = parts.content;
  all.insert(all.end(), parts.bottom.begin(), parts.bottom.end());
  parts.content.clear();
  parts.bottom.clear();
  for (Control* control : all) (closes(control) ? parts.bottom : parts.above).push_back(control);
  return parts;
}

bool hasGrid(const std::vector<Control*>& controls) {
  return std::any_of(controls.begin(), controls.end(),
                     [](Control* control) { return dynamic_cast<Grid*>(control) != nullptr; });
}

// Buttons that take a second line in a narrow window, which would otherwise be wider than a small screen.
FlowRow* addFlow(QBoxLayout& into) {
  constexpr int kGap = 8;
  auto* row = new FlowRow;
  row->setGap(kGap);
  into.addLayout(row, 1);
  return row;
}

// What the page of a stage consists of is scrolled where the screen is too low for it.
QWidget* scrolled(FormWindow& window, QWidget* page) {
  auto* around = new QVBoxLayout(page);
  around->setContentsMargins(0, 0, 0, 0);
  auto* area = new ContentArea(page);
  auto* content = new QWidget;
  area->setWidget(content);
  around->addWidget(area);
  window.addScrollArea(area);
  return content;
}

// A page with a grid: the controls before the grid, the grid with all free space, the controls after it.
void layOutGridPage(FormWindow& window, Frame& page) {
  Layouter layouter(window);
  const bool stage = !window.form().stages().empty();
  QWidget* const whole = window.view(page)->widget();
  QWidget* const into = stage ? scrolled(window, whole) : whole;
  auto* column = new QVBoxLayout(into);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin / 2);
  std::vector<Control*> buttons;
  std::vector<Frame*> frames;
  auto* const buttonRow = new QHBoxLayout;
  for (Control* control : layouter.inside(&page)) {
    if (kindOf(*control) == Kind::Button) {
      buttons.push_back(control);
    } else if (auto* const grid = dynamic_cast<Grid*>(control)) {
      auto& view = static_cast<GridView&>(window.make(*grid, into));
      auto* const around = stage ? new GridSurround(window, view, into) : nullptr;
      if (around != nullptr) around->addAbove(*column);
      if (stage) view.table().mayShrink();
      column->addWidget(view.widget(), 1);
      if (around != nullptr) around->addBelow(*column);
      column->addLayout(buttonRow);
    } else if (auto* const frame = dynamic_cast<Frame*>(control)) {
      frames.push_back(frame);
      window.make(*frame, into);
    } else {
      column->addWidget(window.make(*control, into).widget());
    }
  }
  FlowRow* const flow = addFlow(*buttonRow);
  for (Control* button : buttons) flow->addWidget(window.make(*button, into).widget());
  // The fields of the grid's current row: below it, scrollable.
  for (Frame* frame : frames) {
    layouter.fillFrame(*frame);
    auto* area = new ContentArea(into);
    auto* content = new QWidget;
    auto* inner = new QVBoxLayout(content);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->addWidget(window.view(*frame)->widget());
    inner->addStretch(1);
    area->setWidget(content);
    column->addWidget(area, 3);
    window.addScrollArea(area);
  }
}

void layOutPage(FormWindow& window, Frame& page) {
  Layouter layouter(window);
  const auto controls = layouter.inside(&page);
  if (hasGrid(controls)) {
    layOutGridPage(window, page);
    return;
  }
  QWidget* const into = window.view(page)->widget();
  auto* column = new QVBoxLayout(into);
  column->setContentsMargins(0, 0, 0, 0);
  auto* area = new ContentArea(into);
  auto* content = new QWidget;
  auto* inner = new QVBoxLayout(content);
  inner->setContentsMargins(kMargin, kMargin, kMargin, kMargin / 2);
  auto* rows = new QWidget(content);
  inner->addWidget(rows);
  inner->addStretch(1);
  layouter.fill(rows, controls);
  if (rows->layout() != nullptr) rows->layout()->setContentsMargins(0, 0, 0, 0);
  area->setWidget(content);
  const std::vector<const Frame*> stages = window.form().stages();
  if (stages.empty() || stages.back() != &page) {
    column->addWidget(area);
  } else {
    addOutlook(window, *column, area);
  }
  window.addScrollArea(area);
}

void layOutBottom(FormWindow& window, QBoxLayout& root, const Parts& parts) {
  if (parts.bottom.empty()) return;
  auto* around = new QHBoxLayout;
  around->setContentsMargins(kMargin, kMargin / 2, kMargin, kMargin);
  root.addLayout(around);
  auto* row = addFlow(*around);
  if (RowSteps* const steps = RowSteps::of(window, &window)) row->addWidget(steps);
  row->beginEnd();
  for (Control* control : parts.bottom) row->addWidget(window.make(*control, &window).widget());
}

// The frame of the wizard's buttons: help at the left, forward at the right.
void layOutNavigation(FormWindow& window, QBoxLayout& root, const std::vector<Control*>& content) {
  Layouter layouter(window);
  for (Control* control : content) {
    auto* const frame = dynamic_cast<Frame*>(control);
    if (frame == nullptr) continue;
    QWidget* const bar = window.make(*frame, &window).widget();
    root.addWidget(bar);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(kMargin, kMargin / 2, kMargin, kMargin / 2);
    FlowRow* const flow = addFlow(*row);
    for (Control* button : layouter.inside(frame)) {
      flow->addWidget(window.make(*button, bar).widget());
      if (flow->count() == 1) flow->beginEnd();
    }
  }
}

void layOutWizard(FormWindow& window, QBoxLayout& root, const Parts& parts) {
  auto* middle = new QHBoxLayout;
  middle->setSpacing(0);
  root.addLayout(middle, 1);
  auto& band = static_cast<BandView&>(window.make(*parts.band, &window));
  middle->addWidget(band.widget());
  new BandWidth(window, band);
  auto* right = new QVBoxLayout;
  right->setSpacing(0);
  middle->addLayout(right, 1);
  auto* where = new WhereLine(&window);
  right->addWidget(where);
  window.addRefresher([&window, where] { where->setFacts(window.form().whereabouts()); });
  for (Frame* page : parts.pages) {
    right->addWidget(window.make(*page, &window).widget(), 1);
    layOutPage(window, *page);
  }
  layOutNavigation(window, root, parts.content);
  auto* foot = new Foot(&window, [&window](const QString& path) { window.frontEnd().showMade(path); });
  root.addWidget(foot);
  window.setFoot(foot);
}

void layOutPages(FormWindow& window, QBoxLayout& root, const Parts& parts) {
  auto* above = new QHBoxLayout;
  above->setContentsMargins(kMargin, kMargin / 2, kMargin, 0);
  root.addLayout(above);
  const bool tabs = std::any_of(parts.above.begin(), parts.above.end(),
                                [](Control* control) { return dynamic_cast<Tabs*>(control) != nullptr; });
  if (tabs) {
    Layouter(window).fillRow(*above, parts.above);
    above->addStretch(1);
    // Tabs stand on the line above their page.
    auto* line = new QFrame(&window);
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    root.addWidget(line);
  } else {
    FlowRow* const row = addFlow(*above);
    for (Control* control : parts.above) row->addWidget(window.make(*control, &window).widget());
  }
  for (Frame* page : parts.pages) {
    root.addWidget(window.make(*page, &window).widget(), 1);
    layOutPage(window, *page);
  }
  layOutBottom(window, root, parts);
}

void layOutDialog(FormWindow& window, QBoxLayout& root, const Parts& parts) {
  auto* area = new ContentArea(&window);
  auto* content = new QWidget;
  Layouter layouter(window);
  layouter.fill(content, parts.content);
  if (auto* const grid = content->layout()) grid->setContentsMargins(kMargin, kMargin, kMargin, 0);
  // Wide enough for texts to take few lines; sections with boxes need more.
  const bool sections = std::any_of(parts.content.begin(), parts.content.end(),
                                    [](Control* control) { return kindOf(*control) == Kind::Frame; });
  constexpr int kTextWidth = 460;
  constexpr int kSectionWidth = 560;
  content->setMinimumWidth(sections ? kSectionWidth : kTextWidth);
  area->setWidget(content);
  root.addWidget(area, 1);
  layOutBottom(window, root, parts);
}

}  // namespace

void layOut(FormWindow& window) {
  const Parts parts = partsOf(window);
  auto* root = new QVBoxLayout(&window);
  root->setContentsMargins(0, 0, 0, 0);
  root->setSpacing(0);
  if (parts.menu != nullptr) {
    root->setMenuBar(window.make(*parts.menu, &window).widget());
  }
  if (parts.band != nullptr) {
    layOutWizard(window, *root, parts);
  } else if (!parts.pages.empty()) {
    layOutPages(window, *root, parts);
  } else {
    layOutDialog(window, *root, parts);
  }
  Layouter(window).nameAll();
}

void showShrunk(FormWindow& window) {
  const bool shrunk = window.form().shrunk();
  if (window.property("shrunk").toBool() == shrunk) return;
  window.setProperty("shrunk", shrunk);
  if (!window.isVisible()) return;
  QTimer::singleShot(0, &window,
                     [&window] { fitHeight(window, window.screen()->availableGeometry().height()); });
}

// The height of boxes and wrapping texts is known only in their window; another height requires another
// placement.
void fitHeight(FormWindow& window, int room) {
  constexpr int kTries = 4;
  for (int i = 0; i < kTries; ++i) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    int missing = -window.height();
    for (const auto* area : window.findChildren<ContentArea*>()) {
      if (area->isVisible()) missing = std::max(missing, area->missingHeight());
    }
    const int height = std::min(window.height() + missing, room);
    if (missing == -window.height()) return;
    // The first look may see the heights from before a change of the width.
    if (i > 0 && height == window.height()) return;
    window.resize(window.width(), height);
  }
}

}  // namespace cu::desktop
