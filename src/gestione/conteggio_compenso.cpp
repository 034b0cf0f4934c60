#include "gestione/conteggio_compenso.h"

#include "schede/importi.h"

namespace cu {
namespace {

using schede::euro;
using schede::percento;

static_assert(static_cast<std::size_t>(Cifra::ContributoPercipiente) + 1 == schede::kImporti);

}  // namespace

void ConteggioCompenso::setRegola(const std::optional<schede::RegolaCausale>& regola) {
  regola_ = regola;
  calcola();
}

void ConteggioCompenso::carica(const schede::Importi& importi) {
  aMano_ = {};
  for (std::size_t i = 0; i < schede::kImporti; ++i) {
    valori_[i] = importi[i];
    aMano_[i] = true;
  }
  for (const Cifra cifra : {Cifra::QuotaNonSoggetta, Cifra::RitenutaAcconto, Cifra::RitenutaImposta}) {
    const Decimal scritto = valore(cifra);
    aMano_[posto(cifra)] = false;
    calcola();
    if (valore(cifra) == scritto) continue;
    di(cifra) = scritto;
    aMano_[posto(cifra)] = true;
  }
  calcola();
}

void ConteggioCompenso::scrivi(Cifra cifra, Decimal valore) {
  di(cifra) = valore;
  aMano_[posto(cifra)] = true;
  if (cifra == Cifra::Imponibile) aMano_[posto(Cifra::QuotaNonSoggetta)] = false;
  if (cifra == Cifra::QuotaNonSoggetta) aMano_[posto(Cifra::Imponibile)] = false;
  calcola();
}

void ConteggioCompenso::libera(Cifra cifra) {
  di(cifra) = Decimal();
  aMano_[posto(cifra)] = false;
  calcola();
}

void ConteggioCompenso::proponi(Cifra cifra, Decimal valore) {
  if (!aMano(cifra)) di(cifra) = valore;
}

void ConteggioCompenso::calcola() {
  const Decimal onorario = valore(Cifra::Onorario);
  if (aMano(Cifra::Imponibile)) {
    di(Cifra::QuotaNonSoggetta) = onorario - valore(Cifra::Imponibile);
  } else {
    const int parte = regola_ ? regola_->imponibile : 100;
    proponi(Cifra::QuotaNonSoggetta, onorario - percento(onorario, parte));
    di(Cifra::Imponibile) = onorario - valore(Cifra::QuotaNonSoggetta);
  }
  const Decimal ritenuta = regola_ ? percento(valore(Cifra::Imponibile), regola_->aliquota) : Decimal();
  const bool imposta = regola_ && regola_->imposta;
  proponi(Cifra::RitenutaAcconto, imposta ? Decimal() : ritenuta);
  proponi(Cifra::RitenutaImposta, imposta ? ritenuta : Decimal());
  proponi(Cifra::Lordo, lordo());
  proponi(Cifra::Netto, netto());
}

Decimal ConteggioCompenso::lordo() const {
  return valore(Cifra::Onorario) + valore(Cifra::SommeNonSoggette) + valore(Cifra::RegimeConvenzionale);
}

Decimal ConteggioCompenso::netto() const {
  return lordo() - valore(Cifra::RitenutaAcconto) - valore(Cifra::RitenutaImposta) -
         valore(Cifra::ContributoPercipiente);
}

schede::Importi ConteggioCompenso::importi() const {
  schede::Importi importi;
  for (std::size_t i = 0; i < schede::kImporti; ++i) importi[i] = valori_[i];
  return importi;
}

std::vector<AvvisoCompenso> ConteggioCompenso::avvisi() const {
  std::vector<AvvisoCompenso> avvisi = avvisiCompenso(importi(), regola_);
  const auto confronta = [&](Cifra cifra, const char* nome, Decimal risulta) {
    if (!aMano(cifra) || valore(cifra) == risulta) return;
    avvisi.push_back({std::string(nome) + " scritto è " + euro(valore(cifra)) +
                          ", dalle altre cifre risulta " + euro(risulta) + ".",
                      false});
  };
  confronta(Cifra::Lordo, "Il lordo", lordo());
  confronta(Cifra::Netto, "Il netto", netto());
  return avvisi;
}

}  // namespace cu
