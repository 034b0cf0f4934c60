#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

#include "base/error.h"
#include "support/cur_reader.h"
#include "telematic/cu_file_seq.h"
#include "telematic/prova.h"

// The record H of a row or of a further module.
namespace cu::record_h {

using test::amount;
using test::Contenuti;
using test::null;
using test::text;
using test::whole;
using Campi = std::map<std::string, std::string>;
using Celle = test::Celle;

struct Scrittura {
  std::string contenuto;
  std::string errore;
};

// Module 1 of the row, or the further module where one is given.
inline Scrittura scrivi(int anno, const Contenuti& riga,
                        const std::optional<Contenuti>& modulo = std::nullopt,
                        std::int32_t certificazione = 7, std::int32_t progressivo = 0) {
  test::Prova prova(anno);
  const test::Righe principali(test::rispostaPrincipale({riga}));
  const test::Righe moduli(test::rispostaModuli({modulo.value_or(Contenuti())}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  EXPECT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(principali.colonne());
  file.legaQueryModuli(moduli.colonne());
  if (progressivo == 0) progressivo = modulo ? 2 : 1;
  Scrittura scrittura;
  try {
    file.WriteRecordTipoH(principali[0], certificazione, progressivo, "01234567890",
                          modulo ? moduli[0] : nullptr);
    EXPECT_EQ(file.NumRecH(), 1);
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 5);
    EXPECT_EQ(file.NumRecH(), 0);
    scrittura.errore = error.description();
  }
  file.CloseFile();
  scrittura.contenuto = prova.files.files.at("/prova.cur");
  return scrittura;
}

inline test::CurLine principale(int anno, const Contenuti& riga) {
  return test::CurFile(scrivi(anno, riga).contenuto).line('H');
}
inline test::CurLine aggiuntivo(int anno, const Contenuti& modulo) {
  return test::CurFile(scrivi(anno, {}, modulo).contenuto).line('H');
}

inline Campi quadro(const std::string& modulo) {
  return {{"Tipo Record", "H"},
          {"Cod. Fisc. Sost. imposta", "01234567890"},
          {"Progressivo modulo", modulo},
          {"Cod. Fisc. Percipiente", "RSSMRA80B01L781X"},
          {"Progressivo Certificazione", "00007"},
          {"Filler 7", "A"}};
}

inline std::string importo(const std::string& cifre) { return std::string(16 - cifre.size(), ' ') + cifre; }
inline const std::string kUno = std::string(15, ' ') + "1";

// Every column of the form has a value; an amount contains the number of its column.
inline Contenuti pieno(const std::vector<test::RigaForma>& forma) {
  Contenuti riga;
  int n = 100;
  for (const test::RigaForma& r : forma) {
    if (r.fonte.empty() || r.fonte[0] == '#') continue;
    ++n;
    switch (r.come) {
      case test::Come::Importo:
        riga[r.fonte] = amount(std::to_string(n) + ".25");
        break;
      case test::Come::Flag:
        riga[r.fonte] = whole(1);
        break;
      case test::Come::Destra:
        riga[r.fonte] = whole(2011);
        break;
      default:
        riga[r.fonte] = text("testo " + std::to_string(n));
    }
  }
  return riga;
}

inline Contenuti rigaPiena() {
  Contenuti riga = pieno(test::formaH(true));
  riga["CodiceFiscale"] = text("rssmra80b01l781x");
  riga["Codice"] = text("N");
  riga["SommeNonSoggetteARitenuta"] = amount("10");
  riga["QuotaProvvigioniNonSoggette"] = amount("5.5");
  riga["IDCUEntePrevidenziale"] = whole(2);
  riga["CodiceAzPressoENPAM"] = text("enpam");
  riga["CodiceAzPressoENPAPI"] = text("enpapi");
  riga["PignoramentoTerziRitenuteNonOperate1"] = amount("1");
  return riga;
}

}  // namespace cu::record_h
