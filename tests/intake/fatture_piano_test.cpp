#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fatture_prova.h"

namespace cu::intake {
namespace {

using prova::Banco;
using prova::daRossi;
using prova::daVerdi;
using prova::DocumentoProva;
using prova::FileProva;
using prova::giorno;
using prova::numerata;
using prova::parcella;
using prova::pianoDi;
using prova::xmlDi;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

FileProva forfettaria(const std::string& data) {
  FileProva file = daVerdi(numerata("5", data));
  file.documenti[0].ritenute.clear();
  file.documenti[0].linee = {{"3000.00", false, "0.00", "N2.2"}};
  file.regime = "RF19";
  return file;
}

// Whose document it is.

TEST(PianoFatture, OneToAnotherCompanyIsAnErrorOrLeftOut) {
  Banco banco(prova::riempito());
  const std::vector<std::string> file = {xmlDi(daRossi(), "01234560157"), xmlDi(daRossi(numerata("2")))};
  const Piano piano = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(piano), "errore nuovo");
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "F06");
  EXPECT_THAT(Banco::messaggi(piano), Contains(HasSubstr("Azienda Prova, 01234560157")));
  banco.richiesta.fatture.tralasciaAltrui = true;
  const Piano senza = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(senza), "escluso nuovo");
  EXPECT_TRUE(senza.applicabile());
}

TEST(PianoFatture, OneToAnotherCompanyIsSaidToBeThatWithoutTaxToo) {
  Banco banco(prova::riempito());
  FileProva senza = daRossi();
  senza.documenti[0].ritenute.clear();
  const Piano piano = pianoDi(banco, {xmlDi(senza, "01234560157"), xmlDi(senza)});
  EXPECT_EQ(Banco::stati(piano), "errore escluso");
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "F06");
  banco.richiesta.fatture.tralasciaAltrui = true;
  EXPECT_TRUE(pianoDi(banco, {xmlDi(senza, "01234560157"), xmlDi(senza)}).applicabile());
}

TEST(PianoFatture, OneThatTheCompanyIssuedIsLeftOutWhateverIsWrongWithIt) {
  Banco banco(prova::riempito());
  FileProva file = daRossi();
  file.codiceFiscale = "12345670017";
  file.partitaIva = "12345670017";
  file.nome = "<Denominazione>Esempio S.r.l.</Denominazione>";
  file.documenti[0].divisa = "USD";
  const Piano piano = pianoDi(banco, {xmlDi(file, "00743110157")});
  EXPECT_EQ(Banco::stati(piano), "escluso");
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "F07");
  EXPECT_TRUE(piano.applicabile());
}

TEST(PianoFatture, TheFiscalCodeDecidesWithinAVatGroup) {
  Banco banco(prova::riempito());
  std::string xml = xmlDi(daRossi());
  const std::string prima = "<IdCodice>12345670017</IdCodice></IdFiscaleIVA>";
  const std::size_t dove = xml.rfind(prima);
  xml.insert(dove + prima.size(), "<CodiceFiscale>01234560157</CodiceFiscale>");
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xml}).righe[0]), "F06");
}

// Who is paid.

TEST(PianoFatture, APayeeIsFoundByTheFiscalCode) {
  Banco banco(prova::riempito());
  const Piano piano = pianoDi(banco, {xmlDi(daRossi())});
  ASSERT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_THAT(piano.percipienti, IsEmpty());
  EXPECT_EQ(piano.percipiente(piano.compensi[0].dopo.idAnagrafica)->codice, "P1");
}

TEST(PianoFatture, ANewPayeeIsProposedWithWhatTheInvoiceAndTheCodeGive) {
  Banco banco(prova::riempito());
  const Piano piano = pianoDi(banco, {xmlDi(daVerdi())});
  ASSERT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "R12");
  EXPECT_EQ(piano.righe[0].percipienteNuovo, 0U);
  EXPECT_THAT(piano.righe[0].spiegazioni,
              Contains("percipiente nuovo: Verdi Anna, " + prova::codiceDiVerdi() +
                       "; dal codice fiscale: sesso F, nascita 12/04/1975, luogo di nascita Milano"));
  ASSERT_TRUE(banco.applica(piano)->lotto);
  const std::string dove =
      " FROM Anagrafica A INNER JOIN Percipiente P ON P.IDAnagrafica = A.IDAnagrafica LEFT JOIN Comune C ON"
      " A.IDComune = C.IDComune WHERE A.Anagrafica = 'Verdi'";
  for (const auto& [colonna, valore] :
       std::vector<std::pair<std::string, std::string>>{{"P.Codice", "P3"},
                                                        {"A.Nome", "Anna"},
                                                        {"A.PartitaIva", prova::ivaDi("0555444333")},
                                                        {"A.Sesso", "F"},
                                                        {"A.Indirizzo", "Via Roma 1"},
                                                        {"A.Cap", "20100"},
                                                        {"C.Comune", "Milano"}}) {
    EXPECT_EQ(banco.uno("SELECT " + colonna + dove), valore) << colonna;
  }
}

