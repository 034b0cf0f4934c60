#include "apps/strumenti/attesa.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <utility>

#include "apps/strumenti/conteggi.h"

namespace cu::strumenti {

Attesa::Attesa(QWidget* parent, std::function<void()> interrompi)
    : QWidget(parent),
      che_(new QLabel(this)),
      barra_(new QProgressBar(this)),
      interrompi_(new QPushButton(this)) {
  auto* const riga = new QHBoxLayout(this);
  riga->setContentsMargins(0, 0, 0, 0);
  che_->setTextFormat(Qt::PlainText);
  barra_->setAccessibleName(QStringLiteral("Lavoro in corso"));
  interrompi_->setAutoDefault(true);
  riga->addWidget(che_);
  riga->addWidget(barra_, 1);
  riga->addWidget(interrompi_);
  connect(interrompi_, &QPushButton::clicked, this, [this, interrompi = std::move(interrompi)] {
    siInterrompe();
    interrompi();
  });
  hide();
}

void Attesa::comincia(const QString& che, bool interrompibile, const QString& interrompi) {
  lascia_ = false;
  che_->setText(che);
  barra_->setRange(0, 0);
  barra_->setAccessibleDescription(che);
  interrompi_->setText(interrompi);
  interrompi_->setVisible(interrompibile);
  interrompi_->setEnabled(true);
  show();
}

void Attesa::avanza(const QString& che, std::uint64_t fatto, std::uint64_t totale) {
  constexpr int kMille = 1000;
  barra_->setRange(0, totale == 0 ? 0 : kMille);
  if (totale > 0) barra_->setValue(static_cast<int>(fatto * kMille / totale));
  if (lascia_ || che.isEmpty()) return;
  const QString numero =
      totale == 0 && fatto > 0 ? QStringLiteral(": ") + QString::fromStdString(conPunti(fatto)) : QString();
  che_->setText(che + numero + u'…');
  barra_->setAccessibleDescription(che_->text());
}

void Attesa::siInterrompe() {
  lascia_ = true;
  interrompi_->setEnabled(false);
  che_->setText(QStringLiteral("Si ferma appena finito questo passo…"));
}

}  // namespace cu::strumenti
