#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/result.h"
#include "fornitura/intorno.h"
#include "host/modi.h"
#include "printing/formule.h"
#include "worklist/compensi.h"

// Printing: the accounts, the certificates, and the forms of a telematic file.
namespace cu::fornitura {

// The row of the branch's defaults for an object type; 0 where it is missing or unreadable.
std::int32_t fnFilialePredefinita(const Intorno& intorno, std::int32_t nTipoOggetto);

// Called with the text of each statement that fails, before the next one runs.
using Guasto = std::function<void(const std::string& testo)>;

struct RichiestaStampa {
  stampa::Dati dati;
  std::int32_t tipoOggetto = 0;
  std::int32_t definizione = 0;
  Uscita uscita = Uscita::Anteprima;
  std::string percorso;  // of the file; "" where the suite prompts for a name
  Guasto guasto;
  std::function<void()> interrotta = {};  // called where the user has interrupted the print; may be empty
};

// Rejected where the print would be empty. A failing test is reported and not counted as a rejection; the
// modes without a test pass.
Result<> controllaStampa(const Intorno& intorno, const stampa::Dati& dati, const Guasto& guasto);

// Prints without that test. Failures are reported to the request's `guasto`.
Result<> stampa(const Intorno& intorno, const RichiestaStampa& richiesta);

struct RichiestaModuli {
  RichiestaStampa stampa;  // its path is set for each file
  std::string sCodFisc;
  std::string cartella;
  Comunicazione tipo = Comunicazione::Ordinaria;
  bool intermediari = false;
  std::string dataFirma;    // as shown in the box
  bool cumulativa = false;  // one file for all lines
};
// A line whose form was not printed.
struct ModuloNonStampato {
  std::string percipiente;
  std::string causale;
  std::string codiceFiscale;
};
struct EsitoModuli {
  std::size_t richiesti = 0;  // prints begun and left out
  std::vector<ModuloNonStampato> nonStampati;
  bool interrotta = false;  // the one file for all lines, which was not made
};
// The ministerial forms of the selected lines. Between two prints the user may interrupt the run: the files
// made stay, and the lines from the next one on are returned as not printed. One file for all lines is not
// made when it is interrupted. The value is always present.
Result<EsitoModuli> stampaModuli(const Intorno& intorno, Compensi& compensi,
                                 const RichiestaModuli& richiesta);

// Deletes the user's rows from the table that passes the lines to the forms.
void svuotaRicorsione(const Intorno& intorno);

}  // namespace cu::fornitura
