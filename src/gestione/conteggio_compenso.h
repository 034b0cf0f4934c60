#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "gestione/avvisi_compenso.h"
#include "schede/schede.h"

namespace cu {

// The figures of a payment that the form shows: those that are stored, and three that follow from them.
enum class Cifra : std::uint8_t {
  Onorario,
  QuotaNonSoggetta,
  SommeNonSoggette,
  RegimeConvenzionale,
  RitenutaAcconto,
  RitenutaImposta,
  ContributoPrevidenziale,
  ContributoPercipiente,
  Imponibile,
  Lordo,
  Netto,
};
inline constexpr std::size_t kCifre = 11;

// Computes a payment while it is typed. A figure that follows from others is computed until the user writes
// it; from then on it stays as written, until it is emptied. Base and share without tax are two sides of one
// figure: the one written last decides the other. Gross and net are not stored: one that was written is only
// compared.
class ConteggioCompenso {
 public:
  void setRegola(const std::optional<schede::RegolaCausale>& regola);
  const std::optional<schede::RegolaCausale>& regola() const { return regola_; }
  // A payment as it is stored: what agrees with the usual figures goes on following them.
  void carica(const schede::Importi& importi);

  void scrivi(Cifra cifra, Decimal valore);
  void libera(Cifra cifra);  // the user has emptied it
  bool aMano(Cifra cifra) const { return aMano_[posto(cifra)]; }
  Decimal valore(Cifra cifra) const { return valori_[posto(cifra)]; }

  schede::Importi importi() const;
  // What is unusual, also of gross and net.
  std::vector<AvvisoCompenso> avvisi() const;

 private:
  static constexpr std::size_t posto(Cifra cifra) { return static_cast<std::size_t>(cifra); }
  Decimal& di(Cifra cifra) { return valori_[posto(cifra)]; }
  void proponi(Cifra cifra, Decimal valore);
  void calcola();
  Decimal lordo() const;
  Decimal netto() const;

  std::optional<schede::RegolaCausale> regola_;
  std::array<Decimal, kCifre> valori_{};
  std::array<bool, kCifre> aMano_{};
};

}  // namespace cu
