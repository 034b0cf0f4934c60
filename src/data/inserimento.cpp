#include "data/inserimento.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace cu {
void appendTesto(std::string& istruzione, std::string_view valore) {
  istruzione += '\'';
  for (std::size_t apice = 0; (apice = valore.find('\'')) != std::string_view::npos;) {
    istruzione.append(valore.substr(0, apice + 1)) += '\'';
    valore.remove_prefix(apice + 1);
  }
  istruzione.append(valore) += '\'';
}

Inserimento::Inserimento(Connection& connessione, std::string_view tabella,
                         std::initializer_list<std::string_view> colonne)
    : connessione_(connessione) {
  prepara(tabella, colonne);
}

Inserimento::Inserimento(Connection& connessione, std::string_view tabella,
                         const std::vector<std::string>& colonne)
    : connessione_(connessione) {
  prepara(tabella, {colonne.begin(), colonne.end()});
}

void Inserimento::prepara(std::string_view tabella, const std::vector<std::string_view>& colonne) {
  if (colonne.size() > 64) throw std::logic_error("troppe colonne");
  colonne_ = colonne.size();
  testa_ = "INSERT INTO ";
  testa_ += tabella;
  const char* separatore = " (";
  for (std::string_view colonna : colonne) {
    testa_ += separatore;
    testa_ += colonna;
    separatore = ", ";
  }
  testa_ += ") VALUES ";
}

std::string& Inserimento::posto() {
  if (valori_ == colonne_) throw std::logic_error("valore di troppo: " + testa_);
  riga_ += valori_ == 0 ? "(" : ", ";
  ++valori_;
  return riga_;
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
  nulli_ |= std::uint64_t{1} << (valori_ - 1);
  return *this;
}

void Inserimento::riga() {
  if (valori_ != colonne_) throw std::logic_error("riga incompleta: " + testa_);
  Gruppo& gruppo = gruppi_[nulli_];
  gruppo.istruzione += gruppo.righe == 0 ? std::string_view(testa_) : std::string_view(", ");
  gruppo.istruzione += riga_;
  gruppo.istruzione += ')';
  ++gruppo.righe;
  ++totale_;
  riga_.clear();
  valori_ = 0;
  nulli_ = 0;
  if (gruppo.righe == kRighePerIstruzione) manda(gruppo);
}

void Inserimento::chiudi() {
  for (auto& [nulli, gruppo] : gruppi_) {
    if (gruppo.righe > 0) manda(gruppo);
  }
}

void Inserimento::manda(Gruppo& gruppo) {
  connessione_.Execute(gruppo.istruzione);
  gruppo.istruzione.clear();
  gruppo.righe = 0;
}

}  // namespace cu
