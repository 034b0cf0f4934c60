#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "intake/mappatura.h"
#include "intake/opzioni_fatture.h"

namespace cu {

// A profile for electronic invoices: what the documents do not say, as a TOML text. docs/importazione.md
// describes its keys.
struct MappaFatture {
  // The fiscal code of the company that it is for; "" for one that is only chosen by name.
  std::string azienda;
  std::string causaleForfettari;                          // of all sellers in the flat-rate scheme
  std::map<std::string, std::string> causali;             // what a document's reason means
  std::map<std::string, std::string> causaliPercipienti;  // by fiscal code, VAT number or code
  bool tralasciaAltrui = false;                           // invoices to other companies are no errors
  intake::Mappatura date;                                 // how the table of dates is read
};

// Raise ErroreProfilo (suite/profilo.h) with the file, the key and what is expected of it.
MappaFatture analizzaMappaFatture(std::string_view testo, const std::string& file);
MappaFatture leggiMappaFatture(const std::string& file);
// The text of a profile, which analizzaMappaFatture reads as the same.
std::string scriviMappaFatture(const MappaFatture& mappa);

// Sets what a profile says; the dates are not its own.
void applicaMappa(const MappaFatture& mappa, intake::OpzioniFatture& opzioni);

struct MappaFattureTrovata {
  std::string file;
  MappaFatture mappa;
};
// The profile of the folder that is for the company, in the order of the names. nullopt without one;
// ErroreProfilo for one that is meant and wrong.
std::optional<MappaFattureTrovata> cercaMappaFatture(const std::string& cartella, const std::string& azienda);
// Writes a profile into the folder, which is created, under a name of its own that it returns; one for the
// same company is replaced.
std::string salvaMappaFatture(const std::string& cartella, const MappaFatture& mappa);

}  // namespace cu