TEST(PianoFatture, ANewPayeeOfSeveralInvoicesIsInsertedOnce) {
  Banco banco(prova::riempito());
  FileProva soloIva = daVerdi(numerata("2"));
  soloIva.codiceFiscale.clear();
  const auto quanti = banco.quante("Percipiente");
  ASSERT_THAT(prova::importaFatture(
                  banco, {xmlDi(soloIva), xmlDi(daVerdi(numerata("1"))), xmlDi(daVerdi(numerata("3")))}),
              IsEmpty());
  EXPECT_EQ(banco.quante("Percipiente"), quanti + 1);
  EXPECT_THAT(prova::contiDi(banco, prova::codiceDiVerdi()), ElementsAre("A 2017: 3000 0 0 0 600 0 0 0"));
}

TEST(PianoFatture, APayeeWhosePaymentsAreLeftOutIsNotWritten) {
  Banco banco(prova::riempito());
  banco.richiesta.anno = 2017;
  const auto quanti = banco.quante("Percipiente");
  ASSERT_THAT(prova::importaFatture(banco, {xmlDi(daRossi()), xmlDi(daVerdi(numerata("1", "2016-05-05")))}),
              IsEmpty());
  EXPECT_EQ(banco.quante("Percipiente"), quanti);
}

TEST(PianoFatture, AVatNumberAloneIsAKeyWhereItNamesOnePayee) {
  Banco banco(prova::riempito());
  FileProva file = daRossi();
  file.codiceFiscale.clear();
  banco->Execute("UPDATE Anagrafica SET PartitaIva = '" + file.partitaIva +
                 "' WHERE CodiceFiscale = 'RSSMRA80A01H501U'");
  EXPECT_THAT(pianoDi(banco, {xmlDi(file)}).percipienti, IsEmpty());
  // The number of another payee, whose fiscal code is not the seller's, is no key.
  FileProva altro = daVerdi();
  altro.partitaIva = file.partitaIva;
  const Piano piano = pianoDi(banco, {xmlDi(altro)});
  EXPECT_EQ(piano.percipienti.size(), 1U);
  banco->Execute("UPDATE Anagrafica SET PartitaIva = '" + file.partitaIva +
                 "' WHERE CodiceFiscale = '00743110157'");
  const Piano dubbio = pianoDi(banco, {xmlDi(file)});
  EXPECT_EQ(Banco::stati(dubbio), "da decidere");
  EXPECT_EQ(prova::codiciDi(dubbio.righe[0]), "P09 R12");
  EXPECT_EQ(dubbio.righe[0].candidati.size(), 2U);
  banco.richiesta.decisioni[{0, 0}].idAnagrafica = dubbio.righe[0].candidati[0].id;
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(file)})), "nuovo");
}

TEST(PianoFatture, KeysThatMeanTwoPayeesAreAnErrorAndANameIsNoKey) {
  Banco banco(prova::riempito());
  banco->Execute("UPDATE Anagrafica SET CodiceFiscale = NULL, PartitaIva = '" + daRossi().partitaIva +
                 "' WHERE CodiceFiscale = '00743110157'");
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(daRossi())}).righe[0]), "P10 R12");
  FileProva omonimo = daRossi();
  omonimo.codiceFiscale.clear();
  omonimo.partitaIva = prova::ivaDi("0333222111");
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(omonimo)}).righe[0]), "R12 P09");
  banco.richiesta.decisioni[{0, 0}].nuovoPercipiente = true;
  banco.richiesta.fatture.fonte = FontePagamento::Documento;
  const Piano nuovo = pianoDi(banco, {xmlDi(omonimo)});
  EXPECT_EQ(Banco::stati(nuovo), "nuovo");
  EXPECT_THAT(prova::codiciDi(nuovo.righe[0]), HasSubstr("P11")) << "nothing is known of the birth";
}

