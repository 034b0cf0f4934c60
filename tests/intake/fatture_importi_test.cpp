#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fatture_prova.h"

namespace cu::intake {
namespace {

using fatture::prova::CassaProva;
using fatture::prova::LineaProva;
using fatture::prova::RitenutaProva;
using prova::Banco;
using prova::daVerdi;
using prova::DocumentoProva;
using prova::FileProva;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

LineaProva anticipata(const std::string& importo, const char* che = "Spese anticipate art. 15") {
  return {importo, false, "0.00", "N1", che};
}

DocumentoProva documentoDi(std::vector<RitenutaProva> ritenute, std::vector<LineaProva> linee,
                           std::vector<CassaProva> casse = {}) {
  DocumentoProva documento;
  documento.ritenute = std::move(ritenute);
  documento.linee = std::move(linee);
  documento.casse = std::move(casse);
  return documento;
}

// The accounts of a payee who is new with this document, after its import.
std::vector<std::string> contiDopo(const FileProva& file) {
  Banco banco(prova::riempito());
  EXPECT_THAT(prova::importaFatture(banco, {prova::xmlDi(file)}), IsEmpty());
  return prova::contiDi(banco, prova::codiceDiVerdi());
}
std::vector<std::string> contiDopo(DocumentoProva documento) {
  return contiDopo(daVerdi(std::move(documento)));
}

// In the order of the amounts: fee, share not subject, sums not subject, those under a treaty, tax on
// account, final tax, contribution, the payee's part of it.

TEST(ImportiDiFatture, ProfessionalWithExpensesAndStamp) {
  EXPECT_THAT(
      contiDopo(documentoDi({{"1200.00"}},
                            {{"6000.00"}, anticipata("400.00"), anticipata("2.00", "Bollo addebitato")})),
      ElementsAre("A 2017: 6000 0 402 0 1200 0 0 0"));
}

TEST(ImportiDiFatture, ProfessionalWithInpsSurcharge) {
  EXPECT_THAT(contiDopo(documentoDi({{"416.00"}}, {{"2000.00"}}, {{"TC22", "80.00", true}})),
              ElementsAre("A 2017: 2080 0 0 0 416 0 0 0"));
}

TEST(ImportiDiFatture, ProfessionalWithAFund) {
  EXPECT_THAT(contiDopo(documentoDi({{"200.00"}}, {{"1000.00"}}, {{"TC02", "40.00", false}})),
              ElementsAre("A 2017: 1000 0 0 0 200 0 0 0"));
}

TEST(ImportiDiFatture, AgentsWithTheirShares) {
  EXPECT_THAT(contiDopo(documentoDi({{"288.08", "23.00", "S"}}, {{"2505.00"}})),
              ElementsAre("S 2017: 2505 1252.5 0 0 288.08 0 0 0"));
  EXPECT_THAT(contiDopo(documentoDi({{"131.74", "23.00", "R"}}, {{"2864.00"}})),
              ElementsAre("R 2017: 2864 2291.2 0 0 131.74 0 0 0"));
  EXPECT_THAT(contiDopo(documentoDi({{"718.75", "23.00", "R"}}, {{"6249.99"}})),
              ElementsAre("R 2017: 6249.99 3124.99 0 0 718.75 0 0 0"));
}

TEST(ImportiDiFatture, HomeSellerAndAuthor) {
  EXPECT_THAT(contiDopo(documentoDi({{"865.33", "23.00", "V"}}, {{"4823.45"}})),
              ElementsAre("V 2017: 4823.45 1061.16 0 0 0 865.33 0 0"));
  EXPECT_THAT(contiDopo(documentoDi({{"463.64", "20.00", "B"}}, {{"3090.90"}})),
              ElementsAre("B 2017: 2318.18 0 772.72 0 463.64 0 0 0"));
}

TEST(ImportiDiFatture, OccasionalWithExpenses) {
  EXPECT_THAT(contiDopo(documentoDi({{"710.00", "20.00", "M"}}, {{"3550.00"}, anticipata("177.88")})),
              ElementsAre("M 2017: 3550 0 177.88 0 710 0 0 0"));
}

TEST(ImportiDiFatture, FlatRatePayee) {
  FileProva file = daVerdi(documentoDi({}, {{"3000.00", false, "0.00", "N2.2"}, anticipata("400.00")}));
  file.regime = "RF19";
  Banco banco(prova::riempito());
  banco.richiesta.fatture.causaleForfettari = "A";
  prova::accettaTutto(banco);
  const Piano piano = prova::pianoDi(banco, {prova::xmlDi(file)});
  ASSERT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_THAT(piano.righe[0].spiegazioni, ::testing::Contains(HasSubstr("spese per 400,00")));
  ASSERT_TRUE(banco.applica(piano)->lotto);
  EXPECT_THAT(prova::contiDi(banco, prova::codiceDiVerdi()), ElementsAre("A 2017: 0 0 3400 0 0 0 0 0"));
}

TEST(ImportiDiFatture, APayeesThirdOfTheContributionGivesTheTotal) {
  Banco banco(prova::riempito());
  prova::accettaTutto(banco);
  const Piano piano = prova::pianoDi(
      banco, {prova::xmlDi(daVerdi(documentoDi({{"300.00", "20.00", "M"}, {"171.15", "11.41", "ZO", "RT03"}},
                                               {{"1500.00"}})))});
  ASSERT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_THAT(piano.righe[0].derivati,
              ::testing::Contains(static_cast<std::uint8_t>(ColonnaCompenso::ContributoPrevidenziale)));
  EXPECT_THAT(
      piano.righe[0].spiegazioni,
      ::testing::Contains("contributo previdenziale 513,45: tre volte la quota del percipiente, 171,15"));
  ASSERT_TRUE(banco.applica(piano)->lotto);
  EXPECT_THAT(prova::contiDi(banco, prova::codiceDiVerdi()),
              ElementsAre("M 2017: 1500 0 0 0 300 0 513.45 171.15"));
}

TEST(ImportiDiFatture, EnasarcoIsSaidOnceAndIsNoAmount) {
  DocumentoProva documento = documentoDi({{"288.08", "23.00", "S"}, {"212.93", "8.50", "ZO", "RT04"}},
                                         {{"2505.00"}}, {{"TC07", "212.93", true}});
  Banco banco(prova::riempito());
  prova::accettaTutto(banco);
  const Piano piano = prova::pianoDi(banco, {prova::xmlDi(daVerdi(documento))});
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "R08 R12");
  ASSERT_TRUE(banco.applica(piano)->lotto);
  EXPECT_THAT(prova::contiDi(banco, prova::codiceDiVerdi()),
              ElementsAre("S 2017: 2505 1252.5 0 0 288.08 0 0 0"));
}

TEST(ImportiDiFatture, CreditNotesReduceInAllSigns) {
  const DocumentoProva fattura = documentoDi({{"200.00"}}, {{"1000.00"}});
  DocumentoProva positiva = documentoDi({{"60.00"}}, {{"300.00"}});
  positiva.tipo = "TD04";
  positiva.numero = "1/NC";
  DocumentoProva negativa = documentoDi({{"-20.00"}}, {{"-100.00"}});
  negativa.tipo = "TD04";
  negativa.numero = "2/NC";
  DocumentoProva storno = documentoDi({{"-10.00"}}, {{"-50.00"}});
  storno.numero = "13/A";
  FileProva file = daVerdi(fattura);
  file.documenti = {fattura, positiva, negativa, storno};
  EXPECT_THAT(contiDopo(file), ElementsAre("A 2017: 550 0 0 0 110 0 0 0"));
  file.documenti = {positiva};
  Banco banco(prova::riempito());
  const Piano piano = prova::pianoDi(banco, {prova::xmlDi(file)});
  EXPECT_EQ(Banco::stati(piano), "errore");
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "R06 R12 A01");
}

