#include "fatture/compensi.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "fatture/documento_prova.h"
#include "fatture/lettura_fattura.h"

namespace cu::fatture {
namespace {

using namespace prova;

EsitoFattura esitoDi(FileProva file, DocumentoProva documento) {
  file.documenti = {std::move(documento)};
  const Letto letto = leggiFattura(fileXml(file), "prova.xml");
  EXPECT_EQ(letto.fatture.size(), 1U);
  EXPECT_FALSE(letto.conErrori());
  return compensiDi(letto.fatture.at(0));
}
EsitoFattura esitoDi(DocumentoProva documento) { return esitoDi(FileProva(), std::move(documento)); }

// "2505 quota 1252.5 somme 0 acconto 288.08 imposta 0"
std::string detti(const ImportiFattura& i) {
  return i.onorario.toText() + " quota " + i.quotaNonSoggetta.toText() + " somme " +
         i.sommeNonSoggette.toText() + " acconto " + i.ritenutaAcconto.toText() + " imposta " +
         i.ritenutaImposta.toText();
}
std::string deciso(const EsitoFattura& esito, std::size_t quale = 0) {
  if (esito.compensi.size() <= quale) return "nessun compenso: " + esito.escluso;
  const CompensoProposto& compenso = esito.compensi[quale];
  if (!compenso.deciso) return "da decidere";
  return detti(compenso.candidati.at(0).importi);
}
std::string codici(const CompensoProposto& compenso) {
  std::string testo;
  for (const Rilievo& uno : compenso.rilievi) testo += (testo.empty() ? "" : " ") + uno.codice;
  return testo;
}
std::string spiegazione(const EsitoFattura& esito) {
  return esito.compensi.at(0).candidati.at(0).spiegazione;
}

DocumentoProva documento(std::vector<RitenutaProva> ritenute, std::vector<LineaProva> linee,
                         std::vector<CassaProva> casse = {}) {
  DocumentoProva uno;
  uno.ritenute = std::move(ritenute);
  uno.linee = std::move(linee);
  uno.casse = std::move(casse);
  return uno;
}
LineaProva spesa(const std::string& importo, const std::string& testo = "Anticipazioni art. 15") {
  return {importo, false, "0.00", "N1", testo};
}

// The worked examples: what each document becomes, to the cent.

TEST(CompensiFattura, ProfessionalWithExpensesAndStamp) {
  const EsitoFattura esito =
      esitoDi(documento({{"1200.00"}}, {{"6000.00"}, spesa("400.00"), spesa("2.00", "Imposta di bollo")}));
  EXPECT_EQ(deciso(esito), "6000 quota 0 somme 402 acconto 1200 imposta 0");
  EXPECT_EQ(spiegazione(esito),
            "compenso 6.000,00 = imponibile 6.000,00; 20 % = 1.200,00; somme non soggette 402,00");
  EXPECT_EQ(codici(esito.compensi[0]), "");
}

TEST(CompensiFattura, ProfessionalWithInpsSurcharge) {
  const EsitoFattura esito = esitoDi(documento({{"416.00"}}, {{"2000.00"}}, {{"TC22", "80.00", true}}));
  EXPECT_EQ(deciso(esito), "2080 quota 0 somme 0 acconto 416 imposta 0");
  EXPECT_EQ(spiegazione(esito),
            "compenso 2.000,00 + rivalsa INPS 80,00 = imponibile 2.080,00; 20 % = 416,00");
  EXPECT_EQ(codici(esito.compensi[0]), "");
}

TEST(CompensiFattura, ProfessionalWithAFundThatIsNoFee) {
  const EsitoFattura esito = esitoDi(documento({{"200.00"}}, {{"1000.00"}}, {{"TC04", "40.00", false}}));
  EXPECT_EQ(deciso(esito), "1000 quota 0 somme 0 acconto 200 imposta 0");
}

TEST(CompensiFattura, AgentsWithAShareOfTheFee) {
  EXPECT_EQ(deciso(esitoDi(documento({{"288.08", "23.00", "S"}}, {{"2505.00"}}))),
            "2505 quota 1252.5 somme 0 acconto 288.08 imposta 0");
  EXPECT_EQ(deciso(esitoDi(documento({{"131.74", "23.00", "R"}}, {{"2864.00"}}))),
            "2864 quota 2291.2 somme 0 acconto 131.74 imposta 0");
  EXPECT_EQ(deciso(esitoDi(documento({{"718.75", "23.00", "R"}}, {{"6249.99"}}))),
            "6249.99 quota 3124.99 somme 0 acconto 718.75 imposta 0");
}

TEST(CompensiFattura, AgentsWithTheShareInTheRateGiveTheSame) {
  const EsitoFattura esito = esitoDi(documento({{"288.08", "11.50", "S"}}, {{"2505.00"}}));
  EXPECT_EQ(deciso(esito), "2505 quota 1252.5 somme 0 acconto 288.08 imposta 0");
  EXPECT_EQ(spiegazione(esito), "compenso 2.505,00, imponibile al 50 % = 1.252,50; 23 % = 288,08");
  EXPECT_EQ(deciso(esitoDi(documento({{"131.74", "4.60", "R"}}, {{"2864.00"}}))),
            "2864 quota 2291.2 somme 0 acconto 131.74 imposta 0");
}

TEST(CompensiFattura, AShareIsNeverTriedForOtherReasons) {
  EXPECT_EQ(deciso(esitoDi(documento({{"100.00"}}, {{"1000.00"}}))), "da decidere");
}

TEST(CompensiFattura, HomeSellerWithFinalTax) {
  EXPECT_EQ(deciso(esitoDi(documento({{"865.33", "23.00", "V"}}, {{"4823.45"}}))),
            "4823.45 quota 1061.16 somme 0 acconto 0 imposta 865.33");
}

TEST(CompensiFattura, AuthorsRights) {
  EXPECT_EQ(deciso(esitoDi(documento({{"463.64", "20.00", "B"}}, {{"3090.90"}}))),
            "2318.18 quota 0 somme 772.72 acconto 463.64 imposta 0");
}

TEST(CompensiFattura, FlatRatePayee) {
  FileProva file;
  file.regime = "RF19";
  const LineaProva compenso{"3000.00", false, "0.00", "N2.2", "Consulenza"};
  const EsitoFattura esito = esitoDi(file, documento({}, {compenso, spesa("400.00")}));
  EXPECT_TRUE(esito.forfettario);
  EXPECT_EQ(deciso(esito), "0 quota 0 somme 3400 acconto 0 imposta 0");
  EXPECT_EQ(esito.spese.toText(), "400");
  EXPECT_EQ(esito.compensi[0].causale, "");
}

TEST(CompensiFattura, OccasionalWithExpenses) {
  EXPECT_EQ(deciso(esitoDi(documento({{"710.00", "20.00", "M"}}, {{"3550.00"}, spesa("177.88")}))),
            "3550 quota 0 somme 177.88 acconto 710 imposta 0");
}

// Where the flags do not say it, the arithmetic does.

TEST(CompensiFattura, FindsTheBaseWithoutAnyFlag) {
  EXPECT_EQ(deciso(esitoDi(documento({{"200.00"}}, {{"600.00", false}, {"400.00", false}, spesa("50.00")}))),
            "1000 quota 0 somme 50 acconto 200 imposta 0");
}

TEST(CompensiFattura, AnInpsSurchargeWithoutFlagIsFeeWhenTheTaxFitsOnlyWithIt) {
  EXPECT_EQ(deciso(esitoDi(documento({{"416.00"}}, {{"2000.00"}}, {{"TC22", "80.00", false}}))),
            "2080 quota 0 somme 0 acconto 416 imposta 0");
  const EsitoFattura senza = esitoDi(documento({{"400.00"}}, {{"2000.00"}}, {{"TC22", "80.00", false}}));
  EXPECT_EQ(deciso(senza), "da decidere");
  EXPECT_EQ(codici(senza.compensi[0]), "R02");
  ASSERT_EQ(senza.compensi[0].candidati.size(), 2U);
  EXPECT_EQ(senza.compensi[0].candidati[1].importi.onorario.toText(), "2080");
}

TEST(CompensiFattura, AFlaggedFundIsFeeWithAWarningWhenItFits) {
  const EsitoFattura esito = esitoDi(documento({{"208.00"}}, {{"1000.00"}}, {{"TC04", "40.00", true}}));
  EXPECT_EQ(deciso(esito), "1040 quota 0 somme 0 acconto 208 imposta 0");
  EXPECT_EQ(codici(esito.compensi[0]), "R07");
  EXPECT_EQ(deciso(esitoDi(documento({{"200.00"}}, {{"1000.00"}}, {{"TC04", "40.00", true}}))),
            "1000 quota 0 somme 0 acconto 200 imposta 0");
}

TEST(CompensiFattura, SubtractsADiscountOfTheDocument) {
  DocumentoProva uno = documento({{"180.00"}}, {{"1000.00"}});
  uno.altro = "<ScontoMaggiorazione><Tipo>SC</Tipo><Percentuale>10.00</Percentuale></ScontoMaggiorazione>";
  const EsitoFattura esito = esitoDi(uno);
  EXPECT_EQ(deciso(esito), "900 quota 0 somme 0 acconto 180 imposta 0");
  EXPECT_EQ(spiegazione(esito), "compenso 1.000,00 - sconto 100,00 = imponibile 900,00; 20 % = 180,00");
}

TEST(CompensiFattura, AddsLinesWithAllTheirDecimalsBeforeRounding) {
  EXPECT_EQ(deciso(esitoDi(documento({{"20.00"}}, {{"33.33333333"}, {"33.33333333"}, {"33.33333334"}}))),
            "100 quota 0 somme 0 acconto 20 imposta 0");
}

TEST(CompensiFattura, ACentOffIsAWarningAndMoreIsToBeDecided) {
  const EsitoFattura uno = esitoDi(documento({{"199.99"}}, {{"1000.00"}}));
  EXPECT_EQ(deciso(uno), "1000 quota 0 somme 0 acconto 199.99 imposta 0");
  EXPECT_EQ(codici(uno.compensi[0]), "R09");
  const EsitoFattura due = esitoDi(documento({{"199.98"}}, {{"1000.00"}}));
  EXPECT_EQ(deciso(due), "da decidere");
  EXPECT_EQ(codici(due.compensi[0]), "R02");
  EXPECT_EQ(spiegazione(due), "compenso 1.000,00 = imponibile 1.000,00; 20 % = 200,00, nel documento 199,98");
}

TEST(CompensiFattura, LinesOfWhichNothingIsSaidAreToBeDecided) {
  const EsitoFattura esito =
      esitoDi(documento({{"200.00"}}, {{"1000.00"}, {"150.00", false, "22.00", "", "Licenza"}}));
  EXPECT_EQ(deciso(esito), "da decidere");
  ASSERT_EQ(esito.compensi[0].candidati.size(), 2U);
  EXPECT_EQ(esito.compensi[0].candidati[0].importi.sommeNonSoggette.toText(), "0");
  EXPECT_EQ(esito.compensi[0].candidati[1].importi.sommeNonSoggette.toText(), "150");
  EXPECT_EQ(deciso(esitoDi(
                documento({{"200.00"}}, {{"1000.00"}, {"150.00", false, "0.00", "N4", "Rimborso spese"}}))),
            "1000 quota 0 somme 150 acconto 200 imposta 0");
}

TEST(CompensiFattura, AFlaggedLineThatTheTaxDoesNotCompriseIsToBeDecided) {
  EXPECT_EQ(deciso(esitoDi(documento({{"200.00"}}, {{"1000.00"}, {"70.00"}}))), "da decidere");
}

TEST(CompensiFattura, AZeroTaxFitsNothing) {
  EXPECT_EQ(deciso(esitoDi(documento({{"0.00"}}, {{"1000.00"}}))), "da decidere");
  EXPECT_EQ(deciso(esitoDi(documento({{"0.00", "0.00"}}, {{"1000.00"}}))), "da decidere");
}

TEST(CompensiFattura, DueStampDutyIsNoMoney) {
  DocumentoProva uno = parcella();
  uno.altro = "<DatiBollo><BolloVirtuale>SI</BolloVirtuale><ImportoBollo>2.00</ImportoBollo></DatiBollo>";
  EXPECT_EQ(deciso(esitoDi(uno)), "1000 quota 0 somme 0 acconto 200 imposta 0");
}

// Credit notes in three signs.

TEST(CompensiFattura, CreditNotesAreNegativeWhateverTheirSigns) {
  const char* const atteso = "-1000 quota 0 somme -50 acconto -200 imposta 0";
  const auto nota = [](const char* tipo, const char* ritenuta, const char* compenso, const char* spese) {
    DocumentoProva una = documento({{ritenuta}}, {{compenso}, spesa(spese)});
    una.tipo = tipo;
    return esitoDi(una);
  };
  EXPECT_EQ(deciso(nota("TD04", "200.00", "1000.00", "50.00")), atteso);
  EXPECT_EQ(deciso(nota("TD04", "-200.00", "-1000.00", "-50.00")), atteso);
  EXPECT_EQ(deciso(nota("TD04", "200.00", "-1000.00", "-50.00")), atteso);
  EXPECT_EQ(deciso(nota("TD04", "-200.00", "1000.00", "50.00")), atteso);
  EXPECT_EQ(deciso(nota("TD01", "-200.00", "-1000.00", "-50.00")), atteso);
  EXPECT_EQ(codici(nota("TD04", "200.00", "1000.00", "50.00").compensi[0]), "R06");
  EXPECT_EQ(codici(nota("TD01", "-200.00", "-1000.00", "-50.00").compensi[0]), "R06");
  EXPECT_EQ(deciso(nota("TD04", "200.00", "1000.00", "-50.00")), "da decidere");
}

TEST(CompensiFattura, TheFundOfACreditNoteFollowsItsLines) {
  DocumentoProva una = documento({{"416.00"}}, {{"-2000.00"}}, {{"TC22", "80.00", true}});
  una.tipo = "TD04";
  EXPECT_EQ(deciso(esitoDi(una)), "-2080 quota 0 somme 0 acconto -416 imposta 0");
}

// ENASARCO in three encodings.

TEST(CompensiFattura, EnasarcoIsToldOnceAndNeverCounted) {
  const char* const atteso = "2505 quota 1252.5 somme 0 acconto 288.08 imposta 0";
  const RitenutaProva ritenuta{"288.08", "23.00", "S"};
  const RitenutaProva blocco{"212.93", "8.50", "ZO", "RT04"};
  LineaProva conDato{"2505.00"};
  conDato.altro =
      "<AltriDatiGestionali><TipoDato>CASSA-PREV</TipoDato><RiferimentoTesto>TC07 - ENASARCO (8,50%)"
      "</RiferimentoTesto><RiferimentoNumero>212.93</RiferimentoNumero></AltriDatiGestionali>";
  const CassaProva cassa{"TC07", "212.93", true};
  for (const DocumentoProva& uno :
       {documento({ritenuta, blocco}, {{"2505.00"}}), documento({ritenuta}, {conDato}),
        documento({ritenuta}, {{"2505.00"}}, {cassa}), documento({ritenuta, blocco}, {conDato}, {cassa})}) {
    const EsitoFattura esito = esitoDi(uno);
    EXPECT_EQ(deciso(esito), atteso);
    EXPECT_EQ(codici(esito.compensi.at(0)), "R08");
    EXPECT_NE(esito.compensi[0].rilievi[0].testo.find("212,93"), std::string::npos);
  }
}

// Contributions.

TEST(CompensiFattura, AnInpsContributionIsThePayeesThird) {
  const EsitoFattura esito =
      esitoDi(documento({{"200.00"}, {"114.10", "11.41", "ZO", "RT03"}}, {{"1000.00"}}));
  EXPECT_EQ(deciso(esito), "1000 quota 0 somme 0 acconto 200 imposta 0");
  const ImportiFattura& importi = esito.compensi[0].candidati[0].importi;
  EXPECT_EQ(importi.contributoPercipiente.toText(), "114.1");
  EXPECT_EQ(importi.contributoPrevidenziale.toText(), "342.3");
  EXPECT_TRUE(esito.compensi[0].contributoDerivato);
}

TEST(CompensiFattura, ATaxOfTheFeeWithoutItsContributionIsToBeDecided) {
  const EsitoFattura esito =
      esitoDi(documento({{"1771.80"}, {"1141.00", "11.41", "ZO", "RT03"}}, {{"10000.00"}}));
  EXPECT_EQ(deciso(esito), "da decidere");
  EXPECT_EQ(detti(esito.compensi[0].candidati.at(0).importi),
            "10000 quota 1141 somme 0 acconto 1771.8 imposta 0");
  EXPECT_EQ(spiegazione(esito),
            "compenso 10.000,00 - contributo INPS 1.141,00 = imponibile 8.859,00; ritenuta 1.771,80; "
            "contributo INPS "
            "1.141,00 del percipiente");
}

TEST(CompensiFattura, OtherContributionsAreToBeDecided) {
  for (const char* tipo : {"RT05", "RT06"}) {
    const EsitoFattura esito = esitoDi(documento({{"200.00"}, {"40.00", "4.00", "ZO", tipo}}, {{"1000.00"}}));
    EXPECT_EQ(deciso(esito), "da decidere") << tipo;
    EXPECT_EQ(codici(esito.compensi.at(0)), "R02");
  }
}

// Several taxes in one document.

TEST(CompensiFattura, SeveralReasonsOfLinesOfTheirOwnAreSeveralPayments) {
  const EsitoFattura esito =
      esitoDi(documento({{"200.00"}, {"250.00", "50.00", "I"}}, {{"1000.00"}, {"500.00"}, spesa("30.00")}));
  ASSERT_EQ(esito.compensi.size(), 2U);
  EXPECT_EQ(esito.compensi[0].causale + esito.compensi[1].causale, "AI");
  EXPECT_EQ(deciso(esito, 0), "1000 quota 0 somme 30 acconto 200 imposta 0");
  EXPECT_EQ(deciso(esito, 1), "500 quota 0 somme 0 acconto 250 imposta 0");
}

TEST(CompensiFattura, ASurchargeOfTheSecondPaymentIsNoDoubtOfTheFirst) {
  const EsitoFattura esito =
      esitoDi(documento({{"200.00"}, {"249.60", "20.00", "M"}}, {{"1000.00"}, {"700.00"}, {"500.00"}},
                        {{"TC22", "48.00", true}}));
  ASSERT_EQ(esito.compensi.size(), 2U);
  EXPECT_EQ(deciso(esito, 0), "1000 quota 0 somme 0 acconto 200 imposta 0");
  EXPECT_EQ(deciso(esito, 1), "1248 quota 0 somme 0 acconto 249.6 imposta 0");
}

TEST(CompensiFattura, OneReasonInSeveralBlocksIsOnePayment) {
  const EsitoFattura esito =
      esitoDi(documento({{"200.00"}, {"60.00", "30.00", "A"}}, {{"700.00"}, {"300.00"}, {"200.00"}}));
  ASSERT_EQ(esito.compensi.size(), 1U);
  EXPECT_EQ(deciso(esito), "1200 quota 0 somme 0 acconto 260 imposta 0");
}

TEST(CompensiFattura, TaxesOfTheSameFeeAreToBeDecided) {
  const EsitoFattura esito = esitoDi(documento({{"200.00"}, {"100.00", "10.00", "M"}}, {{"1000.00"}}));
  ASSERT_EQ(esito.compensi.size(), 2U);
  EXPECT_EQ(deciso(esito, 0) + deciso(esito, 1), "da decidereda decidere");
}

// Sellers and kinds of document.

TEST(CompensiFattura, AFlatRatePayeeWithATaxIsWarnedOf) {
  FileProva file;
  file.regime = "RF19";
  const EsitoFattura esito = esitoDi(file, parcella());
  EXPECT_FALSE(esito.forfettario);
  EXPECT_EQ(deciso(esito), "1000 quota 0 somme 0 acconto 200 imposta 0");
  EXPECT_EQ(codici(esito.compensi[0]), "R10");
}

TEST(CompensiFattura, AFlatRateCreditNoteIsNegative) {
  FileProva file;
  file.regime = "RF19";
  DocumentoProva nota = documento({}, {{"3000.00", false, "0.00", "N2.2"}}, {{"TC22", "120.00", false}});
  nota.tipo = "TD04";
  const EsitoFattura esito = esitoDi(file, nota);
  EXPECT_EQ(deciso(esito), "0 quota 0 somme -3120 acconto 0 imposta 0");
  EXPECT_EQ(codici(esito.compensi[0]), "R06");
}

TEST(CompensiFattura, TheTaxOfAForeignPayeeIsFinal) {
  FileProva file;
  file.paese = "DE";
  file.partitaIva = "123456789";
  file.codiceFiscale = "";
  file.nazione = "DE";
  EXPECT_EQ(deciso(esitoDi(file, documento({{"300.00", "30.00", "A"}}, {{"1000.00"}}))),
            "1000 quota 0 somme 0 acconto 0 imposta 300");
}

TEST(CompensiFattura, ASportsPaymentIsOnAccountOrFinal) {
  const EsitoFattura esito = esitoDi(documento({{"230.00", "23.00", "N"}}, {{"1000.00"}}));
  EXPECT_EQ(deciso(esito), "da decidere");
  ASSERT_EQ(esito.compensi[0].candidati.size(), 2U);
  EXPECT_EQ(detti(esito.compensi[0].candidati[1].importi), "1000 quota 0 somme 0 acconto 0 imposta 230");
}

TEST(CompensiFattura, LeavesOutOtherKindsOfDocumentWithTheirKind) {
  for (const char* tipo : {"TD07", "TD16", "TD17", "TD18", "TD19", "TD20", "TD21", "TD22", "TD23", "TD26",
                           "TD27", "TD28", "TD29"}) {
    DocumentoProva uno = parcella();
    uno.tipo = tipo;
    const EsitoFattura esito = esitoDi(uno);
    EXPECT_TRUE(esito.compensi.empty());
    EXPECT_EQ(esito.escluso.substr(0, 6), std::string(tipo) + ": ");
  }
  for (const char* tipo : {"TD02", "TD03", "TD05", "TD06", "TD24", "TD25"}) {
    DocumentoProva uno = parcella();
    uno.tipo = tipo;
    EXPECT_EQ(deciso(esitoDi(uno)), "1000 quota 0 somme 0 acconto 200 imposta 0") << tipo;
  }
  EXPECT_EQ(deciso(esitoDi(documento({}, {{"1000.00", false}}))),
            "nessun compenso: documento senza ritenuta");
}

TEST(CompensiFattura, AKindThatIsLeftOutIsSoWhateverIsWrongWithIt) {
  FileProva file;
  file.documenti = {parcella()};
  file.documenti[0].divisa = "USD";
  const auto di = [&] { return compensiDi(leggiFattura(fileXml(file), "prova.xml").fatture.at(0)); };
  EXPECT_EQ(di().escluso, "");
  EXPECT_TRUE(di().compensi.empty());
  file.documenti[0].tipo = "TD17";
  EXPECT_EQ(di().escluso, "TD17: autofattura o integrazione");
}

TEST(CompensiFattura, AnUnknownKindOfDocumentIsLookedAt) {
  DocumentoProva uno = parcella();
  uno.tipo = "TD99";
  const EsitoFattura esito = esitoDi(uno);
  EXPECT_EQ(esito.escluso, "");
  ASSERT_EQ(esito.rilievi.size(), 1U);
  EXPECT_EQ(esito.rilievi[0].codice, "R02");
}

TEST(CompensiFattura, AmountsBeyondTheRangeAreAMessage) {
  const EsitoFattura esito = esitoDi(documento({{"200.00"}}, {{"92000000000.00"}, {"92000000000.00"}}));
  ASSERT_EQ(esito.rilievi.size(), 1U);
  EXPECT_EQ(esito.rilievi[0].codice, "V03");
}

}  // namespace
}  // namespace cu::fatture
