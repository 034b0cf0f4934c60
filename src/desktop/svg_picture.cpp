#include "desktop/svg_picture.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>
#include <optional>
#include <vector>

namespace cu::desktop {
namespace {

// What an element inherits from its groups.
struct Ink {
  QString fill = QStringLiteral("#000000");
  QString stroke = QStringLiteral("none");
  double width = 1;
};

double numberOf(const QXmlStreamAttributes& attributes, const char* name) {
  return attributes.value(QLatin1String(name)).toDouble();
}

// The outline of a path's commands; none for a command that is not known.
class PathReader {
 public:
  explicit PathReader(const QString& text) {
    static const QRegularExpression kToken(QStringLiteral("[A-Za-z]|-?\\d*\\.?\\d+"));
    auto found = kToken.globalMatch(text);
    while (found.hasNext()) tokens_ += found.next().captured();
  }

  std::optional<QPainterPath> read() {
    QChar command;
    while (at_ < tokens_.size()) {
      if (tokens_[at_].front().isLetter()) command = tokens_[at_++].front();
      if (!step(command)) return std::nullopt;
      // Further pairs after a move are lines.
      if (command == u'M') command = u'L';
      if (command == u'm') command = u'l';
    }
    return path_;
  }

 private:
  double number() { return at_ < tokens_.size() ? tokens_[at_++].toDouble() : 0; }
  QPointF point(bool relative) {
    const double x = number();
    const double y = number();
    return relative ? path_.currentPosition() + QPointF(x, y) : QPointF(x, y);
  }
  bool step(QChar command) {
    const bool relative = command.isLower();
    const QPointF here = path_.currentPosition();
    switch (command.toUpper().unicode()) {
      case u'M':
        path_.moveTo(point(relative));
        return true;
      case u'L':
        path_.lineTo(point(relative));
        return true;
      case u'H':
        path_.lineTo(number() + (relative ? here.x() : 0), here.y());
        return true;
      case u'V':
        path_.lineTo(here.x(), number() + (relative ? here.y() : 0));
        return true;
      case u'C': {
        const QPointF first = point(relative);
        const QPointF second = point(relative);
        path_.cubicTo(first, second, point(relative));
        return true;
      }
      case u'Z':
        path_.closeSubpath();
        return true;
      default:
        return false;
    }
  }

  QStringList tokens_;
  qsizetype at_ = 0;
  QPainterPath path_;
};

std::optional<QPainterPath> outlineOf(QStringView name, const QXmlStreamAttributes& attributes) {
  QPainterPath path;
  if (name == u"rect") {
    const double radius = numberOf(attributes, "rx");
    path.addRoundedRect(QRectF(numberOf(attributes, "x"), numberOf(attributes, "y"),
                               numberOf(attributes, "width"), numberOf(attributes, "height")),
                        radius, radius);
    return path;
  }
  if (name == u"circle") {
    const double radius = numberOf(attributes, "r");
    path.addEllipse(QPointF(numberOf(attributes, "cx"), numberOf(attributes, "cy")), radius, radius);
    return path;
  }
  if (name == u"path") return PathReader(attributes.value(QLatin1String("d")).toString()).read();
  return std::nullopt;
}

Ink inkOf(const QXmlStreamAttributes& attributes, Ink ink) {
  if (attributes.hasAttribute(QLatin1String("fill"))) ink.fill = attributes.value("fill").toString();
  if (attributes.hasAttribute(QLatin1String("stroke"))) ink.stroke = attributes.value("stroke").toString();
  if (attributes.hasAttribute(QLatin1String("stroke-width")))
    ink.width = numberOf(attributes, "stroke-width");
  return ink;
}

void drawOutline(QPainter& painter, const QPainterPath& path, const Ink& ink) {
  const bool filled = ink.fill != QStringLiteral("none");
  const bool lined = ink.stroke != QStringLiteral("none");
  painter.setBrush(filled ? QBrush(QColor(ink.fill)) : QBrush(Qt::NoBrush));
  painter.setPen(lined ? QPen(QColor(ink.stroke), ink.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                       : QPen(Qt::NoPen));
  painter.drawPath(path);
}

}  // namespace

bool drawSvg(QPainter& painter, const QByteArray& svg, const QSizeF& size) {
  QXmlStreamReader reader(svg);
  std::vector<Ink> inks{Ink()};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  bool known = true;
  while (known && !reader.atEnd()) {
    const auto token = reader.readNext();
    if (token == QXmlStreamReader::EndElement) inks.pop_back();
    if (token != QXmlStreamReader::StartElement) continue;
    inks.push_back(inkOf(reader.attributes(), inks.back()));
    if (reader.name() == u"svg") {
      const QStringList box = reader.attributes().value("viewBox").toString().split(u' ');
      known = box.size() == 4 && box[2].toDouble() > 0 && box[3].toDouble() > 0;
      if (known) painter.scale(size.width() / box[2].toDouble(), size.height() / box[3].toDouble());
    } else if (reader.name() != u"g") {
      const auto outline = outlineOf(reader.name(), reader.attributes());
      known = outline.has_value();
      if (known) drawOutline(painter, *outline, inks.back());
    }
  }
  painter.restore();
  return known && !reader.hasError();
}

}  // namespace cu::desktop
