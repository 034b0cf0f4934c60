#include "liste/tabella.h"

#include <stdexcept>
#include <string>

#include "base/text.h"

namespace cu {
namespace {

void dividi(std::string_view linea, std::vector<std::string_view>& campi) {
  for (;;) {
    const std::size_t tab = linea.find('\t');
    campi.push_back(linea.substr(0, tab));
    if (tab == std::string_view::npos) return;
    linea.remove_prefix(tab + 1);
  }
}

}  // namespace

Tabella::Tabella(std::string_view testo) {
  std::size_t numero = 0;
  while (!testo.empty()) {
    const std::size_t fine = testo.find('\n');
    std::string_view linea = testo.substr(0, fine);
    testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
    if (!linea.empty() && linea.back() == '\r') linea.remove_suffix(1);
    ++numero;
    if (colonne_.empty()) {
      dividi(linea, colonne_);
      continue;
    }
    const std::size_t prima = campi_.size();
    dividi(linea, campi_);
    if (campi_.size() - prima != colonne_.size()) {
      throw std::runtime_error("riga " + fromInteger(static_cast<std::int64_t>(numero)) +
                               ": numero di campi diverso dall'intestazione");
    }
  }
}

std::size_t Tabella::colonna(std::string_view nome) const {
  for (std::size_t i = 0; i < colonne_.size(); ++i) {
    if (colonne_[i] == nome) return i;
  }
  throw std::out_of_range("colonna sconosciuta: " + std::string(nome));
}

std::string_view Tabella::campo(std::size_t riga, std::size_t colonna) const {
  return campi_.at(riga * colonne_.size() + colonna);
}

}  // namespace cu
