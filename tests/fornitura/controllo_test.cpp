#include "fornitura/controllo.h"

#include <gmock/gmock.h>

#include "fornitura/fornitura_prova.h"
#include "telematic/prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Check : public OperazioniProva {
 protected:
  Result<fornitura::Controllo> controlla() {
    return fornitura::controlla(intorno(), dati, "tmpprequadrivio12");
  }
  std::vector<std::string> avvisi(const fornitura::DateFornitura& date) {
    return codici(fornitura::controllaDate(date, clock.today()).warnings);
  }
  DatiControllo dati{.dataFirma = "05/03/2017",
                     .usoIntermediari = false,
                     .codiceFiscaleIntermediario = "",
                     .dataImpegno = ""};
};

TEST_F(Check, CompleteDataGiveTheCompanysCode) {
  const auto esito = controlla();
  ASSERT_TRUE(esito);
  EXPECT_EQ(esito->sCodFisc, "01234567890");
  EXPECT_THAT(esito->mancanti, IsEmpty());
}

TEST_F(Check, WhatIsMissingIsRefusedWithItsPlaceAndTheValueIsThere) {
  dati = {.dataFirma = "", .usoIntermediari = true, .codiceFiscaleIntermediario = " ", .dataImpegno = ""};
  Table azienda = completeCompany();
  azienda.rows[0][4] = null();
  database.internal.answerContaining("AS CodFisc", azienda);
  const auto esito = controlla();
  EXPECT_FALSE(esito);
  EXPECT_EQ(esito->sCodFisc, "01234567890");
  EXPECT_THAT(codici(esito.refusals),
              ElementsAre("dato-mancante @dtDataFirma", "dato-mancante @txtCodiceFiscale",
                          "dato-mancante @dtDataImpegno", "dato-mancante @"));
  EXPECT_EQ(esito.refusals[3].text, "Comune sede non presente");
}

TEST_F(Check, TheLogHasFourColumnsAndARowOfTypeTwoForEachDatum) {
  dati.dataFirma.clear();
  NotedLog registro;
  FakeLogGrid log(registro);
  fornitura::riempiLog(log, 12, controlla()->mancanti);
  EXPECT_EQ(registro.user, 12);
  EXPECT_EQ(registro.name, "LogGrid_12");
  EXPECT_THAT(
      registro.columns,
      ElementsAre(NotedLog::Column{"Campo", 1, 35}, NotedLog::Column{"Sezione", 1, 20},
                  NotedLog::Column{"Denominazione", 1, 35}, NotedLog::Column{"Codice fiscale", 1, 30}));
  ASSERT_THAT(registro.rows, SizeIs(1));
  EXPECT_THAT(registro.rows[0], SizeIs(6));
  EXPECT_EQ(registro.rows[0].at("MessageType"), Value::ofInteger(2));
  EXPECT_EQ(registro.column("Message"), std::vector<std::string>{"Data della firma non presente"});
}

TEST_F(Check, NonResidentsWithBoxesThatRemainBlankAreAWarning) {
  modello = modello::kModelloPubblicato;
  const auto avviso = [&](int quanti) {
    std::vector<Contenuti> righe = certificati2016(quanti);
    for (std::size_t i = 0; i < righe.size(); ++i) {
      righe[i]["Anno"] = whole(2025);
      righe[i]["NonResidente"] = whole(1);
      righe[i]["Anagrafica"] = text("P" + std::to_string(i + 1));
    }
    database.internal.answerContaining("ORDER BY Anag.Anagrafica", rispostaPrincipale(righe));
    database.internal.answerContaining("FROM ModuloXContoIndividuale", rispostaModuli({}));
    const auto esito = controlla();
    EXPECT_TRUE(esito) << "a warning is no refusal";
    EXPECT_THAT(codici(esito.warnings), ElementsAre("caselle-non-attestate @"));
    return esito.warnings.empty() ? std::string() : esito.warnings[0].text;
  };
  EXPECT_EQ(avviso(1),
            "Attenzione! Per i percipienti non residenti il contenuto delle caselle 42 e 44\r\n"
            "non è attestato nel modello dell'anno: restano vuote. I percipienti sono:\r\n"
            "P1 (RSSMRA70A01H501U).\r\n"
            "Si vuole continuare ugualmente?");
  EXPECT_THAT(avviso(10),
              testing::HasSubstr("P9 (RSSMRA70A01H501U);\r\nP10 (RSSMRA70A01H501U).\r\nSi vuole"));
  EXPECT_THAT(avviso(11), testing::HasSubstr("P10 (RSSMRA70A01H501U);\r\ne un altro.\r\nSi vuole"));
  EXPECT_THAT(avviso(30), testing::HasSubstr(";\r\ne altri 20.\r\n"));
}

TEST_F(Check, DatesForWhichAFileMayBeRefusedAreWarnedOfInOrder) {
  const auto giorno = [](int anno, int mese, int di) { return Date::fromYmd(anno, mese, di); };
  EXPECT_THAT(avvisi({giorno(2017, 3, 5), giorno(2017, 1, 1)}), IsEmpty());
  EXPECT_THAT(avvisi({std::nullopt, std::nullopt}), IsEmpty());
  EXPECT_THAT(avvisi({giorno(2017, 3, 6), giorno(2017, 3, 6)}),
              ElementsAre("firma-futura @dtDataFirma", "impegno-futuro @dtDataImpegno"));
  EXPECT_THAT(avvisi({giorno(2017, 3, 5), giorno(2016, 12, 31)}),
              ElementsAre("impegno-di-altro-anno @dtDataImpegno"));
}

TEST_F(Check, AWarningEndsWithItsQuestion) {
  const auto esito = fornitura::controllaDate({Date::fromYmd(2017, 3, 6), std::nullopt}, clock.today());
  EXPECT_TRUE(esito) << "a warning is no refusal";
  EXPECT_EQ(esito.warnings.at(0).text,
            "Attenzione! La data della firma non deve essere superiore alla\r\n"
            "data odierna, altrimenti il file generato potrebbe essere scartato.\r\n"
            "Si vuole continuare ugualmente?");
}

}  // namespace
}  // namespace cu::test
