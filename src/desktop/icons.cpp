#include "desktop/icons.h"

#include <QPainter>
#include <QSvgRenderer>
#include <cmath>
#include <string_view>

#include "desktop/icon_files.h"

namespace cu::desktop {
namespace {

constexpr int kIconSides[] = {16, 20, 24, 32, 40, 48, 64, 96, 128};

std::string_view fileOf(Picture picture) {
  switch (picture) {
    case Picture::Program:
      return "cuwizard.svg";
    case Picture::Information:
      return "informazione.svg";
    case Picture::Warning:
      return "avviso.svg";
    case Picture::Error:
      return "errore.svg";
    case Picture::Question:
      return "domanda.svg";
    case Picture::Modified:
      return "modificata.svg";
    case Picture::NotChosen:
      return "non_scelta.svg";
    case Picture::ProtocolMissing:
      return "senza_protocollo.svg";
    case Picture::Modules:
      return "moduli.svg";
  }
  return {};
}

QByteArray drawingOf(Picture picture) {
  for (const IconFile& file : iconFiles()) {
    if (file.name == fileOf(picture))
      return QByteArray::fromRawData(reinterpret_cast<const char*>(file.bytes),
                                     static_cast<qsizetype>(file.size));
  }
  return {};
}

QPixmap drawn(QSvgRenderer& drawing, int dots) {
  QPixmap pixmap(dots, dots);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  drawing.render(&painter);
  return pixmap;
}

}  // namespace

QPixmap pixmapOf(Picture picture, int side, double ratio) {
  QSvgRenderer drawing(drawingOf(picture));
  QPixmap pixmap = drawn(drawing, static_cast<int>(std::ceil(side * ratio)));
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

QIcon iconOf(Picture picture) {
  QSvgRenderer drawing(drawingOf(picture));
  QIcon icon;
  for (const int side : kIconSides) icon.addPixmap(drawn(drawing, side));
  return icon;
}

}  // namespace cu::desktop
