#pragma once

#include <QAction>
#include <QWidget>
#include <functional>
#include <optional>

#include "controls/control.h"

namespace cu::desktop {

// Marks a box whose content differs from the value loaded for it: a bar and a corner over the box, the value
// in a tooltip and in the description for screen readers, and the action that enters it again, by the context
// menu and by Ctrl+R.
class ChangeMark : public QWidget {
 public:
  // `cell` contains the box. `enter` runs an entry as an event of the user.
  ChangeMark(QWidget& cell, QWidget& box, std::function<void(const Event&)> enter);

  void tell(std::optional<Control::Loaded> loaded);
  bool marked() const { return loaded_.has_value(); }
  QAction& restore() const { return *restore_; }
  QString description() const;  // empty for a box that is not marked

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void follow();
  void openMenu(const QPoint& at);

  QWidget& cell_;
  QWidget& box_;
  QAction* restore_;
  std::optional<Control::Loaded> loaded_;
};

}  // namespace cu::desktop
