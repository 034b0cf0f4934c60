#pragma once

#include <QByteArray>

class QPainter;
class QSizeF;

namespace cu::desktop {

// Draws the program's own pictures without a library for the format: rectangles, circles, paths of straight
// lines and cubic curves, and groups; colours as #rrggbb. Lines have round ends and corners. The picture
// fills the size. Returns false for a picture with anything else, of which a part may then be drawn.
bool drawSvg(QPainter& painter, const QByteArray& svg, const QSizeF& size);

}  // namespace cu::desktop
