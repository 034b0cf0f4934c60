#pragma once

#include <string>
#include <string_view>

#include "base/date.h"

namespace cu {

// The fiscal code of a natural person and the numbers of firms, as defined by D.M. 23 December 1976. Used
// only for the invented data of this project: the system itself never checks a code.

struct DatiAnagrafici {
  std::string_view cognome;  // UTF-8; accents, blanks and apostrophes are ignored
  std::string_view nome;
  bool femmina = false;
  Date nascita;
  std::string_view luogo;  // cadastral code of the municipality, or Z and three digits of the foreign country
};

// 16 characters, upper case.
std::string codiceFiscale(const DatiAnagrafici& dati);

// The 16th character, computed from the first 15.
char carattereDiControllo(std::string_view primi15);

// The 11th digit of a firm's VAT number or fiscal code, computed from the first ten.
char cifraDiControllo(std::string_view prime10);

}  // namespace cu
