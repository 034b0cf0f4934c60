#include "apps/strumenti/frase.h"

#include <QAccessible>
#include <QEvent>

namespace cu::strumenti {

Frase::Frase(QWidget* parent, const QString& testo) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setText(testo);
}

void Frase::dici(const QString& testo) {
  const bool altra = testo != text();
  setText(testo);
  misura();
  setVisible(!testo.isEmpty());
  if (!altra || testo.isEmpty()) return;
  QAccessibleEvent annuncio(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&annuncio);
}

void Frase::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  misura();
}

void Frase::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) misura();
}

// A splitter does not ask for the height at a width: it is the smallest that the sentence may have.
void Frase::misura() {
  if (width() <= 0 || text().isEmpty()) return;
  constexpr int kAltissima = 100000;
  const QRect spazio(0, 0, width(), kAltissima);
  const int alta = fontMetrics().boundingRect(spazio, Qt::TextWordWrap, text()).height() + 2;
  if (alta != minimumHeight()) setMinimumHeight(alta);
}

}  // namespace cu::strumenti
