#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/aziende/opzioni_aziende.h"
#include "apps/comune/codici_uscita.h"
#include "apps/comune/connessioni.h"
#include "fornitura/corsa.h"

namespace cu {

int comandoCheck(const OpzioniDatabase& opzioni);

struct OpzioniBackup {
  std::string database;  // its address
  std::string file;
  bool sostituisci = false;
};
int comandoBackup(const OpzioniBackup& opzioni);

struct OpzioniRestore {
  std::string database;
  std::string file;
  bool passaAvvisi = false;
};
int comandoRestore(const OpzioniRestore& opzioni);

struct OpzioniCreate {
  OpzioniDatabase database;
  bool vuoto = false;
  bool dimostrativo = false;  // the default when no content is specified
  std::optional<std::int32_t> percipienti;
  std::int32_t aziende = 1;
  std::string anni = "2014-2017";
  std::uint64_t seme = 1;
};
int comandoCreate(const OpzioniCreate& opzioni);

inline constexpr const char* kInizioWizard = "wizard";
inline constexpr const char* kInizioArchivi = "archivi";
struct OpzioniDrive {
  std::string profilo;
  std::string inizio = kInizioWizard;  // the form with which the run starts
};
int comandoDrive(const OpzioniDrive& opzioni);

struct OpzioniMake {
  std::string profilo;
  fornitura::RichiestaCU richiesta;
  bool passaAvvisi = false;
  std::optional<OpzioniAziende> aziende;  // none for the company of the profile alone
  // Companies at a time, or forms of a single one; default: the number of cores.
  std::optional<std::int32_t> lavori;
};
int comandoMake(const OpzioniMake& opzioni);
int comandoMakeAziende(const OpzioniMake& opzioni);

inline constexpr const char* kStampaConti = "ContoIndividuale.rpt";
inline constexpr std::array kStampe = {kStampaConti, "CertificazioneCompensiSintetico.rpt",
                                       "CertificazioneCompensiAnalitico.rpt"};
struct OpzioniPrint {
  std::string profilo;
  std::string report;
  std::string file;
  fornitura::RichiestaReport richiesta;
};
int comandoPrint(const OpzioniPrint& opzioni);

struct OpzioniCorrect {
  std::string profilo;
  std::int32_t anno = 0;
  std::string cartella;
  std::optional<Date> firma;  // today without it
  bool passaAvvisi = false;
};
int comandoCorrect(const OpzioniCorrect& opzioni);

struct OpzioniDiscard {
  std::string file;
  std::string profilo;
  bool passaAvvisi = false;
};
int comandoDiscard(const OpzioniDiscard& opzioni);

}  // namespace cu
