#pragma once

#include <cstdint>
#include <string>

#include "data/database.h"
#include "host/log_grid.h"

namespace cu {

class Recordset;
class UtilitaSuite;

// What the screen holds of what is checked.
struct DatiControllo {
  std::string dataFirma;  // as text, not trimmed
  bool usoIntermediari = false;
  std::string codiceFiscaleIntermediario;
  std::string dataImpegno;
};

// The presence checks before a file is made: what is missing goes to the log, one row a datum, and the checks
// go on, so that the user sees everything at once.
class Controlli {
 public:
  Controlli(Connection& connessione, const UtilitaSuite& utilita, LogGrid& log);

  // Declares the log's columns.
  void sbPreparaLog();
  // All checks, in their order. `tabella` is the work table.
  void esegui(const DatiControllo& dati, std::int32_t idAzienda, const std::string& tabella);

  bool bErrori() const { return errori_; }
  // The company's fiscal code, or its VAT number; empty when the company is not found.
  const std::string& sCodFisc() const { return codFisc_; }

  // The queries as they are sent, before the suite's adaptation.
  static std::string fnQueryAzienda(std::int32_t idAzienda);
  static std::string fnQueryPercipienti(const std::string& tabella);

 private:
  bool fnScriviLog(const std::string& messaggio, const std::string& campo, const std::string& sezione,
                   const std::string& denominazione, const std::string& codiceFiscale);
  void controllaDati(const DatiControllo& dati);
  void controllaAzienda(std::int32_t idAzienda);
  void controllaPercipienti(const std::string& tabella);

  Connection& connessione_;
  const UtilitaSuite& utilita_;
  LogGrid& log_;
  bool errori_ = false;
  std::string codFisc_;
};

}  // namespace cu
