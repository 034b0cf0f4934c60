#pragma once

#include <string>
#include <vector>

#include "data/database.h"
#include "host/modi.h"
#include "modello/modello.h"
#include "telematic/controlli.h"

namespace cu {

class Conversioni;

// The lines that are going to be written, and in which form.
struct DaAttestare {
  std::string tabella;  // the work table
  Comunicazione tipo = Comunicazione::Ordinaria;
  const modello::Modello& modello = modello::kModello;
};

// What the selected lines hold that the form of their year does not have, as far as it is attested: codes
// that are missing or not of the year, reasons, boxes, payees who need a box of unknown content, and a year
// without a form. Each is a row of the log whose code is kNonAttestato. Nothing is read for the forms up to
// 2018.
std::vector<DatoMancante> nonAttestati(Connection& connessione, const Conversioni& utilita,
                                       const DaAttestare& lavoro);

}  // namespace cu
