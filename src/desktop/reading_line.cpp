#include "desktop/reading_line.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace cu::desktop {
namespace {

// Copies the selected text of a line that has no focus.
class CopyKey : public QObject {
 public:
  explicit CopyKey(QLineEdit& line) : QObject(&line), line_(line) {
    connect(&line, &QLineEdit::selectionChanged, this, [this] { listen(); });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != line_.window()) return false;
    if (event->type() == QEvent::MouseButtonPress && widget != &line_) {
      line_.deselect();
      return false;
    }
    const bool copies =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy);
    if (!copies || hasSelection(QApplication::focusWidget())) return false;
    line_.copy();
    return true;
  }

 private:
  static bool hasSelection(const QWidget* focus) {
    const auto* const line = qobject_cast<const QLineEdit*>(focus);
    return line != nullptr && line->hasSelectedText();
  }
  void listen() {
    qApp->removeEventFilter(this);
    if (line_.focusPolicy() == Qt::NoFocus && line_.hasSelectedText()) qApp->installEventFilter(this);
  }

  QLineEdit& line_;
};

}  // namespace

void showForReading(QLineEdit& line, bool reading) {
  if (reading == (line.focusPolicy() == Qt::NoFocus)) return;
  if (!reading) line.deselect();
  line.setFocusPolicy(reading ? Qt::NoFocus : Qt::StrongFocus);
  constexpr char kKnown[] = "copyKey";
  if (line.property(kKnown).toBool()) return;
  line.setProperty(kKnown, true);
  new CopyKey(line);
}

}  // namespace cu::desktop
