#include "desktop/look.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QTranslator>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "desktop/clear_style.h"
#include "desktop/icons.h"

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
  palette.setColor(QPalette::PlaceholderText, QColor(0x5F, 0x69, 0x73));
  palette.setColor(QPalette::ToolTipBase, Qt::white);
  palette.setColor(QPalette::ToolTipText, QColor(0x14, 0x1B, 0x22));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x5A, 0x63, 0x6C));
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
  palette.setColor(QPalette::Highlight, QColor(0x2A, 0x74, 0xB8));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x7A, 0xBC, 0xF2));
  palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0xA3, 0xAC));
  palette.setColor(QPalette::ToolTipBase, QColor(0x36, 0x3B, 0x42));
  palette.setColor(QPalette::ToolTipText, QColor(0xE4, 0xE8, 0xEC));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0xA3, 0xAB, 0xB3));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x2B, 0x2F, 0x34));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x45, 0x4C, 0x54));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(0xE4, 0xE8, 0xEC));
  return palette;
}

bool plain(const QPalette& palette) {
  return palette.color(QPalette::Window) == QApplication::style()->standardPalette().color(QPalette::Window);
}

// As found before the program's own choice.
QFont& desktopFont() {
  static QFont font;
  return font;
}
bool& plainDesktop() {
  static bool plain = true;
  return plain;
}
Colours& chosenColours() {
  static Colours chosen = Colours::Desktop;
  return chosen;
}
int& chosenLetters() {
  static int percent = kNormalLetters;
  return percent;
}

constexpr const char* kColoursKey = "aspetto/colori";
constexpr const char* kLettersKey = "aspetto/caratteri";

class LinkInk : public QObject {
 public:
  explicit LinkInk(QWidget& widget) : QObject(&widget), widget_(widget) {
    widget.installEventFilter(this);
    set();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::PaletteChange) set();
    return QObject::eventFilter(watched, event);
  }

 private:
  void set() {
    const QColor link = QApplication::palette().color(QPalette::Link);
    QPalette palette = widget_.palette();
    if (palette.color(QPalette::ButtonText) == link) return;
    palette.setColor(QPalette::ButtonText, link);
    widget_.setPalette(palette);
  }
  QWidget& widget_;
};

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
  desktopFont() = QApplication::font();
  // A desktop without a palette of its own has the toolkit's plain grey: the program's palette is easier to
  // read.
  plainDesktop() = plain(QApplication::palette());
  setColours(colours);
  speakItalian(application);
  QGuiApplication::setWindowIcon(iconOf(Picture::Program));
}

void setColours(Colours colours) {
  chosenColours() = colours;
  switch (colours) {
    case Colours::Desktop:
      QApplication::setPalette(QPalette());
      if (plainDesktop()) QApplication::setPalette(dark() ? darkPalette() : lightPalette());
      break;
    case Colours::Light:
      QApplication::setPalette(lightPalette());
      break;
    case Colours::Dark:
      QApplication::setPalette(darkPalette());
      break;
  }
}

Colours colours() { return chosenColours(); }

void setLetters(int percent) {
  chosenLetters() = std::clamp(percent, kSmallestLetters, kLargestLetters);
  QFont font = desktopFont();
  const double scale = chosenLetters() / 100.0;
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * scale)));
  }
  QApplication::setFont(font);
}

int letters() { return chosenLetters(); }

void remember() {
  QSettings memory;
  memory.setValue(kColoursKey, static_cast<int>(colours()));
  memory.setValue(kLettersKey, letters());
}

Colours rememberedColours() {
  const int stored = QSettings().value(kColoursKey, 0).toInt();
  return stored == static_cast<int>(Colours::Light)  ? Colours::Light
         : stored == static_cast<int>(Colours::Dark) ? Colours::Dark
                                                     : Colours::Desktop;
}

int rememberedLetters() { return QSettings().value(kLettersKey, kNormalLetters).toInt(); }

// A colour that a widget has set for itself stays behind when the application's palette changes.
void inkAsLink(QWidget& widget) { new LinkInk(widget); }

bool dark() {
  const QPalette palette = QApplication::palette();
  return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

QColor bandColor() { return dark() ? QColor(0x17, 0x2C, 0x3F) : QColor(0x17, 0x45, 0x6B); }
QColor changedInk() { return dark() ? QColor(0xFF, 0xB4, 0x54) : QColor(0xB4, 0x53, 0x09); }
QColor warningInk() { return dark() ? QColor(0xFF, 0x9B, 0x8F) : QColor(0xB3, 0x26, 0x1E); }
QColor bandInk() { return {0xF2, 0xF6, 0xFA}; }

}  // namespace cu::desktop::look
