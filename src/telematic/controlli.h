#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/per_chiamanti.h"
#include "data/database.h"
#include "host/modi.h"

namespace cu {

class Recordset;
class Conversioni;

// The checked values of the screen.
struct DatiControllo {
  std::string dataFirma;  // as text, not trimmed
  bool usoIntermediari = false;
  std::string codiceFiscaleIntermediario;
  std::string dataImpegno;
  Comunicazione tipo = Comunicazione::Ordinaria;
};

// A required datum that is missing: a row of the log.
struct DatoMancante {
  std::string campo;
  std::string sezione;
  std::string denominazione;  // the subject of the row
  std::string codiceFiscale;
  std::string messaggio;
  std::string codice = "dato-mancante";  // of the refusal
};
// The code of a datum that is present, and cannot be written.
inline constexpr std::string_view kNonAttestato = "non-attestato";

// The presence checks before a file is made. They go on after a datum that is missing, so that a person sees
// everything at once.
class Controlli : public per_chiamanti::DiControlli<Controlli> {
 public:
  Controlli(Connection& connessione, const Conversioni& utilita);

  // Runs all checks, in order. `tabella` is the work table.
  void esegui(const DatiControllo& dati, std::int32_t idAzienda, const std::string& tabella);
  // The same without the values of the screen.
  void esegui(std::int32_t idAzienda, const std::string& tabella);
  // The same of all accounts of a year, without a work table.
  void eseguiSuiConti(std::int32_t idAzienda, std::int32_t anno);
  // The checks of the screen's values alone.
  static std::vector<DatoMancante> mancantiSulloSchermo(const DatiControllo& dati);

  const std::vector<DatoMancante>& mancanti() const { return mancanti_; }
  // The company's fiscal code, or its VAT number; empty when the company is not found.
  const std::string& sCodFisc() const { return codFisc_; }

  // The queries before the suite's adaptation.
  static std::string fnQueryAzienda(std::int32_t idAzienda);
  static std::string fnQueryPercipienti(const std::string& tabella);
  static std::string fnQueryPercipienti(std::int32_t idAzienda, std::int32_t anno);

 private:
  void controllaAzienda(std::int32_t idAzienda);
  void controllaPercipienti(const std::string& query);

  Connection& connessione_;
  const Conversioni& utilita_;
  std::vector<DatoMancante> mancanti_;
  std::string codFisc_;
};

}  // namespace cu
