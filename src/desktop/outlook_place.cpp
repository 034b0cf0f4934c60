#include "desktop/outlook_place.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "desktop/first_size.h"
#include "desktop/follow_letters.h"
#include "desktop/form_window.h"
#include "desktop/layouter.h"
#include "desktop/overview.h"
#include "desktop/qt_front_end.h"

namespace cu::desktop {
namespace {

constexpr int kOutlookMargin = 12;
constexpr int kScrollBar = 16;
constexpr int kOutlookWidth = 212;  // in normal letters

// The overview beside the controls of a stage, or below them where both have no room side by side.
class OutlookPlace : public QObject {
 public:
  OutlookPlace(QWidget& page, ContentArea& controls, QScrollArea& beside, QWidget& around)
      : QObject(&page), page_(page), controls_(controls), beside_(beside), around_(around) {
    page.installEventFilter(this);
    followLetters(page, [this] { place(); });
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize) place();
    return QObject::eventFilter(watched, event);
  }
  void show(bool facts) {
    facts_ = facts;
    place();
    around_.setVisible(facts);
    beside_.setVisible(facts && !below_);
  }

 private:
  void place() {
    beside_.setFixedWidth(inLetters(kOutlookWidth));
    const int least = controls_.widget()->layout()->minimumSize().width() + kScrollBar;
    const bool below = page_.width() < least + inLetters(kOutlookWidth);
    if (std::exchange(below_, below) == below) return;
    auto& column = static_cast<QVBoxLayout&>(*controls_.widget()->layout());
    if (below) {
      beside_.takeWidget();
      column.insertWidget(1, &around_);
    } else {
      column.removeWidget(&around_);
      beside_.setWidget(&around_);
    }
    around_.setVisible(facts_);
    beside_.setVisible(facts_ && !below);
  }

  QWidget& page_;
  ContentArea& controls_;
  QScrollArea& beside_;
  QWidget& around_;
  bool below_ = false;
  bool facts_ = true;
};

}  // namespace

void addOutlook(FormWindow& window, QBoxLayout& column, ContentArea* area) {
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(area, 1);
  auto* scroll = new QScrollArea(area->parentWidget());
  auto* panel = new OutlookPanel(nullptr);
  auto* around = new QWidget;
  auto* margins = new QVBoxLayout(around);
  margins->setContentsMargins(0, kOutlookMargin, kOutlookMargin, kOutlookMargin / 2);
  margins->addWidget(panel, 1);
  if (const auto& below = window.frontEnd().belowOutlook) margins->addWidget(below(around));
  scroll->setWidget(around);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  row->addWidget(scroll);
  column.addLayout(row);
  auto* const place = new OutlookPlace(*area->parentWidget(), *area, *scroll, *around);
  window.addRefresher([&window, panel, place] {
    panel->setFacts(window.form().outlook());
    place->show(!panel->isHidden());
  });
}

}  // namespace cu::desktop
