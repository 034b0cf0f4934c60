#include "desktop/own_colours.h"

#include <QEvent>
#include <QWidget>
#include <utility>

namespace cu::desktop {
namespace {

constexpr const char* kOwnColours = "coloriPropri";

// A colour that a widget has set for itself stays behind when the program's palette changes.
class OwnColours : public QObject {
 public:
  explicit OwnColours(QWidget& widget) : QObject(&widget), widget_(widget) {
    setObjectName(QLatin1String(kOwnColours));
    widget.installEventFilter(this);
  }
  void choose(std::function<void(QPalette&)> chosen) {
    chosen_ = std::move(chosen);
    set();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::PaletteChange && !setting_) set();
    return QObject::eventFilter(watched, event);
  }

 private:
  void set() {
    QPalette palette;
    if (chosen_) chosen_(palette);
    setting_ = true;
    widget_.setPalette(palette);
    setting_ = false;
  }

  QWidget& widget_;
  std::function<void(QPalette&)> chosen_;
  bool setting_ = false;
};

OwnColours& coloursOf(QWidget& widget) {
  auto* const known = widget.findChild<QObject*>(QLatin1String(kOwnColours), Qt::FindDirectChildrenOnly);
  return known == nullptr ? *new OwnColours(widget) : *static_cast<OwnColours*>(known);
}

}  // namespace

void setOwnColours(QWidget& widget, std::function<void(QPalette&)> choose) {
  coloursOf(widget).choose(std::move(choose));
}

}  // namespace cu::desktop
