#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/windows1252.h"
#include "lettura/rilievi.h"
#include "modello/campo.h"

namespace cu::lettura {

// A stretch of a line, from 1.
struct Tratto {
  int posizione = 1;
  int lunghezza = 0;
};

// Reports findings of one line. A stretch whose bytes are no characters has its finding (L03) and no other.
class Segnalatore {
 public:
  explicit Segnalatore(Rilievi& rilievi) : rilievi_(rilievi) {}

  // From here on findings are of this line; `muto` passes over those of its fields and cells.
  void riga(std::int64_t numero, char record, bool muto) {
    riga_ = numero;
    record_ = record;
    muta_ = muto;
    guasti_.clear();
  }
  std::int64_t numero() const { return riga_; }
  char record() const { return record_; }
  bool muta() const { return muta_; }
  bool integra() const { return guasti_.empty(); }
  void guasto(Tratto tratto) { guasti_.push_back(tratto); }
  bool leggibile(Tratto tratto) const {
    return std::none_of(guasti_.begin(), guasti_.end(), [tratto](const Tratto& g) {
      return g.posizione < tratto.posizione + tratto.lunghezza &&
             tratto.posizione < g.posizione + g.lunghezza;
    });
  }

  // Of a field or a cell of the line.
  template <class Testo>
  void campo(Regola regola, Tratto tratto, std::string_view nome, const Testo& testo) {
    if (muta_ || !leggibile(tratto)) return;
    metti(regola, riga_, tratto, record_, nome, testo);
  }
  // Of a field or a cell of any line.
  template <class Testo>
  void campoDi(std::int64_t riga, char record, Regola regola, Tratto tratto, std::string_view nome,
               const Testo& testo) {
    metti(regola, riga, tratto, record, nome, testo);
  }
  // Of a line, or of the file.
  template <class Testo>
  void intera(Regola regola, std::int64_t riga, Tratto tratto, const Testo& testo) {
    metti(regola, riga, tratto, '\0', {}, testo);
  }

 private:
  template <class Testo>
  void metti(Regola regola, std::int64_t riga, Tratto tratto, char record, std::string_view nome,
             const Testo& testo) {
    if (!rilievi_.conserva(regola)) {
      rilievi_.conta(regola);
      return;
    }
    // The code of a cell comes from the file; the names of fields are the layout's: those of
    // eight characters are ASCII.
    std::string campo = nome.size() == modello::kLunghezzaCodice ? da1252(nome) : std::string(nome);
    rilievi_.aggiungi({riga, tratto.posizione, tratto.lunghezza, record, std::move(campo), regola, testo()});
  }

  Rilievi& rilievi_;
  std::int64_t riga_ = 0;
  char record_ = '\0';
  bool muta_ = false;
  std::vector<Tratto> guasti_;
};

// A value as a message quotes it: UTF-8, in quotation marks.
inline std::string citato(std::string_view testo1252) { return "\"" + da1252(testo1252) + "\""; }

}  // namespace cu::lettura
