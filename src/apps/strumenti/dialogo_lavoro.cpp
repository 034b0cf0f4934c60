#include "apps/strumenti/dialogo_lavoro.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "apps/strumenti/frase.h"

namespace cu::strumenti {

DialogoLavoro::DialogoLavoro(QWidget* parent, const QString& nome, const QString& titolo, Compito compito)
    : Dialogo(parent, nome, titolo),
      frase_(new Frase(this)),
      attesa_(new Attesa(this, [this] { lavoro_.annulla(); })),
      chiudi_(nuovoPulsante(this, "C&hiudi", [this] { riuscito_ ? accept() : reject(); })),
      lavoro_(nullptr) {
  constexpr int kLarghezza = 520;
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(frase_);
  colonna->addWidget(attesa_);
  colonna->addStretch(1);
  auto* const riga = new QHBoxLayout;
  riga->addStretch(1);
  riga->addWidget(chiudi_);
  colonna->addLayout(riga);
  setMinimumWidth(kLarghezza);
  frase_->hide();
  chiudi_->setObjectName(QStringLiteral("chiudi"));
  chiudi_->hide();
  lavoro_.avanzamento = [this](const char* che, std::uint64_t fatto, std::uint64_t totale) {
    attesa_->avanza(QString::fromUtf8(che), fatto, totale);
  };
  attesa_->comincia(compito.che, true, QStringLiteral("Interrom&pi"));
  if (parent == nullptr) {
    // A place of its own choice stays the same when the size changes.
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
  }
  lavoro_.avvia([this, fai = std::move(compito.fai)] { fatto_ = fai(lavoro_); },
                [this, interrotto = std::move(compito.interrotto)](const Lavoro::Esito& esito) {
                  if (esito.interrotto) {
                    finito(interrotto, false);
                  } else {
                    finito(esito.errore.isEmpty() ? QStringLiteral("✓ ") + fatto_ : esito.errore,
                           esito.errore.isEmpty());
                  }
                });
}

DialogoLavoro::~DialogoLavoro() = default;

QString DialogoLavoro::testo() const { return frase_->text(); }

void DialogoLavoro::reject() {
  if (!lavoro_.inCorso()) return Dialogo::reject();
  attesa_->siInterrompe();
  lavoro_.annulla();
}

void DialogoLavoro::finito(const QString& testo, bool riuscito) {
  riuscito_ = riuscito;
  attesa_->finisci();
  frase_->dici(testo);
  chiudi_->show();
  chiudi_->setFocus();
  adjustSize();
}

}  // namespace cu::strumenti
