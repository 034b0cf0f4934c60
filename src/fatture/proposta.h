#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "fatture/basi.h"
#include "fatture/compensi.h"
#include "fatture/fattura.h"

namespace cu::fatture {

// Makes the payments of one document from the bases that were found.
class Proposta {
 public:
  explicit Proposta(const Fattura& fattura);

  // The sums that are paid beside a fee: expenses, stamps, what is outside of VAT. `dubbi` says
  // what of them a person has to decide on.
  struct Restanti {
    Decimal somme;    // with the sign of the fee
    Decimal incerte;  // lines with VAT of which nothing is said
    std::string dubbi;
    std::vector<std::size_t> rivalse;  // INPS surcharges that no base comprises
  };
  // Besides the lines and the funds of some bases.
  Restanti restanti(const std::vector<std::size_t>& prese, const std::vector<std::size_t>& casse,
                    bool negativo) const;
  Restanti restanti(const Base& base) const {
    return restanti(base.linee, base.casse, base.importo < Decimal());
  }

  // The payment for a tax that a base explains.
  CompensoProposto trovata(const Ritenuta& ritenuta, const Base& base, const Riscontro& riscontro,
                           const Restanti& restanti) const;
  // The one for a tax that none explains, with the likeliest bases.
  CompensoProposto nonTrovata(const Ritenuta& ritenuta, const std::vector<Base>& basi) const;
  // That of a payee in the flat-rate scheme.
  CompensoProposto forfettaria(const std::string& causale, Decimal& spese) const;

  bool notaDiCredito() const { return fattura_.tipo == "TD04"; }
  bool estero() const;
  bool regimeForfettario() const {
    return fattura_.cedente.regime == "RF19" || fattura_.cedente.regime == "RF02";
  }
  Rilievo rilievo(const char* codice, std::string testo, std::size_t riga = 0) const;

 private:
  bool negativo(const Base& base) const { return notaDiCredito() || base.importo < Decimal(); }
  ImportiFattura importi(const Ritenuta& ritenuta, const Base& base, int imponibile, Decimal somme) const;
  void avverti(CompensoProposto& compenso, const Ritenuta& ritenuta, const Base& base) const;
  void dubbiSullaRivalsa(CompensoProposto& compenso, const Ritenuta& ritenuta, const Base& base,
                         const Riscontro& riscontro, const Restanti& restanti) const;
  void dubbiSulloSconto(CompensoProposto& compenso, const Ritenuta& ritenuta, const Base& base,
                        const Riscontro& riscontro, const Restanti& restanti) const;
  void menoContributo(CompensoProposto& compenso, const Ritenuta& ritenuta,
                      const std::vector<Base>& basi) const;

  const Fattura& fattura_;
};

}  // namespace cu::fatture
