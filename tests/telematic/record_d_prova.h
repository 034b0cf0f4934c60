#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "base/error.h"
#include "support/cur_reader.h"
#include "telematic/cu_file_seq.h"
#include "telematic/prova.h"

// The record D of a row.
namespace cu::record_d {

using test::Contenuti;
using test::day;
using test::null;
using test::text;
using test::whole;
using Campi = std::map<std::string, std::string>;
using Celle = test::Celle;

inline const Date kFirma = Date::fromYmd(2017, 2, 28).value();

// Writes the rows one after the other as certificates 1, 2, ...
inline std::string scrivi(int anno, const std::vector<Contenuti>& contenuti, int tipo = 1,
                          Date firma = kFirma) {
  test::Prova prova(anno);
  const test::Righe righe(test::rispostaPrincipale(contenuti));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  EXPECT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(righe.colonne());
  for (std::size_t i = 0; i < righe.size(); ++i) {
    file.WriteRecordTipoD(righe[i], static_cast<std::int32_t>(i + 1), "01234567890",
                          static_cast<Comunicazione>(tipo), firma);
  }
  file.CloseFile();
  return prova.files.files.at("/prova.cur");
}

inline test::CurLine linea(int anno, const Contenuti& riga, int tipo = 1, Date firma = kFirma) {
  return test::CurFile(scrivi(anno, {riga}, tipo, firma)).line('D');
}

inline std::string errore(int anno, const Contenuti& riga) {
  test::Prova prova(anno);
  const test::Righe righe(test::rispostaPrincipale({riga, {}}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  EXPECT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(righe.colonne());
  std::string testo;
  try {
    file.WriteRecordTipoD(righe[0], 1, "01234567890", Comunicazione::Ordinaria, kFirma);
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 5);
    testo = error.description();
  }
  EXPECT_EQ(file.NumRecD(), testo.empty() ? 1 : 0);
  EXPECT_EQ(prova.files.files.at("/prova.cur").size(), testo.empty() ? 1900U : 0U);
  // What was half composed does not show in the next record.
  file.WriteRecordTipoD(righe[1], 2, "01234567890", Comunicazione::Ordinaria, kFirma);
  const test::CurFile letto(prova.files.files.at("/prova.cur"));
  EXPECT_EQ(letto.lines().back().cells().size(), 2U);
  return testo;
}

inline Contenuti percipiente() {
  return {{"CodiceFiscaleAz", text("01234567890")},
          {"AnagraficaAz", text("Alfa & Figli s.r.l.")},
          {"NomeAz", text("Nome della ditta")},
          {"ComuneAz", text("Verona")},
          {"SiglaProvinciaAz", text("VR")},
          {"CapAz", text("37121")},
          {"IndirizzoAz", text("Via Mazzini 1")},
          {"TelefonoAz", text("(045) 12-34.567 89")},
          {"FaxAz", text("045/1234567")},
          {"EMailInternetAz", text("Info@alfa.it")},
          {"CodiceAttivita", text("620100")},
          {"CodiceFiscale", text("rssmra80b01l781x")},
          {"Anagrafica", text("Rossi")},
          {"Nome", text("Niccolò")},
          {"PersonaFisica", whole(1)},
          {"Sesso", text("m")},
          {"DataNascita", day(1980, 2, 1)},
          {"ComuneNascita", text("Verona")},
          {"ProvinciaNascita", text("VR")},
          {"CodiceCategoriaParticolare", text("Z2")},
          {"CodiceEventoEccezionale", text("1")},
          {"ComuneResidenzaAnnoPrec", text("San Donà di Piave")},
          {"SiglaProvResidenzaAnnoPrec", text("VE")},
          {"CodiceComuneDiNascitaPrec", text("H823")},
          {"FusioneComuniAnnoPrec", text("Unito P")},
          {"ComuneResidenzaAnnoCorr", text("Padova")},
          {"SiglaProvResidenzaAnnoCorr", text("PD")},
          {"CodiceComuneDiNascitaCorr", text("G224")},
          {"FusioneComuni", text("Unito C")},
          {"CodiceFiscaleRappresentante", text("vrdlgu60b02l781k")},
          {"NonResidente", whole(1)},
          {"NonResidenteSchumacker", whole(1)},
          {"CodiceIdentificazioneFiscaleEstero", text("DE-123 456")},
          {"ComuneRes", text("München")},
          {"Indirizzo", text("Leopoldstraße 12")},
          {"PrefissoInternazionaleRes", text(" 094 ")},
          {"ProtocolloAnnSost", text("17030512345678901")},
          {"ProgressivoAnnSost", text("42")}};
}

}  // namespace cu::record_d
