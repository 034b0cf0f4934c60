#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "lettura/celle_riga.h"
#include "lettura/esame.h"
#include "lettura/segnalatore.h"

namespace cu::lettura {

// What the cells of one certificate say of one another: required cells (K07), cells that exclude others (K08)
// and the rules of the group C.
class Congruenza {
 public:
  explicit Congruenza(const Luoghi* luoghi) : luoghi_(luoghi) {}
  void anno(std::optional<std::int32_t> anno, const modello::Modello& modello) {
    anno_ = anno;
    daScegliere_ = anno && modello::codiceDaScegliere(*anno, modello);
  }

  // The cells of record D; a certificate begins.
  void percipiente(const CelleRiga& celle, Segnalatore& segnala);
  // The cells of one module.
  void modulo(const CelleRiga& celle, bool primo, Segnalatore& segnala);
  // The certificate is whole. `affidabile`: each of its lines could be read.
  void fine(bool affidabile, Segnalatore& segnala) const;

 private:
  struct Somme {
    std::int64_t lordo = 0;
    std::int64_t imponibile = 0;
    std::int64_t nonSoggette = 0;
    std::int64_t rimborsi = 0;
    std::int64_t riga = 0;  // of the base, or of the first amount without one
    Tratto dove;
    std::string codice;
    bool certe = true;  // every amount could be read
  };
  void evento(const CelleRiga& celle, Segnalatore& segnala) const;
  void nascita(const CelleRiga& celle, const Cella& codice, Segnalatore& segnala) const;
  void primoModulo(const CelleRiga& celle, Segnalatore& segnala);
  void causale(const CelleRiga& celle, Segnalatore& segnala);
  void somme(const CelleRiga& celle, bool primo, const Segnalatore& segnala);
  void codici(const CelleRiga& celle, Segnalatore& segnala) const;
  void annoDelReddito(const CelleRiga& celle, Segnalatore& segnala) const;

  const Luoghi* luoghi_;
  std::optional<std::int32_t> anno_;
  bool daScegliere_ = false;  // the form's codes have lists of their own
  std::string causale_;
  Somme somme_;
};

}  // namespace cu::lettura
