#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/conversioni.h"
#include "modello/modello.h"
#include "riscontro/registro.h"

// Where the years of many companies are, in numbers: the board of an office.
namespace cu::riscontro {

// A year of a company. Numbers of certificates, but for the missing data.
struct RigaTabellone {
  std::int32_t idAzienda = 0;
  std::int32_t anno = 0;
  std::size_t conti = 0;       // that the accounts give
  std::size_t mancanti = 0;    // data without which no file is made
  std::size_t scritte = 0;     // of the accounts: in a file, sent or not
  std::size_t inviate = 0;     // of these: sent as they were last written, answered or not
  std::size_t accettate = 0;   // of these
  std::size_t scartate = 0;    // of these, and not written anew
  std::size_t correzioni = 0;  // replacements and annulments that are to be made
  // Never accepted and not waiting for an answer, by reason.
  std::map<std::string, std::size_t> daInviare;

  std::size_t nuove() const;
};

struct AnnoAzienda {
  std::int32_t idAzienda = 0;
  std::int32_t anno = 0;
};
// Years with accounts or with files on record, of one company (0 for all), the newest first.
std::vector<AnnoAzienda> anniTabellone(Registro& registro, std::int32_t idAzienda);

// Without the tables of the record nothing was ever written. `letti` is called after each account, and may
// raise. `modello` is the form in which a file would be written now: what it does not have is missing too.
// Errors of the database rise as they are.
RigaTabellone rigaTabellone(Registro& registro, const AnnoAzienda& anno, const Conversioni& utilita,
                            const std::function<void()>& letti = {},
                            const modello::Modello& modello = modello::kModello);

}  // namespace cu::riscontro
