#include "apps/assistente/pagina.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/tabella_vista.h"
#include "base/thousands.h"

namespace cu::assistente {

Pagina::Pagina(QWidget* parent, Assistente& assistente)
    : QWidget(parent), assistente_(assistente), colonna_(new QVBoxLayout(this)) {
  colonna_->setContentsMargins(kIntornoFuoco, kIntornoFuoco, kIntornoFuoco, kIntornoFuoco);
}

QHBoxLayout* rigaDi(QWidget* riquadro) {
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, kIntornoFuoco, kIntornoFuoco, kIntornoFuoco);
  return riga;
}

QPushButton* Pagina::bottone(const char* testo, const std::function<void()>& azione, const char* spiegato) {
  auto* const fatto = strumenti::nuovoPulsante(this, testo, azione);
  fatto->setToolTip(QString::fromUtf8(spiegato));
  return fatto;
}

void PaginaPiano::mostra() {
  auto nuovo = stato().piano();
  if (nuovo == nullptr || nuovo == piano_) return;
  piano_ = std::move(nuovo);
  tabella_->rimostra(prendi());
}

QWidget* PaginaPiano::primo() { return tabella_; }

RiquadroScelta::RiquadroScelta(QWidget* parent, const char* testo, const char* nome)
    : QWidget(parent), voci_(new QComboBox(this)) {
  QHBoxLayout* const riga = rigaDi(this);
  voci_->setAccessibleName(QString::fromUtf8(nome));
  voci_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  riga->addWidget(etichetta(testo, voci_, this));
  riga->addWidget(voci_, 1);
  riga->addWidget(strumenti::nuovoPulsante(this, "Sce&gli", [this] {
    if (scelto && voci_->currentIndex() >= 0) scelto(voci_->currentData().toInt());
  }));
}

void RiquadroScelta::mostra(const std::vector<Voce>& voci, std::optional<int> corrente) {
  voci_->clear();
  for (const auto& [testo, quale] : voci) voci_->addItem(testo, quale);
  if (corrente) voci_->setCurrentIndex(std::max(0, voci_->findData(*corrente)));
  setVisible(!voci.empty());
}

std::vector<RiquadroScelta::Voce> vociDi(const std::vector<intake::Candidato>& candidati, bool ancheNuovo) {
  std::vector<RiquadroScelta::Voce> voci;
  voci.reserve(candidati.size() + 1);
  for (const intake::Candidato& uno : candidati) voci.emplace_back(qs(uno.testo), uno.id);
  if (ancheNuovo && !voci.empty())
    voci.emplace_back(QStringLiteral("nessuno di questi: un percipiente nuovo"), 0);
  return voci;
}

QLabel* etichetta(const char* testo, QWidget* di, QWidget* parent) {
  auto* const fatta = new QLabel(QString::fromUtf8(testo), parent);
  fatta->setBuddy(di);
  return fatta;
}

QString importoDa(Decimal importo) { return qs(groupThousands(importo.toFixed(2, ','))); }

QString importoDaTesto(const std::string& testo) {
  const auto importo = Decimal::parse(testo);
  return testo.empty() || !importo ? qs(testo) : importoDa(*importo);
}

QString giornoDaTesto(const std::string& testo) {
  const auto giorno = Date::parseIso(testo);
  return giorno ? qs(giorno->toItalian()) : qs(testo);
}

QString quante(std::size_t numero, const char* una, const char* piu) {
  return qs(strumenti::alPlurale(numero, una, piu));
}

}  // namespace cu::assistente
