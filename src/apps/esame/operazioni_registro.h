#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/esame/dopo_scrittura.h"
#include "base/date.h"
#include "base/result.h"
#include "controls/frontend.h"
#include "riscontro/correzione.h"
#include "riscontro/registro.h"
#include "suite/profilo.h"

// What the commands and the windows do with the record of what was filed.
namespace cu {

// Adds the missing tables to a database; returns how many.
std::size_t aggiungiTabelle(const Profilo::Database& database);

// Adds the reasons and codes of the forms from 2019 on to the lists of a database of this program; returns
// how many. Refused for any other database, whose lists are not this program's.
Result<std::size_t> aggiungiCodici(const Profilo::Database& database);

struct EsitoInvio {
  bool riuscito = false;
  std::string testo;                      // Italian, a sentence
  std::optional<riscontro::Invio> invio;  // the file on record, as it was before
  bool cambiato = false;                  // whether anything is written
};
// Marks a written file as sent; today where there is no day. The day of a file that is marked already is
// corrected where one is given. `conferma` is asked where the day cannot well be true, or is corrected.
// FileIlleggibile, SenzaRegistro and errors of the database rise as they are.
EsitoInvio segnaInviato(const Profilo& profilo, const std::string& file, std::optional<Date> giorno,
                        const std::function<bool(const std::string& avviso)>& conferma);

// Takes a written file that will never be sent out of the record, as if it had not been written; the file
// itself stays. Only as long as none of its certificates was sent; `conferma` is asked before. Raises as
// segnaInviato does.
EsitoInvio togliDalRegistro(const Profilo& profilo, const std::string& file,
                            const std::function<bool(const std::string& avviso)>& conferma);

struct RichiestaCorreggi {
  std::int32_t anno = 0;
  std::string cartella;
  std::optional<Date> firma;                                // today without it
  std::function<bool(const std::string& avviso)> prosegue;  // a warning, with the user's answer
  // What is done and how far it is, without a total where that is not known.
  std::function<void(const char* che, std::size_t fatto, std::size_t totale)> avanzamento = {};
  std::function<bool()> continua = {};  // asked between two steps; false leaves the rest undone
};
struct FileScritto {
  riscontro::FileCorretto file;
  DopoScrittura dopo;
};
struct EsitoCorreggi {
  bool riuscito = false;
  bool interrotto = false;
  std::vector<FileScritto> file;
  std::vector<LogTable> registri;     // missing data
  std::vector<std::string> messaggi;  // refusals, and errors of the work
};
// Writes the supplies that the state of a year asks for, each of which is checked and kept on record. Never
// raises, but for a profile that cannot be used.
EsitoCorreggi correggi(const Profilo& profilo, const RichiestaCorreggi& richiesta);

// "Certificazioni nuove", "Sostituzioni", "Annullamenti".
const char* dettaFornitura(Comunicazione tipo);

}  // namespace cu