TEST(ImportiDiFatture, SeveralReasonsAndDocumentsAreSeveralPayments) {
  FileProva file = daVerdi(documentoDi({{"200.00"}, {"150.00", "20.00", "B"}},
                                       {{"1000.00"}, {"750.00", true, "22.00", "", "Testi"}}));
  file.documenti.push_back(prova::numerata("13/A"));
  EXPECT_THAT(contiDopo(file), ElementsAre("A 2017: 2000 0 0 0 400 0 0 0", "B 2017: 750 0 0 0 150 0 0 0"));
}

TEST(ImportiDiFatture, APayeeAbroadHasAFinalTax) {
  FileProva file = daVerdi(documentoDi({{"300.00", "30.00", "A"}}, {{"1000.00"}}));
  file.nazione = "DE";
  Banco banco(prova::riempito());
  EXPECT_THAT(prova::importaFatture(banco, {prova::xmlDi(file)}), IsEmpty());
  EXPECT_THAT(prova::contiDi(banco, prova::codiceDiVerdi()), ElementsAre("A 2017: 1000 0 0 0 0 300 0 0"));
  EXPECT_EQ(banco.uno("SELECT NonResidente FROM Percipiente P INNER JOIN Anagrafica A ON P.IDAnagrafica ="
                      " A.IDAnagrafica WHERE A.Anagrafica = 'Verdi'"),
            "1");
}

