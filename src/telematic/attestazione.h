#pragma once

#include <cstdint>
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
  std::string righe = {};  // a SELECT of lines as the work table has them, in its place
};

// What is known of the lines before the file.
struct Attestazione {
  // What the form of their year does not have, as far as it is attested: codes that are missing or not of the
  // year, reasons, exceptional events, boxes, payees who need a box of unknown content, and a year without a
  // form. Each is a row of the log whose code is kNonAttestato.
  std::vector<DatoMancante> rifiutati;
  // Payees whose record can be written, without boxes of unknown content: "Name (fiscal code)", each once.
  std::vector<std::string> conCaselleVuote;
  std::vector<std::int32_t> caselleVuote;  // the numbers of those boxes
};
// Nothing is read for the forms up to 2018.
Attestazione attesta(Connection& connessione, const Conversioni& utilita, const DaAttestare& lavoro);

}  // namespace cu
