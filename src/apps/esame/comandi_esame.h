#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/comune/connessioni.h"
#include "base/date.h"

// The commands that read what was filed. docs/automazione.md describes their answers.
namespace cu {

struct OpzioniInspect {
  std::string file;
  bool json = false;
  std::optional<std::int64_t> certificazione;  // counted over the whole file, from 1
  std::string csv;                             // files for a table of the certificates; "" for none
  std::string xlsx;
};
int comandoInspect(const OpzioniInspect& opzioni);

struct OpzioniValidate {
  std::vector<std::string> file;
  bool json = false;
  bool severo = false;  // warnings count as errors
};
int comandoValidate(const OpzioniValidate& opzioni);

struct OpzioniDiff {
  std::string vecchio;
  std::string nuovo;
  bool json = false;
};
int comandoDiff(const OpzioniDiff& opzioni);

// The commands below need the database of a profile. ErroreProfilo, and errors of the database, rise as they
// are.

struct OpzioniVerify {
  std::string file;
  std::string profilo;
  bool json = false;
};
int comandoVerify(const OpzioniVerify& opzioni);

struct OpzioniSent {
  std::string file;
  std::string profilo;
  std::optional<Date> giorno;  // today without it
};
int comandoSent(const OpzioniSent& opzioni);

struct OpzioniReceipt {
  std::string tabella;
  std::string profilo;
  bool applica = false;
};
int comandoReceipt(const OpzioniReceipt& opzioni);

struct OpzioniStatus {
  std::string profilo;
  std::int32_t anno = 0;
  bool json = false;
};
int comandoStatus(const OpzioniStatus& opzioni);

struct OpzioniUpgrade {
  OpzioniDatabase database;
  bool codici = false;  // of the forms from 2019 on
};
int comandoUpgrade(const OpzioniUpgrade& opzioni);

}  // namespace cu