TEST(PianoFatture, WhatIsWrongWithAPayeeCountsOnlyForANewOne) {
  Banco banco(prova::riempito());
  FileProva file = daVerdi();
  file.codiceFiscale = "VERDI";
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(file)}).righe[0]), "R12 P01");
  file.codiceFiscale = prova::codiceDiVerdi();
  file.nome = "<Nome>Anna</Nome><Cognome>Bianchi</Cognome>";
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(file)}).righe[0]), "R12 P03");
  file = daRossi();
  file.nome = "<Nome>Anna</Nome><Cognome>Bianchi</Cognome>";
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(file)}).righe[0]), "R12");
  std::string xml = xmlDi(daVerdi());
  xml.replace(xml.find("<Comune>Milano"), 14, "<Comune>Frazione Alta");
  const Piano piano = pianoDi(banco, {xml});
  EXPECT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_THAT(Banco::messaggi(piano), Contains(HasSubstr("P11 Comune: percipiente nuovo Verdi Anna")));
}

// When it was paid, and what follows from the year.

TEST(PianoFatture, ADateOfPaymentIsNeverGuessed) {
  Banco banco(prova::riempito());
  const auto stato = [&](const OpzioniFatture& opzioni) {
    banco.richiesta.fatture = opzioni;
    const Piano piano = pianifica(*banco, prova::lette({xmlDi(daRossi())}), banco.richiesta);
    const std::string codici = prova::codiciDi(piano.righe[0]);
    if (piano.righe[0].voce == kSenzaVoce) return Banco::stati(piano) + " " + codici;
    return Banco::stati(piano) + " " + codici + piano.compensi[0].dopo.pagamento.toItalian();
  };
  EXPECT_EQ(stato({}), "da decidere R12");
  EXPECT_EQ(stato({.fonte = FontePagamento::Documento}), "nuovo R1220/03/2017");
  EXPECT_EQ(stato({.fonte = FontePagamento::Giorno, .giorno = giorno(2017, 4, 1)}), "nuovo 01/04/2017");
  OpzioniFatture tavola{.fonte = FontePagamento::Tavola};
  EXPECT_EQ(stato(tavola), "da decidere R12");
  tavola.date = {{"P1", "", "", "12/a", giorno(2017, 3, 20), giorno(2017, 5, 2)}};
  EXPECT_EQ(stato(tavola), "nuovo 02/05/2017");
  tavola.date = {{"", "rssmra80a01h501u", "", "12/A", Date(), giorno(2017, 5, 3)}};
  EXPECT_EQ(stato(tavola), "nuovo 03/05/2017");
  tavola.date.push_back({"", "RSSMRA80A01H501U", "", "12/A", Date(), giorno(2017, 6, 3)});
  EXPECT_EQ(stato(tavola), "da decidere R12");
  tavola.date = {{"", "", daRossi().partitaIva, "12/A", giorno(2016, 3, 20), giorno(2017, 5, 2)}};
  EXPECT_EQ(stato(tavola), "da decidere R12") << "of another document";
  banco.richiesta.decisioni[{0, 0}].pagamento = giorno(2018, 1, 8);
  EXPECT_EQ(stato({}), "nuovo 08/01/2018");
  // A date typed for the document goes before the table's, and says so where they differ.
  tavola.date = {{"P1", "", "", "12/A", giorno(2017, 3, 20), giorno(2018, 1, 8)}};
  EXPECT_EQ(stato(tavola), "nuovo 08/01/2018");
  tavola.date = {{"P1", "", "", "12/A", giorno(2017, 3, 20), giorno(2017, 5, 2)}};
  EXPECT_EQ(stato(tavola), "nuovo R1208/01/2018");
}

TEST(PianoFatture, ARowOfDatesWithAnotherFiscalCodeIsNotFoundByTheVatNumber) {
  Banco banco(prova::riempito());
  OpzioniFatture& tavola = banco.richiesta.fatture;
  tavola = {.fonte = FontePagamento::Tavola};
  const std::string iva = daRossi().partitaIva;
  tavola.date = {{"", prova::codiceDiVerdi(), iva, "12/A", giorno(2017, 3, 20), giorno(2017, 5, 2)}};
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi())})), "da decidere");
  tavola.date.push_back({"", "RSSMRA80A01H501U", iva, "12/A", giorno(2017, 3, 20), giorno(2017, 6, 2)});
  const Piano piano = pianoDi(banco, {xmlDi(daRossi())});
  ASSERT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_EQ(piano.compensi[0].dopo.pagamento, giorno(2017, 6, 2));
  tavola.date = {{"", "", iva, "12/A", giorno(2017, 3, 20), giorno(2017, 7, 2)}};
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi())})), "nuovo") << "a row without a fiscal code";
}

