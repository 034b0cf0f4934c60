#pragma once

#include <string>
#include <vector>

#include "fatture/fattura.h"

namespace cu::fatture {

// The amounts of a payment as the payees' accounts have them. Of a credit note they are negative.
struct ImportiFattura {
  Decimal onorario;
  Decimal quotaNonSoggetta;
  Decimal sommeNonSoggette;
  Decimal ritenutaAcconto;
  Decimal ritenutaImposta;
  Decimal contributoPrevidenziale;  // payer's and payee's part
  Decimal contributoPercipiente;
};

// What a document can mean.
struct Candidato {
  ImportiFattura importi;
  // "compenso 2.000,00 + rivalsa INPS 80,00 = imponibile 2.080,00; 20 % = 416,00"
  std::string spiegazione;
};

struct CompensoProposto {
  std::string causale;  // "" where the document does not say it
  // The first one is the payment when `deciso`; otherwise a person chooses, and each message R02 says why.
  std::vector<Candidato> candidati;
  bool deciso = false;
  bool contributoDerivato = false;  // the total, from the payee's third
  std::vector<Rilievo> rilievi;     // R02, R06, R07, R08, R09, R10
};

struct EsitoFattura {
  std::string escluso;  // why the document gives no payment; "" where it gives some
  // A seller in the flat-rate scheme without tax: the payments are certified up to the year 2023, and their
  // reason is the payee's habitual one. Which part of them is an expense is in `spese`.
  bool forfettario = false;
  Decimal spese;
  std::vector<CompensoProposto> compensi;  // with different reasons
  std::vector<Rilievo> rilievi;            // of the document as a whole: R02, V03
};

// The payments that a document gives, by its arithmetic alone. The fee is searched among the lines, the funds
// and the discounts, until the tax withheld is the rate of it or of the share that is usual for the reason.
// What nothing explains, and what can be understood in two ways, is left to a person with the candidates. Of
// a document with errors the result has no payments. VAT and ENASARCO never are part of the amounts.
EsitoFattura compensiDi(const Fattura& fattura);

}  // namespace cu::fatture
