#include "desktop/view.h"

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
  if (widget_->isEnabledTo(widget_->parentWidget()) != control_->enabled()) {
    widget_->setEnabled(control_->enabled());
  }
  if (widget_->isHidden() == shows()) widget_->setVisible(shows());
  if (captionLabel_ != nullptr) {
    captionLabel_->setText(shown(control_->caption()));
    captionLabel_->setEnabled(control_->enabled());
    captionLabel_->setVisible(control_->visible());
  }
  if (noteLabel_ != nullptr) {
    noteLabel_->setText(shown(control_->note()));
    noteLabel_->setVisible(!control_->note().empty());
  }
  if (!control_->hint().empty()) {
    widget_->setToolTip(sentenceTip(shown(control_->hint())));
    widget_->setAccessibleDescription(shown(control_->hint()));
  }
  refresh();
}

bool View::shows() const { return control_->visible(); }

void View::act(const Event& event) {
  if (!live()) return;
  window_.act(*control_, event);
  if (live()) refreshAll();
}

}  // namespace cu::desktop
