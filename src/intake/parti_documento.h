#pragma once

#include <string>

#include "fatture/compensi.h"
#include "fatture/fattura.h"
#include "intake/lettura_righe.h"
#include "schede/schede.h"

namespace cu::intake {

// Whether a party of a document is the company. The fiscal code decides: members of a VAT group have the
// number in common.
bool eLui(const fatture::Soggetto& chi, const schede::SchedaAnagrafica& azienda);
// "Rossi Mario, RSSMRA80A01H501U"
std::string chiE(const fatture::Soggetto& chi);

// What a document means for a payment; a document has no sums of conventional regime.
schede::Importi importiDi(const fatture::ImportiFattura& importi);
// Gives the row these amounts and no other. Only the fee has a field where it is zero.
void mettiImporti(RigaLetta& riga, const schede::Importi& importi);

}  // namespace cu::intake