TEST(PianoFatture, ARowOfDatesWithoutDocumentDateMeansOneDocumentOnly) {
  Banco banco(prova::riempito());
  OpzioniFatture& tavola = banco.richiesta.fatture;
  tavola = {.fonte = FontePagamento::Tavola};
  tavola.date = {{"P1", "", "", "7", Date(), giorno(2017, 9, 2)}};
  const std::vector<std::string> file = {xmlDi(daRossi(numerata("7", "2016-03-20"))),
                                         xmlDi(daRossi(numerata("7", "2017-03-20")))};
  const Piano due = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(due), "da decidere da decidere");
  EXPECT_THAT(Banco::messaggi(due), Contains(HasSubstr("vale per 2 documenti con questo numero")).Times(2));
  EXPECT_EQ(Banco::stati(pianoDi(banco, {file[1]})), "nuovo");
  tavola.date.push_back({"", "RSSMRA80A01H501U", "", "7", giorno(2016, 3, 20), giorno(2016, 4, 2)});
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "nuovo nuovo") << "one of them has a row of its own";
}

TEST(PianoFatture, ADateOfPaymentIsNoLaterThanToday) {
  Banco banco(prova::riempito());
  banco.richiesta.fatture = {.fonte = FontePagamento::Giorno, .giorno = giorno(2018, 3, 6)};
  const Piano domani = pianoDi(banco, {xmlDi(daRossi())});
  EXPECT_EQ(Banco::stati(domani), "errore");
  EXPECT_THAT(Banco::messaggi(domani),
              Contains(HasSubstr("V01 DataPagamento: la data di pagamento 06/03/2018 è dopo oggi")));
  banco.richiesta.fatture.giorno = giorno(2018, 3, 5);
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(daRossi())}).righe[0]), "");
  banco.richiesta.fatture.giorno = giorno(2017, 3, 1);
  const Piano prima = pianoDi(banco, {xmlDi(daRossi())});
  EXPECT_EQ(Banco::stati(prima), "nuovo");
  EXPECT_THAT(Banco::messaggi(prima),
              Contains(HasSubstr("01/03/2017 è prima di quella del documento, 20/03/2017")));
  banco.richiesta.fatture.giorno = giorno(2016, 3, 18);
  const Piano molto = pianoDi(banco, {xmlDi(daRossi())});
  EXPECT_EQ(Banco::stati(molto), "errore");
  EXPECT_THAT(
      Banco::messaggi(molto),
      Contains(HasSubstr("V01 DataPagamento: la data di pagamento 18/03/2016 è più di un anno prima di "
                         "quella del documento, 20/03/2017")));
}

TEST(PianoFatture, PaymentsOfOtherYearsAreLeftOut) {
  Banco banco(prova::riempito());
  banco.richiesta.anno = 2017;
  const Piano piano =
      pianoDi(banco, {xmlDi(daRossi(numerata("1", "2016-12-30"))), xmlDi(daRossi(numerata("2")))});
  EXPECT_EQ(Banco::stati(piano), "escluso nuovo");
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "R12 R05");
}

TEST(PianoFatture, AReasonOfAnotherYearIsAWarning) {
  Banco banco(prova::riempito());
  FileProva file = daRossi();
  file.documenti[0].ritenute[0].causale = "Z";
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(file)}).righe[0]), "R12 R11");
  banco.richiesta.fatture.causali = {{"Z", "ZO"}};
  const Piano piano = pianoDi(banco, {xmlDi(file)});
  EXPECT_EQ(prova::codiciDi(piano.righe[0]), "R12");
  EXPECT_THAT(piano.righe[0].spiegazioni, Contains("causale ZO dalla mappatura, nel documento Z"));
  banco.richiesta.fatture.causali = {{"Z", "QQ"}};
  EXPECT_THAT(Banco::messaggi(pianoDi(banco, {xmlDi(file)})), Contains(HasSubstr("V05 Causale: QQ")));
}

