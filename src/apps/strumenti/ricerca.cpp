#include "apps/strumenti/ricerca.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>

#include "apps/strumenti/casella_cerca.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/hint.h"
#include "desktop/text.h"

namespace cu::strumenti {

Ricerca::Ricerca(QWidget* parent)
    : QWidget(parent), riga_(new QHBoxLayout(this)), cerca_(new CasellaCerca(this)) {
  riga_->setContentsMargins(0, 0, 0, 0);
  auto* const etichetta = new QLabel(QStringLiteral("C&erca"), this);
  etichetta->setBuddy(cerca_);
  cerca_->setClearButtonEnabled(true);
  desktop::setHint(*cerca_, QStringLiteral("codice fiscale, nome o causale"));
  cerca_->setAccessibleName(QStringLiteral("Cerca fra le certificazioni"));
  riga_->addWidget(etichetta);
  riga_->addWidget(cerca_, 1);
  cerca_->avanti = [this] {
    if (tabella_ != nullptr) tabella_->setFocus(Qt::TabFocusReason);
  };
  connect(cerca_, &QLineEdit::textChanged, this, [this] {
    cercato_ = desktop::folded(cerca_->text().trimmed());
    applica();
  });
  auto* const trova = new QShortcut(QKeySequence::Find, parent->window());
  connect(trova, &QShortcut::activated, this, [this] {
    cerca_->setFocus(Qt::ShortcutFocusReason);
    cerca_->selectAll();
  });
}

void Ricerca::proponi(const QString& testo, const QString& detta) {
  desktop::setHint(*cerca_, testo);
  cerca_->setAccessibleName(detta);
}

void Ricerca::serve(Tabella* tabella) {
  tabella_ = tabella;
  tabella_->setCercata();
}

void Ricerca::metti(QWidget* widget, bool prima) {
  if (prima) {
    riga_->insertWidget(prima_++, widget);
  } else {
    riga_->addWidget(widget);
  }
}

void Ricerca::prepara(std::size_t righe, const std::function<std::string(std::size_t riga)>& testo) {
  testi_.clear();
  testi_.reserve(righe);
  for (std::size_t i = 0; i < righe; ++i) testi_.push_back(desktop::folded(qs(testo(i))));
}

bool Ricerca::passa(std::size_t riga) const {
  return riga < testi_.size() && (cercato_.isEmpty() || testi_[riga].contains(cercato_));
}

void Ricerca::svuota() { cerca_->clear(); }

void Ricerca::applica() {
  if (tabella_ != nullptr) tabella_->riapplicaFiltro();
  if (cambiata) cambiata();
}

}  // namespace cu::strumenti
