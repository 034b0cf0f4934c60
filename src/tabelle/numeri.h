#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cu::tabelle {

// What a number format shows.
enum class Formato : unsigned char { Numero, Percentuale, Data, Ora };

// Of a format's code, such as "dd/mm/yyyy" or "[$-410]d mmmm yyyy;@".
Formato formatoDiCodice(std::string_view codice);
// Of the number of a built-in format.
Formato formatoPredefinito(int numero);

// A stored number as decimal text of at most 15 significant digits, multiplied by 10^`potenza`; a whole
// number without exponent keeps all its digits. nullopt for what is no finite number.
std::optional<std::string> testoDiNumero(std::string_view scritto, int potenza = 0);

// ISO text of a day number with a time: "2017-03-05" or "2017-03-05T14:30:00", to the second. In the system
// of 1900 day 60, which never was, and day 0 are no dates. nullopt beyond the range of years 1900 to 9999.
std::optional<std::string> testoDiData(std::string_view scritto, bool dal1904);
// "14:30:00" of a part of a day from 0 to below 1; nullopt for any other number.
std::optional<std::string> testoDiOra(std::string_view scritto);

}  // namespace cu::tabelle
