#include "desktop/look.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QTranslator>

#include "desktop/clear_style.h"

namespace cu::desktop::look {
namespace {

QPalette lightPalette() {
  QPalette palette(QColor(0xF1, 0xF3, 0xF5));
  palette.setColor(QPalette::Window, QColor(0xF1, 0xF3, 0xF5));
  palette.setColor(QPalette::WindowText, QColor(0x1C, 0x24, 0x2C));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xF3, 0xF7, 0xFA));
  palette.setColor(QPalette::Text, QColor(0x14, 0x1B, 0x22));
  palette.setColor(QPalette::Button, QColor(0xE6, 0xEA, 0xEE));
  palette.setColor(QPalette::ButtonText, QColor(0x1C, 0x24, 0x2C));
  palette.setColor(QPalette::Highlight, QColor(0x1F, 0x6F, 0xB2));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x12, 0x5A, 0x9C));
  palette.setColor(QPalette::PlaceholderText, QColor(0x76, 0x80, 0x8A));
  palette.setColor(QPalette::ToolTipBase, Qt::white);
  palette.setColor(QPalette::ToolTipText, QColor(0x14, 0x1B, 0x22));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x8C, 0x95, 0x9E));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xE7, 0xEA, 0xED));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xC3, 0xCB, 0xD2));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(0x1C, 0x24, 0x2C));
  return palette;
}

QPalette darkPalette() {
  QPalette palette(QColor(0x2A, 0x2E, 0x33));
  palette.setColor(QPalette::Window, QColor(0x24, 0x28, 0x2D));
  palette.setColor(QPalette::WindowText, QColor(0xE4, 0xE8, 0xEC));
  palette.setColor(QPalette::Base, QColor(0x1A, 0x1D, 0x21));
  palette.setColor(QPalette::AlternateBase, QColor(0x20, 0x24, 0x29));
  palette.setColor(QPalette::Text, QColor(0xEA, 0xED, 0xF0));
  palette.setColor(QPalette::Button, QColor(0x36, 0x3B, 0x42));
  palette.setColor(QPalette::ButtonText, QColor(0xE4, 0xE8, 0xEC));
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(0x3D, 0x8F, 0xD6));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x7A, 0xBC, 0xF2));
  palette.setColor(QPalette::PlaceholderText, QColor(0x8A, 0x93, 0x9C));
  palette.setColor(QPalette::ToolTipBase, QColor(0x36, 0x3B, 0x42));
  palette.setColor(QPalette::ToolTipText, QColor(0xE4, 0xE8, 0xEC));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x7C, 0x84, 0x8C));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x2B, 0x2F, 0x34));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x45, 0x4C, 0x54));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(0xE4, 0xE8, 0xEC));
  return palette;
}

// A desktop without a palette of its own has the toolkit's plain grey: the program's palette is easier to
// read.
bool plain(const QPalette& palette) {
  return palette.color(QPalette::Window) == QApplication::style()->standardPalette().color(QPalette::Window);
}

// The icon of data/desktop, drawn here so that no library for its format is required.
QIcon icon() {
  QIcon made;
  for (const int side : {16, 32, 48, 64, 128}) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 64.0, side / 64.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x17, 0x45, 0x6B));
    painter.drawRoundedRect(QRectF(10, 4, 44, 56), 5, 5);
    painter.setBrush(bandInk());
    painter.drawRect(16, 12, 32, 6);
    painter.setBrush(QColor(0x8F, 0xB7, 0xD8));
    for (const int y : {24, 34}) {
      for (const int x : {16, 34}) painter.drawRect(x, y, 14, 5);
    }
    painter.setPen(QPen(bandInk(), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{19, 49}, {25, 55}, {37, 42}}));
    painter.end();
    made.addPixmap(picture);
  }
  return made;
}

void speakItalian(QApplication& application) {
  QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
  auto* texts = new QTranslator(&application);
  if (texts->load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(texts);
  }
}

}  // namespace

void apply(QApplication& application, Colours colours) {
  QApplication::setStyle(new ClearStyle);
  switch (colours) {
    case Colours::Desktop:
      if (plain(QApplication::palette())) QApplication::setPalette(dark() ? darkPalette() : lightPalette());
      break;
    case Colours::Light:
      QApplication::setPalette(lightPalette());
      break;
    case Colours::Dark:
      QApplication::setPalette(darkPalette());
      break;
  }
  speakItalian(application);
  QGuiApplication::setWindowIcon(icon());
}

bool dark() {
  const QPalette palette = QApplication::palette();
  return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

QColor bandColor() { return dark() ? QColor(0x17, 0x2C, 0x3F) : QColor(0x17, 0x45, 0x6B); }
QColor changedInk() { return dark() ? QColor(0xFF, 0xB4, 0x54) : QColor(0xB4, 0x53, 0x09); }
QColor warningInk() { return dark() ? QColor(0xFF, 0x9B, 0x8F) : QColor(0xB3, 0x26, 0x1E); }
QColor bandInk() { return {0xF2, 0xF6, 0xFA}; }

}  // namespace cu::desktop::look
