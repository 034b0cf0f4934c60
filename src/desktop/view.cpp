#include "desktop/view.h"

#include <utility>

#include "desktop/change_mark.h"
#include "desktop/form_window.h"
#include "desktop/text.h"

namespace cu::desktop {

void View::setCaptionLabel(QLabel* label) {
  captionLabel_ = label;
  const QList<QWidget*> takers = focusWidgets();
  if (!takers.isEmpty()) label->setBuddy(takers.first());
  refreshAll();
}

void View::setNoteLabel(QLabel* label) {
  noteLabel_ = label;
  refreshAll();
}

void View::setChangeMark(ChangeMark* mark) {
  changeMark_ = mark;
  refreshAll();
}

void View::setSpokenName(const QString& name) {
  spokenName_ = name;
  const QList<QWidget*> takers = focusWidgets();
  if (takers.isEmpty()) {
    widget_->setAccessibleName(name);
    return;
  }
  for (QWidget* taker : takers) taker->setAccessibleName(name);
}

void View::changed(Control&) {
  if (live()) refreshAll();
}

void View::refreshAll() {
  if (!live()) return;
  const bool on = control_->enabled() || reads();
  if (widget_->isEnabledTo(widget_->parentWidget()) != on) widget_->setEnabled(on);
  if (widget_->isHidden() == shows()) widget_->setVisible(shows());
  if (captionLabel_ != nullptr) {
    captionLabel_->setText(shown(control_->caption()));
    captionLabel_->setEnabled(on);
    captionLabel_->setVisible(control_->visible());
  }
  if (noteLabel_ != nullptr) {
    noteLabel_->setText(lines(control_->note()));
    noteLabel_->setVisible(!control_->note().empty());
  }
  if (!control_->hint().empty()) {
    widget_->setToolTip(sentenceTip(shown(control_->hint())));
    widget_->setAccessibleDescription(shown(control_->hint()));
  }
  refresh();
  refreshMark();
}

void View::refreshMark() {
  if (!live() || changeMark_ == nullptr) return;
  changeMark_->tell(control_->differs ? control_->differs() : std::nullopt);
  describe();
}

// A screen reader reads out with the box what is shown around it.
void View::describe() {
  QStringList parts;
  for (const QString& part : {shown(control_->hint()), changeMark_->description(),
                              noteLabel_ == nullptr ? QString() : lines(control_->note())}) {
    if (!part.isEmpty()) parts += part;
  }
  const QString now = parts.join(QStringLiteral(". "));
  if (std::exchange(described_, now) == now) return;
  for (QWidget* taker : focusWidgets()) taker->setAccessibleDescription(now);
}

bool View::shows() const { return control_->visible(); }

void View::act(const Event& event) {
  if (!live()) return;
  window_.act(*control_, event);
  if (live()) refreshAll();
}

}  // namespace cu::desktop
