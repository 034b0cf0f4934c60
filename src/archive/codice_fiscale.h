#pragma once

#include <string>
#include <string_view>

#include "base/date.h"

namespace cu {

// The fiscal code of a natural person and the numbers of firms, after D.M. 23 December 1976. Only data that
// this project invents are given one here: the system itself never checks a code.

struct DatiAnagrafici {
  std::string_view cognome;  // UTF-8; accents, blanks and apostrophes do not count
  std::string_view nome;
  bool femmina = false;
  Date nascita;
  std::string_view luogo;  // cadastral code of the municipality, or Z and three digits of the foreign country
};

// 16 characters, upper case.
std::string codiceFiscale(const DatiAnagrafici& dati);

// The 16th character of the first 15.
char carattereDiControllo(std::string_view primi15);

// The 11th digit of the first ten of a firm's VAT number or fiscal code.
char cifraDiControllo(std::string_view prime10);

}  // namespace cu
