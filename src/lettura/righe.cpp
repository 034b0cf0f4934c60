#include "lettura/righe.h"

#include <algorithm>
#include <cstring>

namespace cu::lettura {
namespace {

constexpr std::size_t kBlocco = std::size_t{1} << 18U;
static_assert(kBlocco > 4 * kRigaMassima);

}  // namespace

LettoreRighe::LettoreRighe(Sorgente& sorgente) : sorgente_(sorgente), blocco_(kBlocco) {}

bool LettoreRighe::riempi() {
  if (finita_) return false;
  std::memmove(blocco_.data(), blocco_.data() + inizio_, fine_ - inizio_);
  fine_ -= inizio_;
  inizio_ = 0;
  const std::size_t letti = sorgente_.leggi(blocco_.data() + fine_, blocco_.size() - fine_);
  finita_ = letti == 0;
  fine_ += letti;
  letti_ += letti;
  return !finita_;
}

void LettoreRighe::consegna(Riga& riga, std::size_t lunghezza, bool conLf) {
  const char* const testo = blocco_.data() + inizio_;
  inizio_ += lunghezza + (conLf ? 1 : 0);
  const bool conCr = conLf && lunghezza > 0 && testo[lunghezza - 1] == '\r';
  riga.lunghezza = lunghezza - (conCr ? 1 : 0);
  riga.testo = {testo, std::min(riga.lunghezza, kRigaMassima)};
  riga.fine = conCr ? FineRiga::CrLf : conLf ? FineRiga::Lf : FineRiga::Nessuna;
}

// Counts a line that the block does not hold. Its head stays in front of the block while the rest is read.
bool LettoreRighe::saltaLunga(Riga& riga) {
  std::memmove(blocco_.data(), blocco_.data() + inizio_, kRigaMassima);
  std::size_t lunghezza = fine_ - inizio_;
  bool cr = blocco_[fine_ - 1] == '\r';
  inizio_ = fine_ = kRigaMassima;
  for (;;) {
    const std::size_t letti = sorgente_.leggi(blocco_.data() + kRigaMassima, blocco_.size() - kRigaMassima);
    letti_ += letti;
    finita_ = letti == 0;
    fine_ = kRigaMassima + letti;
    const auto* const lf = static_cast<const char*>(std::memchr(blocco_.data() + kRigaMassima, '\n', letti));
    const std::size_t prima =
        lf == nullptr ? letti : static_cast<std::size_t>(lf - blocco_.data()) - kRigaMassima;
    if (prima > 0) cr = blocco_[kRigaMassima + prima - 1] == '\r';
    lunghezza += prima;
    inizio_ = kRigaMassima + prima + (lf == nullptr ? 0 : 1);
    if (lf == nullptr && !finita_) continue;
    const bool conCr = lf != nullptr && cr;
    riga.lunghezza = lunghezza - (conCr ? 1 : 0);
    riga.testo = {blocco_.data(), kRigaMassima};
    riga.fine = conCr ? FineRiga::CrLf : lf != nullptr ? FineRiga::Lf : FineRiga::Nessuna;
    return true;
  }
}

bool LettoreRighe::prossima(Riga& riga) {
  std::size_t cercato = 0;
  for (;;) {
    const char* const testo = blocco_.data() + inizio_;
    const auto* const lf =
        static_cast<const char*>(std::memchr(testo + cercato, '\n', fine_ - inizio_ - cercato));
    if (lf != nullptr) {
      riga.numero = ++numero_;
      consegna(riga, static_cast<std::size_t>(lf - testo), true);
      return true;
    }
    cercato = fine_ - inizio_;
    if (cercato + kRigaMassima >= blocco_.size()) {
      riga.numero = ++numero_;
      return saltaLunga(riga);
    }
    if (riempi()) continue;
    if (inizio_ == fine_) return false;
    riga.numero = ++numero_;
    consegna(riga, fine_ - inizio_, false);
    return true;
  }
}

}  // namespace cu::lettura
