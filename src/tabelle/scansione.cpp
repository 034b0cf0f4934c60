#include "tabelle/scansione.h"

namespace cu::tabelle {

void Scansione::saltaFineRiga() {
  const char c = testo_[dove_++];
  if (c == '\r' && dove_ < testo_.size() && testo_[dove_] == '\n') ++dove_;
  ++riga_;
}

void Scansione::contenutoTraVirgolette(CampoGrezzo& campo) {
  campo.virgolette = true;
  campo.inizio = ++dove_;
  while (dove_ < testo_.size()) {
    const char c = testo_[dove_];
    if (c == '\r' || c == '\n') {
      saltaFineRiga();
    } else if (c != '"') {
      ++dove_;
    } else if (dove_ + 1 < testo_.size() && testo_[dove_ + 1] == '"') {
      campo.doppie = true;
      dove_ += 2;
    } else {
      campo.fine = dove_++;
      return;
    }
  }
  campo.fine = dove_;
  campo.aperto = true;
}

CampoGrezzo Scansione::prossimo() {
  CampoGrezzo campo;
  campo.inizio = dove_;
  if (dove_ < testo_.size() && testo_[dove_] == '"') contenutoTraVirgolette(campo);
  while (dove_ < testo_.size() && testo_[dove_] != separatore_ && testo_[dove_] != '\r' &&
         testo_[dove_] != '\n') {
    ++dove_;
  }
  campo.coda = dove_;
  if (!campo.virgolette) campo.fine = dove_;
  if (dove_ < testo_.size() && testo_[dove_] == separatore_) {
    // A separator at the very end of the text begins one more field, which is empty and therefore of no use.
    ++dove_;
    campo.ultimo = dove_ >= testo_.size();
    return campo;
  }
  campo.ultimo = true;
  if (dove_ < testo_.size()) saltaFineRiga();
  return campo;
}

}  // namespace cu::tabelle
