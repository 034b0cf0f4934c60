#pragma once

#include <string>
#include <string_view>

#include "intake/colonne.h"
#include "intake/mappatura.h"

namespace cu {

// A mapping profile: how the files of another program are read, as a TOML text. docs/importazione.md
// describes its keys.
struct Mappa {
  intake::Elenco elenco = intake::Elenco::Compensi;
  // Of the headings of the files that it is for; "" for one that is only chosen by name.
  std::string impronta;
  intake::Mappatura mappatura;
};

// Raise ErroreProfilo (suite/profilo.h) with the file, the key and what is expected of it.
Mappa analizzaMappa(std::string_view testo, const std::string& file);
Mappa leggiMappa(const std::string& file);

// What a profile is for, whatever else may be wrong with it.
struct ScopoMappa {
  std::string formato;
  std::string impronta;
  std::string azienda;  // of a profile for invoices
};
ScopoMappa scopoMappa(std::string_view testo, const std::string& file);

// The text of a profile, which analizzaMappa reads as the same.
std::string scriviMappa(const Mappa& mappa);

}  // namespace cu
