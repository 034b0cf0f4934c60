#include "desktop/access_support.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>

#include "desktop/form_window.h"
#include "desktop/view.h"

namespace cu::test {

std::string nameless(const desktop::FormWindow& window) {
  std::string all;
  for (Control* control : window.form().controls()) {
    const desktop::View* const view = window.view(*control);
    if (view == nullptr) continue;
    for (QWidget* widget : view->focusWidgets()) {
      QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(widget);
      if (told == nullptr || told->role() == QAccessible::NoRole || told->text(QAccessible::Name).isEmpty()) {
        all += control->name() + "\n";
      }
    }
  }
  return all;
}

std::string cutTexts(const QWidget& window) {
  std::string all;
  const auto tell = [&](const QWidget& widget, const QString& text) {
    all += widget.objectName().toStdString() + ": " + text.toStdString() + "\n";
  };
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || label->text().isEmpty()) continue;
    const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    const bool narrow = !label->wordWrap() && label->width() < label->sizeHint().width();
    if (label->height() < needed || narrow) tell(*label, label->text());
  }
  for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->text().isEmpty()) continue;
    if (button->width() < button->minimumSizeHint().width() - 1) tell(*button, button->text());
  }
  return all;
}

}  // namespace cu::test
