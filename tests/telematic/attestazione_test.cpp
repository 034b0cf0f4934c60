// What the published forms do not have is found before a file is made.

#include "telematic/attestazione.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "telematic/prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Attestation : public testing::Test {
 protected:
  Contenuti riga(int anno, const char* causale = "A") const {
    return {{"Anno", whole(anno)},     {"IDAnagrafica", whole(1)},
            {"IDAzienda", whole(1)},   {"IDCausalePagamento", whole(1)},
            {"Codice", text(causale)}, {"Anagrafica", text("Rossi")},
            {"Nome", text("Mario")},   {"CodiceFiscale", text("RSSMRA70A01H501U")}};
  }
  Contenuti conSomme(int anno, const char* codice, const char* causale = "A") const {
    Contenuti sua = riga(anno, causale);
    sua["SommeNonSoggetteARitenuta"] = amount("100");
    if (*codice != '\0') sua["CodicePerNonSoggetti"] = text(codice);
    return sua;
  }
  std::vector<DatoMancante> trovati(const Contenuti& sua, Comunicazione tipo = Comunicazione::Ordinaria) {
    return trovati(sua, {}, tipo, modello::kModelloPubblicato);
  }
  std::vector<DatoMancante> trovati(const Contenuti& sua, const std::vector<Contenuti>& moduli,
                                    Comunicazione tipo, const modello::Modello& modello) {
    database.internal.answerContaining("Selezionato <> 0", rispostaPrincipale({sua}));
    database.internal.answerContaining("FROM ModuloXContoIndividuale", rispostaModuli(moduli));
    attestazione = attesta(database.internal, utilita,
                           {.tabella = "tmpprequadrivio12", .tipo = tipo, .modello = modello});
    return attestazione.rifiutati;
  }
  static std::vector<std::string> campi(const std::vector<DatoMancante>& dati) {
    std::vector<std::string> nomi;
    for (const DatoMancante& dato : dati) nomi.push_back(dato.campo);
    return nomi;
  }

  Attestazione attestazione;  // the last one
  FakeDatabase database;
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
};

TEST_F(Attestation, ReadsNothingForTheFixedForm) {
  EXPECT_THAT(trovati(conSomme(2021, ""), {}, Comunicazione::Ordinaria, modello::kModello), IsEmpty());
  EXPECT_THAT(database.internal.texts(FakeConnection::Kind::Query), IsEmpty());
}

TEST_F(Attestation, AsksNothingOfTheYearsUpTo2018) { EXPECT_THAT(trovati(conSomme(2018, "")), IsEmpty()); }

TEST_F(Attestation, AsksForTheCodeOfSumsNotSubject) {
  for (int anno = 2019; anno <= 2025; ++anno) {
    const auto dati = trovati(conSomme(anno, ""));
    ASSERT_THAT(campi(dati), ElementsAre("Codice per non soggetti")) << anno;
    EXPECT_EQ(dati[0].codice, kNonAttestato);
    EXPECT_EQ(dati[0].denominazione, "Rossi Mario");
    EXPECT_EQ(dati[0].codiceFiscale, "RSSMRA70A01H501U");
  }
  EXPECT_EQ(
      trovati(conSomme(2021, ""))[0].messaggio,
      "Manca il codice delle somme non soggette (casella 6). I codici nel modello dei compensi del 2021 "
      "sono: 21, 22, 23, 24.");
  EXPECT_THAT(trovati(conSomme(2024, ""))[0].messaggio, HasSubstr("sono, fra altri: 21, 22, 23."));
  Contenuti quota = riga(2021, "Q");
  quota["QuotaProvvigioniNonSoggette"] = amount("50");
  EXPECT_THAT(campi(trovati(quota)), ElementsAre("Codice per non soggetti"));
  EXPECT_THAT(trovati(riga(2021)), IsEmpty()) << "no sums";
}

TEST_F(Attestation, KnowsTheCodesOfEachYear) {
  EXPECT_THAT(trovati(conSomme(2019, "7")), IsEmpty());
  EXPECT_THAT(trovati(conSomme(2020, "12")), IsEmpty());
  EXPECT_THAT(trovati(conSomme(2021, "21")), IsEmpty());
  EXPECT_THAT(trovati(conSomme(2025, "24")), IsEmpty());
  for (const auto& [anno, codice] : {std::pair{2019, "3"}, std::pair{2021, "7"}, std::pair{2022, "12"},
                                     std::pair{2023, "8"}, std::pair{2024, "24"}, std::pair{2021, "25"}}) {
    EXPECT_THAT(campi(trovati(conSomme(anno, codice))), ElementsAre("Codice per non soggetti"))
        << anno << " " << codice;
  }
  EXPECT_THAT(trovati(conSomme(2024, "25")), IsEmpty()) << "the list is not complete";
}