struct CasoDubbio {
  const char* nome;
  DocumentoProva documento;
  const char* codici;
  const char* testo;
};

TEST(ImportiDiFatture, WhatNothingExplainsIsLeftToAPersonWithTheCandidates) {
  const std::vector<CasoDubbio> casi = {
      {"no base", documentoDi({{"190.00"}}, {{"1000.00"}}), "R02 R12",
       "nessuna parte del documento dà la ritenuta di 190,00; possibile: compenso 1.000,00 = imponibile "
       "1.000,00; 20 % = 200,00, nel documento 190,00"},
      {"surcharge", documentoDi({{"400.00"}}, {{"2000.00"}}, {{"TC22", "80.00", false}}), "R02 R12",
       "oppure: compenso 2.000,00 + rivalsa INPS 80,00 = imponibile 2.080,00; 20 % = 416,00"},
      {"ENPAM", documentoDi({{"200.00"}, {"50.00", "5.00", "A", "RT05"}}, {{"1000.00"}}), "R02 R12",
       "il contributo RT05 di 50,00 è da attribuire"},
      {"other fund", documentoDi({{"200.00"}, {"50.00", "5.00", "A", "RT06"}}, {{"1000.00"}}), "R02 R12",
       "il contributo RT06 di 50,00 è da attribuire"},
  };
  for (const CasoDubbio& caso : casi) {
    Banco banco(prova::riempito());
    const Piano piano = prova::pianoDi(banco, {prova::xmlDi(daVerdi(caso.documento))});
    EXPECT_EQ(Banco::stati(piano), "da decidere") << caso.nome;
    EXPECT_EQ(prova::codiciDi(piano.righe[0]), caso.codici) << caso.nome;
    EXPECT_THAT(Banco::messaggi(piano), ::testing::Contains(HasSubstr(caso.testo))) << caso.nome;
    EXPECT_FALSE(piano.applicabile()) << caso.nome;
  }
}

TEST(ImportiDiFatture, TheArithmeticIsSaidInWords) {
  Banco banco(prova::riempito());
  const Piano piano = prova::pianoDi(
      banco,
      {prova::xmlDi(prova::daRossi(documentoDi({{"416.00"}}, {{"2000.00"}}, {{"TC22", "80.00", true}})))});
  EXPECT_THAT(piano.righe[0].spiegazioni,
              ElementsAre("compenso 2.000,00 + rivalsa INPS 80,00 = imponibile 2.080,00; 20 % = 416,00"));
}

}  // namespace
}  // namespace cu::intake
