#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "fornitura/controllo.h"
#include "fornitura/intorno.h"
#include "fornitura/scrittura.h"
#include "fornitura/selezione.h"
#include "fornitura/stampa.h"
#include "host/modi.h"

// Whole runs: the operations in the order of the wizard's steps.
namespace cu::fornitura {

// Limits of the ranges, by code; a code without a row is a valid limit.
struct Estremi {
  std::optional<std::string> daPercipiente;
  std::optional<std::string> aPercipiente;
  std::optional<std::string> daCausale;
  std::optional<std::string> aCausale;
};

struct RichiestaCU {
  std::string anno;
  Comunicazione tipo = Comunicazione::Ordinaria;
  Estremi estremi;
  std::string cartella;
  std::string cartellaDocumenti;
  std::optional<Date> firma;  // default: today
  std::optional<RichiestaRiferimenti> riferimenti;
  struct Intermediario {
    std::string codiceFiscale;
    std::optional<int> impegno;  // 1 or 2; default: the stored one
    std::optional<Date> data;    // default: the stored one
  };
  std::optional<Intermediario> intermediario;
  bool stampaCumulativa = false;
  ReportInfo modulo;  // the report of the forms
  std::function<bool(const Finding& avviso)> prosegue;
  Guasto guasto;  // called for a form that could not be printed
  // Called with the chosen folder, before anything is written into it.
  std::function<void(const std::string& cartella)> cartellaScelta;
};

struct EsitoCU {
  std::optional<FileScritto> file;     // none where the run has stopped before
  std::vector<DatoMancante> mancanti;  // the missing data, where they have stopped the run
};

// Load, references, checks, write-back, file, forms. Stops at the first refusal, and at a warning that is not
// overridden, which then is a refusal without a text. The value is always present.
Result<EsitoCU> creaCU(const Intorno& intorno, Compensi& compensi, const RichiestaCU& richiesta);

struct RichiestaReport {
  ModoCorsa modo = ModoCorsa::Certificazione;
  std::int32_t tipoOggetto = 0;
  ReportInfo report;
  std::optional<std::string> anno;
  std::optional<std::string> adAnno;  // only for the accounts
  Estremi estremi;
  Guasto guasto;
};

// The accounts or a certificate as a PDF; the suite prompts for its name.
Result<> stampaReport(const Intorno& intorno, const RichiestaReport& richiesta);

}  // namespace cu::fornitura
