#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/result.h"
#include "fornitura/intorno.h"
#include "host/modi.h"
#include "printing/formule.h"
#include "worklist/compensi.h"

// Printing: the accounts, the certificates, and the forms behind a telematic file.
namespace cu::fornitura {

// The row of the branch's defaults for an object type; 0 where it has none or it cannot be read.
std::int32_t fnFilialePredefinita(const Intorno& intorno, std::int32_t nTipoOggetto);

// Called with the text of each statement that fails, before the next one runs.
using Guasto = std::function<void(const std::string& testo)>;

struct RichiestaStampa {
  stampa::Dati dati;
  std::int32_t tipoOggetto = 0;
  std::int32_t definizione = 0;
  Uscita uscita = Uscita::Anteprima;
  std::string percorso;  // of the file; "" where the suite asks for one that is needed
  Guasto guasto;
};

// Refused where nothing would come out. A test that fails is reported, and counts as nothing; the modes
// without a test pass.
Result<> controllaStampa(const Intorno& intorno, const stampa::Dati& dati, const Guasto& guasto);

// Prints, without that test. What fails is reported to the request's `guasto`.
Result<> stampa(const Intorno& intorno, const RichiestaStampa& richiesta);

struct RichiestaModuli {
  RichiestaStampa stampa;  // its path is set for each file
  std::string sCodFisc;
  std::string cartella;
  Comunicazione tipo = Comunicazione::Ordinaria;
  bool intermediari = false;
  std::string dataFirma;    // as the box shows it
  bool cumulativa = false;  // one file for all lines
};
// The ministerial forms of the selected lines.
Result<> stampaModuli(const Intorno& intorno, Compensi& compensi, const RichiestaModuli& richiesta);

// Takes the user's rows out of the table that carries the lines to the forms.
void svuotaRicorsione(const Intorno& intorno);

}  // namespace cu::fornitura
