#pragma once

#include <string>

#include "fatture/fattura.h"
#include "schede/aziende.h"

namespace cu::intake {

// Whether a party of a document is the company. The fiscal code decides: members of a VAT group have the
// number in common.
bool eLui(const fatture::Soggetto& chi, const schede::SchedaAnagrafica& azienda);
// "Rossi Mario, RSSMRA80A01H501U"
std::string chiE(const fatture::Soggetto& chi);

}  // namespace cu::intake
