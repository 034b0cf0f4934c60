#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/date.h"
#include "data/database.h"

namespace cu::schede {

struct Luogo {
  std::int32_t id = 0;
  std::string nome;
  std::string catasto;    // cadastral code, such as "L781", or a country's "Z110"
  std::string provincia;  // "VR"; empty for countries and places abroad
  int soppresso = 0;      // the year in which the municipality ceased to exist
};

// Of a name: none, one, or several of which none is preferred.
struct Ricerca {
  std::vector<const Luogo*> trovati;
  const Luogo* uno() const { return trovati.size() == 1 ? trovati.front() : nullptr; }
};

// The municipalities and countries of a database. Names are compared without case, accents and punctuation;
// of a name in two languages ("Bolzano/Bozen") each part counts.
class Luoghi {
 public:
  explicit Luoghi(Connection& connessione);

  // By name or cadastral code. The province may be empty; the day decides between a former municipality and
  // the present one of the same name, and without it only present ones count, unless there is none: then a
  // former one may have ceased to exist before the day.
  Ricerca comune(std::string_view nome, std::string_view provincia, std::optional<Date> giorno) const;
  const Luogo* comuneDiCatasto(std::string_view catasto) const;
  const Luogo* comuneDiId(std::int32_t id) const;
  // A place abroad, written without province and code.
  const Luogo* localitaEstera(std::string_view nome) const;

  // By name, code of three digits or cadastral code.
  Ricerca nazione(std::string_view nome) const;
  const Luogo* nazioneDiCatasto(std::string_view catasto) const;
  const Luogo* nazioneDiId(std::int32_t id) const;
  std::int32_t italia() const { return italia_; }

 private:
  using Indice = std::unordered_map<std::string, std::vector<std::size_t>>;
  void leggiComuni(Connection& connessione);
  void leggiNazioni(Connection& connessione);

  std::vector<Luogo> comuni_;
  std::vector<Luogo> nazioni_;
  Indice comuniPerNome_;
  Indice nazioniPerNome_;
  std::unordered_map<std::string, std::size_t> comuniPerCatasto_;
  std::unordered_map<std::string, std::size_t> nazioniPerCatasto_;
  std::unordered_map<std::int32_t, std::size_t> comuniPerId_;
  std::unordered_map<std::int32_t, std::size_t> nazioniPerId_;
  std::int32_t italia_ = 0;
};

}  // namespace cu::schede
