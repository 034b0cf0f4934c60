#include "riscontro/riga_composta.h"

#include <stdexcept>

#include "base/text.h"

namespace cu::riscontro {

RigaComposta::RigaComposta(std::vector<modello::Tavola> tavole) : RigaComposta(std::move(tavole), {}) {
  testo_.back() = 'A';
}

RigaComposta::RigaComposta(std::vector<modello::Tavola> tavole, std::string testo)
    : tavole_(std::move(tavole)), testo_(std::move(testo)) {
  testo_.resize(modello::kLarghezzaRecord, ' ');
}

const modello::CampoRecord& RigaComposta::campo(std::string_view nome) const {
  for (const modello::Tavola tavola : tavole_) {
    for (const modello::CampoRecord& campo : tavola) {
      if (campo.nome == nome) return campo;
    }
  }
  throw std::logic_error("the record has no such field");
}

void RigaComposta::testo(std::string_view campo, std::string_view valore) {
  const modello::CampoRecord& dove = this->campo(campo);
  std::string pieno(valore.substr(0, static_cast<std::size_t>(dove.lunghezza)));
  pieno.resize(static_cast<std::size_t>(dove.lunghezza), ' ');
  testo_.replace(static_cast<std::size_t>(dove.posizione - 1), pieno.size(), pieno);
}

void RigaComposta::numero(std::string_view campo, std::string_view cifre) {
  const auto largo = static_cast<std::size_t>(this->campo(campo).lunghezza);
  const std::string pieno = std::string(largo, '0') + std::string(cifre);
  testo(campo, std::string_view(pieno).substr(pieno.size() - largo));
}

void RigaComposta::numero(std::string_view campo, std::size_t valore) {
  numero(campo, fromInteger(static_cast<std::int64_t>(valore)));
}

void RigaComposta::cella(std::string_view codice, std::string_view valore) {
  if (usate_ == static_cast<std::size_t>(modello::kCelle)) return;
  const std::size_t posto =
      static_cast<std::size_t>(modello::kPrimaCella - 1) + usate_ * modello::kLarghezzaCella;
  testo_.replace(posto, codice.size(), codice);
  testo_.replace(posto + codice.size(), valore.size(), valore);
  ++usate_;
}

}  // namespace cu::riscontro
