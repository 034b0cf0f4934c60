#pragma once

#include <QProxyStyle>

namespace cu::desktop {

// The toolkit's style with edges visible on light and dark backgrounds: marks, boxes, lists.
class ClearStyle : public QProxyStyle {
 public:
  ClearStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
};

}  // namespace cu::desktop
