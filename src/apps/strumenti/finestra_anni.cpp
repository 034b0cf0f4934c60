#include "apps/strumenti/finestra_anni.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "apps/strumenti/ricerca.h"
#include "desktop/flow_row.h"

namespace cu::strumenti {

FinestraAnni::FinestraAnni(const QString& nome, std::vector<const char*> scritte)
    : Finestra(nome), scritte_(std::move(scritte)) {}

QWidget* FinestraAnni::sopra() {
  ricerca_ = new Ricerca(this);
  auto* const anno = new QLabel(QStringLiteral("&Anno dei compensi"), ricerca_);
  anni_ = new QComboBox(ricerca_);
  anni_->setAccessibleName(QStringLiteral("Anno dei compensi"));
  anni_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  anno->setBuddy(anni_);
  ricerca_->metti(anno, true);
  ricerca_->metti(anni_, true);
  ricerca_->cambiata = [this] { righeScelte(); };
  connect(anni_, &QComboBox::activated, this, [this] { annoScelto(); });
  return ricerca_;
}

QWidget* FinestraAnni::scelte() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new desktop::FlowRow(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  filtri_ = new QButtonGroup(riquadro);
  for (std::size_t i = 0; i < scritte_.size(); ++i) {
    auto* const uno = new QPushButton(riquadro);
    uno->setCheckable(true);
    uno->setAutoDefault(false);
    filtri_->addButton(uno, static_cast<int>(i));
    riga->addWidget(uno);
  }
  filtri_->button(0)->setChecked(true);
  connect(filtri_, &QButtonGroup::idToggled, this, [this](int quale, bool premuto) {
    if (!premuto) return;
    scelta_ = static_cast<std::size_t>(quale);
    scriviScelte();
    ricerca_->applica();
  });
  return riquadro;
}

void FinestraAnni::scriviScelte() {
  for (QAbstractButton* uno : filtri_->buttons()) {
    const auto quale = static_cast<std::size_t>(filtri_->id(uno));
    uno->setText(QStringLiteral("%1%2 (%3)")
                     .arg(uno->isChecked() ? QStringLiteral("✓ ") : QString(),
                          QString::fromUtf8(scritte_.at(quale)), conteggio(quante(quale))));
  }
}

}  // namespace cu::strumenti