TEST_F(Attestation, KnowsTheReasonsOfEachYear) {
  EXPECT_THAT(trovati(riga(2021, "J")), IsEmpty());
  const auto ignota = trovati(riga(2021, "Z"));
  ASSERT_THAT(campi(ignota), ElementsAre("Causale"));
  EXPECT_THAT(ignota[0].messaggio,
              HasSubstr("La causale Z non è nel modello dei compensi del 2021, che ha A, B"));
  EXPECT_THAT(campi(trovati(riga(2019, "Z"))), ElementsAre("Causale")) << "it ended in 2016";
}

TEST_F(Attestation, RefusesSportFrom2023On) {
  EXPECT_THAT(trovati(riga(2022, "N")), IsEmpty());
  for (const char* causale : {"N", "N1", "N2", "N3"}) {
    for (const int anno : {2023, 2024, 2025}) {
      EXPECT_THAT(campi(trovati(riga(anno, causale))), ElementsAre("Causale")) << causale << anno;
    }
  }
}

TEST_F(Attestation, RefusesExceptionalEventsThatAreGone) {
  Contenuti colpito = riga(2024);
  colpito["CodiceEventoEccezionale"] = text(" 3 ");
  const auto dati = trovati(colpito);
  ASSERT_THAT(campi(dati), ElementsAre("Eventi eccezionali"));
  EXPECT_EQ(dati[0].messaggio,
            "L'evento eccezionale 3 (casella 9) non è più nel modello dei compensi del 2024.");
  EXPECT_EQ(dati[0].denominazione, "Rossi Mario");
  EXPECT_THAT(campi(trovati(colpito, Comunicazione::Annullamento)), ElementsAre("Eventi eccezionali"));
  colpito["CodiceEventoEccezionale"] = text("1");
  EXPECT_THAT(trovati(colpito), IsEmpty());
  Contenuti prima = riga(2023);
  prima["CodiceEventoEccezionale"] = text("3");
  EXPECT_THAT(trovati(prima), IsEmpty());
}

TEST_F(Attestation, RefusesTheEventOfTheCompanyOnce) {
  Contenuti sua = riga(2025);
  sua["CodiceEventoEccezionaleAz"] = text("2");
  sua["AnagraficaAz"] = text("Alfa");
  database.internal.answerContaining("Selezionato <> 0", rispostaPrincipale({sua, sua}));
  database.internal.answerContaining("FROM ModuloXContoIndividuale", rispostaModuli({}));
  attestazione = attesta(database.internal, utilita,
                         {.tabella = "tmpprequadrivio12",
                          .tipo = Comunicazione::Ordinaria,
                          .modello = modello::kModelloPubblicato});
  ASSERT_THAT(campi(attestazione.rifiutati), ElementsAre("Eventi eccezionali"));
  EXPECT_EQ(attestazione.rifiutati[0].sezione, "Azienda");
  EXPECT_EQ(attestazione.rifiutati[0].denominazione, "Alfa");
  EXPECT_EQ(attestazione.rifiutati[0].messaggio,
            "L'evento eccezionale 2 dell'azienda non è più nel modello dei compensi del 2025.");
}

TEST_F(Attestation, RefusesAPayeeWhoNeedsABoxOfUnknownContent) {
  Contenuti straniero = riga(2024);
  straniero["NonResidente"] = whole(1);
  EXPECT_THAT(trovati(straniero), IsEmpty());
  straniero["NonResidenteSchumacker"] = whole(1);
  EXPECT_THAT(campi(trovati(straniero)), ElementsAre("Non residente Schumacker"));
  EXPECT_THAT(campi(trovati(straniero, Comunicazione::Annullamento)),
              ElementsAre("Non residente Schumacker"));
  straniero["Anno"] = whole(2023);
  EXPECT_THAT(trovati(straniero), IsEmpty());
  straniero["Anno"] = whole(2024);
  straniero["NonResidente"] = whole(0);
  EXPECT_THAT(trovati(straniero), IsEmpty());
}

