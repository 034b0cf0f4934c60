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

// Whole runs: the operations in the order in which a person calls them on the wizard's steps.
namespace cu::fornitura {

// Bounds of the ranges, by code; a code that no row has is a bound all the same.
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
  std::optional<Date> firma;  // today without it
  std::optional<RichiestaRiferimenti> riferimenti;
  struct Intermediario {
    std::string codiceFiscale;
    std::optional<int> impegno;  // 1 or 2; as stored without it
    std::optional<Date> data;    // as stored without it
  };
  std::optional<Intermediario> intermediario;
  bool stampaCumulativa = false;
  ReportInfo modulo;  // of the forms
  std::function<bool(const Finding& avviso)> prosegue;
  Guasto guasto;  // of a form that could not be printed
  // Called when the folder has been chosen, before anything is written into it.
  std::function<void(const std::string& cartella)> cartellaScelta;
};

struct EsitoCU {
  std::optional<FileScritto> file;     // none where the run has stopped before it
  std::vector<DatoMancante> mancanti;  // why it has stopped, where these are why
};

// Load, references, checks, write-back, file, forms. It stops at the first refusal, and at a warning that is
// not passed, which is a refusal without a text then. The value is always there.
Result<EsitoCU> creaCU(const Intorno& intorno, Compensi& compensi, const RichiestaCU& richiesta);

struct RichiestaReport {
  ModoCorsa modo = ModoCorsa::Certificazione;
  std::int32_t tipoOggetto = 0;
  ReportInfo report;
  std::optional<std::string> anno;
  std::optional<std::string> adAnno;  // of the accounts only
  Estremi estremi;
  Guasto guasto;
};

// The accounts or a certificate, as a PDF for whose name the suite asks.
Result<> stampaReport(const Intorno& intorno, const RichiestaReport& richiesta);

}  // namespace cu::fornitura
