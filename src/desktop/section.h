#pragma once

#include <QGroupBox>

namespace cu::desktop {

// A section with its title in a bar, as on the ministerial form.
class Section : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace cu::desktop