TEST(PianoFatture, AFlatRateSellerNeedsAReasonAndIsCertifiedUpTo2023) {
  Banco banco(prova::riempito());
  const Piano senza = pianoDi(banco, {xmlDi(forfettaria("2017-05-05"))});
  EXPECT_EQ(Banco::stati(senza), "da decidere");
  EXPECT_EQ(prova::codiciDi(senza.righe[0]), "R12 R02");
  banco.richiesta.oggi = giorno(2026, 3, 5);
  banco.richiesta.fatture.causaliPercipienti[prova::codiceDiVerdi()] = "M";
  banco.richiesta.fatture.causaleForfettari = "A";
  const Piano con = pianoDi(banco, {xmlDi(forfettaria("2023-05-05")), xmlDi(forfettaria("2024-01-02"))});
  EXPECT_EQ(Banco::stati(con), "nuovo escluso");
  EXPECT_EQ(con.conti[0].causale, "M");
  EXPECT_EQ(con.righe[1].esclusa,
            "percipiente in regime RF19: i compensi pagati dal 2024 non si certificano");
  banco.richiesta.fatture.causaliPercipienti.clear();
  banco.richiesta.decisioni[{0, 0}].causale = "O";
  EXPECT_EQ(pianoDi(banco, {xmlDi(forfettaria("2023-05-05"))}).conti[0].causale, "O");
  FileProva conRitenuta = daRossi();
  conRitenuta.regime = "RF19";
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(conRitenuta)}).righe[0]), "R10 R12");
  conRitenuta.documenti[0].data = "2024-05-05";
  const Piano dal2024 = pianoDi(banco, {xmlDi(conRitenuta)});
  EXPECT_EQ(Banco::stati(dal2024), "nuovo");
  EXPECT_FALSE(dal2024.applicabile()) << "until it is accepted";
  EXPECT_THAT(Banco::messaggi(dal2024), Contains(HasSubstr("dal 2024 il suo compenso si certifica solo")));
}

TEST(PianoFatture, TheReasonOfADocumentIsNotReplacedByTheHabitualOne) {
  Banco banco(prova::riempito());
  banco.richiesta.fatture.causaliPercipienti["P1"] = "M";
  const Piano piano = pianoDi(banco, {xmlDi(daRossi())});
  ASSERT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_EQ(piano.conti[0].causale, "A");
  EXPECT_THAT(piano.righe[0].spiegazioni, Contains("causale A del documento; nella mappatura M"));
}

TEST(PianoFatture, ADocumentThatGivesNoPaymentIsAskedForNoReason) {
  Banco banco(prova::riempito());
  FileProva file = daRossi();
  file.documenti[0].tipo = "TD99";
  EXPECT_EQ(prova::codiciDi(pianoDi(banco, {xmlDi(file)}).righe[0]), "R02 R12");
}

// What a person decides.

TEST(PianoFatture, AChosenProposalOrTypedAmountsArePlanned) {
  Banco banco(prova::riempito());
  FileProva file = daRossi();
  file.documenti[0].ritenute[0].importo = "400.00";
  file.documenti[0].linee[0].importo = "2000.00";
  file.documenti[0].casse = {{"TC22", "80.00", false}};
  banco.richiesta.fatture.fonte = FontePagamento::Documento;
  banco.richiesta.decisioni[{0, 0}].proposta = 1;
  const Piano scelta = pianoDi(banco, {xmlDi(file)});
  EXPECT_EQ(Banco::stati(scelta), "nuovo");
  EXPECT_EQ(scelta.compensi[0].dopo.importi[0], Decimal::fromInteger(2080));
  EXPECT_EQ(scelta.righe[0].messaggi[0].gravita, Gravita::Informazione);
  schede::Importi importi{};
  importi[0] = Decimal::fromInteger(2000);
  importi[4] = Decimal::fromInteger(400);
  banco.richiesta.decisioni[{0, 0}] = {.importi = importi};
  const Piano scritta = pianoDi(banco, {xmlDi(file)});
  EXPECT_EQ(Banco::stati(scritta), "nuovo");
  EXPECT_EQ(scritta.compensi[0].dopo.importi, importi);
  banco.richiesta.decisioni[{0, 0}] = {.esclusa = true};
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(file)})), "escluso");
}

}  // namespace
}  // namespace cu::intake
