#include "database/inserimento.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace cu {
namespace {

template <class Elenco>
std::string testa(std::string_view tabella, const Elenco& colonne) {
  std::string testo = "INSERT INTO ";
  testo += tabella;
  const char* separatore = " (";
  for (const auto& colonna : colonne) {
    testo += separatore;
    testo += colonna;
    separatore = ", ";
  }
  testo += ") VALUES ";
  return testo;
}

}  // namespace

void appendTesto(std::string& istruzione, std::string_view valore) {
  istruzione += '\'';
  for (char c : valore) {
    if (c == '\'') istruzione += '\'';
    istruzione += c;
  }
  istruzione += '\'';
}

Inserimento::Inserimento(Connection& connessione, std::string_view tabella,
                         std::initializer_list<std::string_view> colonne)
    : connessione_(connessione), testa_(testa(tabella, colonne)), colonne_(colonne.size()) {}

Inserimento::Inserimento(Connection& connessione, std::string_view tabella,
                         const std::vector<std::string>& colonne)
    : connessione_(connessione), testa_(testa(tabella, colonne)), colonne_(colonne.size()) {}

std::string& Inserimento::posto() {
  if (valori_ == colonne_) throw std::logic_error("valore di troppo: " + testa_);
  if (valori_ > 0) {
    istruzione_ += ", ";
  } else {
    if (righe_ == 0) {
      istruzione_ = testa_;
    } else {
      istruzione_ += ", ";
    }
    istruzione_ += '(';
  }
  ++valori_;
  return istruzione_;
}

Inserimento& Inserimento::intero(std::int64_t valore) {
  std::array<char, 24> cifre{};
  const char* fine = std::to_chars(cifre.data(), cifre.data() + cifre.size(), valore).ptr;
  posto().append(cifre.data(), static_cast<std::size_t>(fine - cifre.data()));
  return *this;
}

Inserimento& Inserimento::id(std::int64_t valore) { return valore == 0 ? nullo() : intero(valore); }

Inserimento& Inserimento::testo(std::string_view valore) {
  if (valore.empty()) return nullo();
  appendTesto(posto(), valore);
  return *this;
}

Inserimento& Inserimento::importo(Decimal valore) {
  std::array<char, 32> cifre{};
  std::size_t lunghezza = valore.toFixed(4, '.', cifre.data());
  while (cifre[lunghezza - 1] == '0') --lunghezza;
  if (cifre[lunghezza - 1] == '.') --lunghezza;
  posto().append(cifre.data(), lunghezza);
  return *this;
}

Inserimento& Inserimento::data(Date valore) {
  if (valore == Date()) return nullo();
  appendTesto(posto(), valore.toCompact());
  return *this;
}

Inserimento& Inserimento::nullo() {
  posto() += "NULL";
  return *this;
}

void Inserimento::riga() {
  if (valori_ != colonne_) throw std::logic_error("riga incompleta: " + testa_);
  istruzione_ += ')';
  valori_ = 0;
  ++totale_;
  if (++righe_ == kRighePerIstruzione) chiudi();
}

void Inserimento::chiudi() {
  if (righe_ == 0) return;
  connessione_.Execute(istruzione_);
  righe_ = 0;
}

}  // namespace cu
