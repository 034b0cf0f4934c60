#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"

namespace cu {

// The fiscal code of a natural person and the numbers of firms, after D.M. 23 December 1976.

struct DatiAnagrafici {
  std::string_view cognome;  // UTF-8; accents, blanks and apostrophes do not count
  std::string_view nome;
  bool femmina = false;
  Date nascita;
  std::string_view luogo;  // cadastral code of the municipality, or Z and three digits of the foreign country
};

// The letters of a name as the code counts them: capitals without marks, and nothing else.
std::string lettereDiCodice(std::string_view testo);

// 16 characters, upper case.
std::string codiceFiscale(const DatiAnagrafici& dati);

// The 16th character of the first 15.
char carattereDiControllo(std::string_view primi15);

// The 11th digit of the first ten of a firm's VAT number or fiscal code.
char cifraDiControllo(std::string_view prime10);

// What a code is by its shape alone; its last character is not compared.
enum class FormaCodice : std::uint8_t {
  Nessuna,
  Persona,  // 16 characters, upper case; digits may be the letters that replace them in homonymous codes
  Numero,   // 11 digits: a firm, a body, or a person's provisional code
};
FormaCodice formaCodice(std::string_view codice);

// Whether the last character is the one that the others give. Only of a code that has a shape.
bool controlloGiusto(std::string_view codice);

// What the code of a person says of the person.
struct DatiNelCodice {
  bool femmina = false;
  int anno = 0;  // its last two digits
  int mese = 0;
  int giorno = 0;
  std::string luogo;  // cadastral code
};
// Nothing of a code that is no person's.
std::optional<DatiNelCodice> datiNelCodice(std::string_view codice);

// The six letters that a code has of a name.
std::string lettereDelNome(std::string_view cognome, std::string_view nome);

// The day of birth in a code, in the last century in which a person of 14 years can have it.
std::optional<Date> nascitaNelCodice(const DatiNelCodice& dati, Date oggi);

}  // namespace cu
