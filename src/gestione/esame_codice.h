#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "schede/luoghi.h"

namespace cu {

// Without blanks, full stops and hyphens, in capitals.
std::string codiceRipulito(std::string_view scritto);

// What is written beside a fiscal code.
struct DatiAccanto {
  std::string_view cognome = {};
  std::string_view nome = {};
  std::string_view sesso = {};  // "M", "F" or ""
  Date nascita = {};            // day 0 for none
  std::int32_t idComuneNascita = 0;
  std::int32_t idNazioneNascita = 0;
};

// What the fiscal code of a person says of the person.
struct DatiDerivati {
  std::string sesso;
  Date nascita;
  std::int32_t idComune = 0;
  std::int32_t idNazione = 0;
};

struct EsameCodice {
  std::string stato;      // one sentence on the code itself; "" for an empty one
  std::string contrasti;  // sentences on what does not agree with it; "" for none
  std::optional<DatiDerivati> derivati;
};

// Also of a code that is still being typed.
EsameCodice esaminaCodice(std::string_view codice, const DatiAccanto& accanto, const schede::Luoghi& luoghi,
                          Date oggi);

// What is wrong with a code of a person or firm once it is complete; "" for nothing, and for none.
std::string difettoCodice(std::string_view codice);
std::string difettoPartitaIva(std::string_view codice);

}  // namespace cu
