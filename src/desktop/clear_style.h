#pragma once

#include <QProxyStyle>

class QStyleOptionButton;

namespace cu::desktop {

// The property of a button that can be pressed while a work is running.
inline constexpr const char* kUsableWhileBusy = "usableWhileBusy";
// While the program is busy, buttons are drawn as disabled: they do nothing until it has finished. They are
// not disabled, which would move the focus.
void showBusy(bool busy);

// The toolkit's style with edges visible on light and dark backgrounds: marks, boxes, lists.
class ClearStyle : public QProxyStyle {
 public:
  ClearStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap wanted, const QStyleOption* option, const QWidget* widget) const override;
  QPixmap standardPixmap(StandardPixmap wanted, const QStyleOption* option,
                         const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;

 private:
  void drawMenuBevel(const QStyleOptionButton& button, QPainter* painter, const QWidget* widget) const;
};

}  // namespace cu::desktop
