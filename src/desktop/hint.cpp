#include "desktop/hint.h"

#include <QEvent>
#include <QLineEdit>
#include <QStyle>

#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kAroundHint = 8;  // between the frame and the letters, at both ends

// Half a hint says nothing.
class HintFitter : public QObject {
 public:
  explicit HintFitter(QLineEdit& box) : QObject(&box), box_(box) { box.installEventFilter(this); }
  void say(const QString& hint) {
    hint_ = hint;
    fit();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Resize:
      case QEvent::FontChange:
      case QEvent::Polish:
        fit();
        break;
      default:
        break;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void fit() {
    const int frame = box_.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &box_);
    const int room = box_.width() - 2 * frame - kAroundHint;
    const bool fits = box_.fontMetrics().horizontalAdvance(hint_) <= room;
    const QString tip = sentenceTip(hint_);
    const bool own = box_.toolTip().isEmpty() || box_.toolTip() == tip || box_.toolTip() == said_;
    if (own) box_.setToolTip(fits ? QString() : tip);
    said_ = own && !fits ? tip : QString();
    const QString shown = fits ? hint_ : QString();
    if (box_.placeholderText() != shown) box_.setPlaceholderText(shown);
  }

  QLineEdit& box_;
  QString hint_;
  QString said_;  // the tooltip that is this hint
};

}  // namespace

void setHint(QLineEdit& box, const QString& hint) {
  auto* fitter = dynamic_cast<HintFitter*>(box.findChild<QObject*>(QStringLiteral("suggerimento")));
  if (fitter == nullptr) {
    fitter = new HintFitter(box);
    fitter->setObjectName(QStringLiteral("suggerimento"));
  }
  fitter->say(hint);
}

}  // namespace cu::desktop