TEST_F(Attestation, NamesANonResidentOnceWhoseBoxesRemainBlank) {
  Contenuti straniero = riga(2024);
  straniero["NonResidente"] = whole(1);
  Contenuti ancora = straniero;
  ancora["Codice"] = text("M");
  for (const Comunicazione tipo : {Comunicazione::Ordinaria, Comunicazione::Annullamento}) {
    database.internal.answerContaining("Selezionato <> 0",
                                       rispostaPrincipale({straniero, ancora, riga(2024)}));
    database.internal.answerContaining("FROM ModuloXContoIndividuale", rispostaModuli({}));
    attestazione =
        attesta(database.internal, utilita,
                {.tabella = "tmpprequadrivio12", .tipo = tipo, .modello = modello::kModelloPubblicato});
    EXPECT_THAT(attestazione.rifiutati, IsEmpty());
    EXPECT_THAT(attestazione.conCaselleVuote, ElementsAre("Rossi Mario (RSSMRA70A01H501U)"));
    EXPECT_THAT(attestazione.caselleVuote, ElementsAre(42, 44));
  }
  for (int anno = 2019; anno <= 2023; ++anno) {
    straniero["Anno"] = whole(anno);
    EXPECT_THAT(trovati(straniero), IsEmpty());
    EXPECT_THAT(attestazione.conCaselleVuote, IsEmpty()) << anno;
  }
  straniero["Anno"] = whole(2025);
  straniero["NonResidenteSchumacker"] = whole(1);
  EXPECT_THAT(campi(trovati(straniero)), ElementsAre("Non residente Schumacker"));
  EXPECT_THAT(attestazione.conCaselleVuote, IsEmpty()) << "no record of them is written";
}

TEST_F(Attestation, RefusesAmountsInBoxesThatAreNotAttested) {
  struct Caso {
    const char* colonna;
    const char* campo;
    int ultimo;
  };
  for (const Caso& caso : {Caso{"RitenuteRimborsate", "Casella 21", 2023},
                           Caso{"SommeCorrispostePreFallimento", "Casella 41", 2023},
                           Caso{"IndennitaEsproprioSommeCorrisposte1", "Casella 131", 2021}}) {
    Contenuti sua = riga(caso.ultimo);
    sua[caso.colonna] = amount("10");
    EXPECT_THAT(trovati(sua), IsEmpty()) << caso.colonna;
    sua["Anno"] = whole(caso.ultimo + 1);
    EXPECT_THAT(campi(trovati(sua)), ElementsAre(caso.campo)) << caso.colonna;
    EXPECT_THAT(trovati(sua, Comunicazione::Annullamento), IsEmpty()) << "it has no amounts";
  }
  Contenuti codice = riga(2022);
  codice["CodiceFiscaleIndennitaEsproprio"] = text("RSSMRA70A01H501U");
  EXPECT_THAT(campi(trovati(codice)), ElementsAre("Casella 73"));
}

TEST_F(Attestation, LooksAtFurtherModulesToo) {
  const std::vector<Contenuti> moduli = {{{"SommeNonSoggette", amount("5")}},
                                         {{"SommeNonSoggette", amount("5")},
                                          {"CodicePerNonSoggetti", text("22")},
                                          {"AltreIndennitaRitenuteOperate2", amount("1")}}};
  const auto dati =
      trovati(conSomme(2022, "21"), moduli, Comunicazione::Ordinaria, modello::kModelloPubblicato);
  EXPECT_THAT(campi(dati), ElementsAre("Codice per non soggetti", "Casella 138"));
  EXPECT_THAT(dati[0].messaggio, HasSubstr("del modulo 2 "));
}

TEST_F(Attestation, RefusesAYearWithoutAForm) {
  const auto dati = trovati(riga(2026));
  ASSERT_THAT(campi(dati), ElementsAre("Anno"));
  EXPECT_EQ(dati[0].messaggio,
            "Il modello dei compensi del 2026 (CU 2027) non è noto: l'ultimo è quello del 2025.");
  EXPECT_THAT(campi(trovati(riga(2026), Comunicazione::Annullamento)), ElementsAre("Anno"));
}

TEST_F(Attestation, LeavesAnAnnulmentToItsRecordD) {
  EXPECT_THAT(trovati(conSomme(2021, "7", "Z"), Comunicazione::Annullamento), IsEmpty());
}

}  // namespace
}  // namespace cu::test
