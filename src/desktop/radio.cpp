#include "desktop/radio.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <utility>

namespace cu::desktop {
namespace {

// The toolkit exposes a button that is not auto-exclusive as a check box.
class RadioAccess : public QAccessibleWidget {
 public:
  explicit RadioAccess(Radio* radio) : QAccessibleWidget(radio, QAccessible::RadioButton) {}
  QAccessible::State state() const override {
    QAccessible::State told = QAccessibleWidget::state();
    told.checkable = true;
    told.checked = radio().isChecked();
    return told;
  }
  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (radio().isEnabled()) names.prepend(toggleAction());
    return names;
  }
  void doAction(const QString& name) override {
    if (name == toggleAction()) {
      radio().click();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  Radio& radio() const { return *static_cast<Radio*>(widget()); }
};

QAccessibleInterface* accessOf(const QString&, QObject* object) {
  auto* const radio = dynamic_cast<Radio*>(object);
  return radio == nullptr ? nullptr : new RadioAccess(radio);
}

}  // namespace

Radio::Radio(std::function<void(int)> step, QWidget* parent) : QRadioButton(parent), step_(std::move(step)) {
  setAutoExclusive(false);
  [[maybe_unused]] static const bool known = (QAccessible::installFactory(accessOf), true);
}

void Radio::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Right:
      step_(1);
      return;
    case Qt::Key_Up:
    case Qt::Key_Left:
      step_(-1);
      return;
    default:
      QRadioButton::keyPressEvent(event);
  }
}

}  // namespace cu::desktop
