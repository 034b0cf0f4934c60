#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "fatture/busta_prova_support.h"
#include "fatture_prova.h"

namespace cu::intake {
namespace {

using prova::Banco;
using prova::daRossi;
using prova::daVerdi;
using prova::FileProva;
using prova::giorno;
using prova::importaFatture;
using prova::numerata;
using prova::pianoDi;
using prova::xmlDi;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// A table's row of the invoice that parcella() is.
const std::string kTestaTabella =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;DataDocumento;Onorario;RitenutaAcconto\n";

TEST(IdentitaFatture, TheSameFilesTwiceAddNothing) {
  Banco banco(prova::riempito());
  const std::vector<std::string> file = {xmlDi(daRossi()), xmlDi(daVerdi())};
  ASSERT_THAT(importaFatture(banco, file), IsEmpty());
  const auto prima = banco.contenuto();
  const Piano ancora = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(ancora), "uguale uguale");
  EXPECT_THAT(Banco::messaggi(ancora), Contains("F08: il file è già stato importato").Times(2));
  EXPECT_TRUE(ancora.applicabile());
  EXPECT_FALSE(ancora.scrive());
  EXPECT_FALSE(banco.applica(ancora)->lotto);
  EXPECT_EQ(banco.contenuto(), prima);
}

TEST(IdentitaFatture, AnEnvelopeIsTheSameFileAsWhatItHolds) {
  Banco banco(prova::riempito());
  const std::string xml = xmlDi(daRossi());
  const std::string busta = fatture::prova::firmato(xml);
  const Piano insieme = pianoDi(banco, {busta, xml, fatture::prova::base64(busta)});
  EXPECT_EQ(Banco::stati(insieme), "nuovo");
  EXPECT_THAT(
      Banco::messaggi(insieme),
      Contains("F08: un altro file ha lo stesso contenuto: le sue righe si contano una volta sola").Times(2));
  ASSERT_THAT(importaFatture(banco, {busta}), IsEmpty());
  const Piano dopo = pianoDi(banco, {xml});
  EXPECT_EQ(Banco::stati(dopo), "uguale");
  EXPECT_THAT(Banco::messaggi(dopo), Contains("F08: il file è già stato importato"));
  EXPECT_EQ(storico(*banco, 1).back().file[0].sha256, prova::lette({busta})[0].sha256)
      << "the history has the file as it is";
}

TEST(IdentitaFatture, ADocumentInTwoFilesIsOnePayment) {
  Banco banco(prova::riempito());
  const std::string altro = xmlDi(daRossi()) + "<!-- riesportata -->\n";
  const Piano uguali = pianoDi(banco, {xmlDi(daRossi()), altro});
  EXPECT_EQ(Banco::stati(uguali), "nuovo uguale");
  EXPECT_THAT(Banco::messaggi(uguali), Contains("1: R03: già presente, uguale, in f1.xml"));
  FileProva diversa = daRossi();
  diversa.documenti[0].ritenute[0].importo = "100.00";
  diversa.documenti[0].linee[0].importo = "500.00";
  const Piano diverse = pianoDi(banco, {xmlDi(daRossi()), xmlDi(diversa)});
  EXPECT_EQ(Banco::stati(diverse), "nuovo errore");
  EXPECT_THAT(prova::codiciDi(diverse.righe[1]), HasSubstr("R04"));
}

TEST(IdentitaFatture, PaymentsFromTablesAreKnown) {
  Banco banco(prova::riempito());
  ASSERT_THAT(banco.importa(Elenco::Compensi, kTestaTabella + "P1;A;2017-04-02;12/a;2017-03-20;1000;200\n"
                                                              "P1;A;2017-07-02;44;2017-06-20;900;180\n"
                                                              "P1;A;2017-08-02;45;;1000;200\n"),
              IsEmpty());
  const std::vector<std::string> file = {xmlDi(daRossi()), xmlDi(daRossi(numerata("44", "2017-06-20"))),
                                         xmlDi(daRossi(numerata("45", "2017-07-20"))),
                                         xmlDi(daRossi(numerata("12/A", "2016-03-20")))};
  const Piano proposta = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(proposta), "uguale diverso uguale nuovo") << "a proposed date is no difference";
  EXPECT_THAT(prova::codiciDi(proposta.righe[1]), HasSubstr("R04"));
  EXPECT_FALSE(proposta.applicabile());
  banco.richiesta.fatture = {.fonte = FontePagamento::Giorno, .giorno = giorno(2017, 4, 2)};
  EXPECT_EQ(Banco::stati(pianoDi(banco, {file[0]})), "uguale");
  banco.richiesta.fatture.giorno = giorno(2017, 4, 3);
  EXPECT_EQ(Banco::stati(pianoDi(banco, {file[0]})), "diverso");
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  banco.richiesta.fatture.fonte = FontePagamento::Documento;
  ASSERT_THAT(importaFatture(banco, {file[1]}), IsEmpty());
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM Compenso WHERE NumeroDocumento = '44'"), "1000");
}

TEST(IdentitaFatture, ACreditNoteOfTheSameNumberIsAnotherDocument) {
  Banco banco(prova::riempito());
  FileProva nota = daRossi();
  nota.documenti[0].tipo = "TD04";
  nota.documenti[0].ritenute[0].importo = "60.00";
  nota.documenti[0].linee[0].importo = "300.00";
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi()), xmlDi(nota)})), "nuovo nuovo");
}

TEST(IdentitaFatture, AnInvoicePaidInPartsIsThereAlready) {
  Banco banco(prova::riempito());
  ASSERT_THAT(banco.importa(Elenco::Compensi, kTestaTabella + "P1;A;2017-04-02;12/A;2017-03-20;400;80\n"
                                                              "P1;A;2017-09-02;12/A;2017-03-20;600;120\n"),
              IsEmpty());
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi())})), "uguale");
  FileProva altra = daRossi();
  altra.documenti[0].ritenute[0].importo = "220.00";
  altra.documenti[0].linee[0].importo = "1100.00";
  const Piano piano = pianoDi(banco, {xmlDi(altra)});
  EXPECT_EQ(Banco::stati(piano), "errore");
  EXPECT_THAT(Banco::messaggi(piano), Contains(HasSubstr("R04: lo stesso documento è, con altri dati, in "
                                                         "archivio più volte")));
}

TEST(IdentitaFatture, PartsInTheTableOfDatesAreThoseOfTheDatabase) {
  Banco banco(prova::riempito());
  ASSERT_THAT(banco.importa(Elenco::Compensi, kTestaTabella + "P1;A;2017-04-02;12/A;2017-03-20;400;80\n"
                                                              "P1;A;2017-09-02;12/A;2017-03-20;600;120\n"),
              IsEmpty());
  OpzioniFatture& opzioni = banco.richiesta.fatture;
  opzioni.fonte = FontePagamento::Tavola;
  for (const Date pagata : {giorno(2017, 4, 2), giorno(2017, 9, 2)})
    opzioni.date.push_back({"P1", "", "", "12/A", giorno(2017, 3, 20), pagata});
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi())})), "uguale");
  FileProva altra = daRossi();
  altra.documenti[0].ritenute[0].importo = "220.00";
  altra.documenti[0].linee[0].importo = "1100.00";
  const Piano piano = pianoDi(banco, {xmlDi(altra)});
  EXPECT_EQ(Banco::stati(piano), "da decidere");
  EXPECT_THAT(Banco::messaggi(piano),
              Contains(HasSubstr("ha più pagamenti di questo documento: 02/04/2017")));
}

TEST(IdentitaFatture, AProposedDateDoesNotReplaceTheOneOfTheDatabase) {
  Banco banco(prova::riempito());
  ASSERT_THAT(banco.importa(Elenco::Compensi, kTestaTabella + "P1;A;2018-01-10;5;2017-12-20;900;180\n"),
              IsEmpty());
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  const std::vector<std::string> file = {xmlDi(daRossi(numerata("5", "2017-12-20")))};
  const Piano piano = pianoDi(banco, file);
  ASSERT_EQ(Banco::stati(piano), "diverso");
  EXPECT_EQ(piano.compensi[0].dopo.pagamento, giorno(2018, 1, 10));
  EXPECT_THAT(piano.righe[0].derivati,
              Not(Contains(static_cast<std::uint8_t>(ColonnaCompenso::DataPagamento))));
  EXPECT_THAT(Banco::messaggi(piano), Contains(HasSubstr("resta quella in archivio, 10/01/2018")));
  ASSERT_THAT(importaFatture(banco, file), IsEmpty());
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM Compenso WHERE NumeroDocumento = '5'"), "1000");
  // The year of a payment is that of the database too.
  banco.richiesta.anno = 2018;
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "uguale");
  banco.richiesta.anno = 2017;
  const Piano altroAnno = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(altroAnno), "escluso");
  EXPECT_THAT(Banco::messaggi(altroAnno), Contains(HasSubstr("pagato nel 2018, non nel 2017")));
}

TEST(IdentitaFatture, APaymentOfTheNextYearWithoutADocumentDateIsToBeDecided) {
  Banco banco(prova::riempito());
  ASSERT_THAT(banco.importa(Elenco::Compensi, kTestaTabella + "P1;A;2018-01-10;5;;1000;200\n"), IsEmpty());
  banco.richiesta.fatture.fonte = FontePagamento::Documento;
  const std::vector<std::string> file = {xmlDi(daRossi(numerata("5", "2017-12-20")))};
  const Piano piano = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(piano), "da decidere");
  EXPECT_THAT(Banco::messaggi(piano), Contains(HasSubstr("è pagato il 10/01/2018")));
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi(numerata("5", "2018-02-20")))})), "uguale");
  banco.richiesta.decisioni[{0, 0}].pagamento = giorno(2018, 1, 10);
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "uguale");
  banco.richiesta.decisioni[{0, 0}].pagamento = giorno(2017, 12, 28);
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "nuovo");
}

TEST(IdentitaFatture, ADebitNoteIsNotTheInvoiceOfItsNumber) {
  Banco banco(prova::riempito());
  FileProva nota = daRossi();
  nota.documenti[0].tipo = "TD05";
  const std::vector<std::string> file = {xmlDi(daRossi()), xmlDi(nota)};
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "nuovo nuovo");
  ASSERT_THAT(importaFatture(banco, {file[0]}), IsEmpty());
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  EXPECT_EQ(Banco::stati(pianoDi(banco, {file[1]})), "da decidere");
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "uguale nuovo");
  nota.documenti[0].ritenute[0].importo = "20.00";
  nota.documenti[0].linee[0].importo = "100.00";
  const Piano altra = pianoDi(banco, {xmlDi(nota)});
  EXPECT_EQ(Banco::stati(altra), "da decidere") << "it does not take the invoice's place";
  EXPECT_THAT(Banco::messaggi(altra), Contains(HasSubstr("questa nota di debito")));
  banco.richiesta.decisioni[{0, 0}].pagamento = giorno(2017, 3, 30);
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(nota)})), "nuovo");
  ASSERT_THAT(importaFatture(banco, {xmlDi(nota)}), IsEmpty());
  banco.richiesta.decisioni.clear();
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(nota)})), "uguale") << "the same file again";
}

TEST(IdentitaFatture, APaymentOfAnotherReasonGivesNoDate) {
  Banco banco(prova::riempito());
  ASSERT_THAT(banco.importa(Elenco::Compensi, kTestaTabella + "P1;A;2017-10-19;33;2017-09-29;1200;240\n"),
              IsEmpty());
  FileProva file = daRossi(numerata("33", "2017-09-29"));
  file.documenti[0].linee = {{"1200.00"}, {"1000.00"}};
  file.documenti[0].ritenute = {{"240.00", "20.00", "A"}, {"200.00", "20.00", "M"}};
  banco.richiesta.fatture.fonte = FontePagamento::Tavola;
  const Piano piano = pianoDi(banco, {xmlDi(file)});
  EXPECT_EQ(Banco::stati(piano), "uguale da decidere");
  EXPECT_THAT(prova::codiciDi(piano.righe[1]), HasSubstr("R12"));
  // Nor does one with other amounts.
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi(numerata("33", "2017-09-29")))})), "da decidere");
}

TEST(IdentitaFatture, WhatAPersonHasDecidedIsNotAskedAgain) {
  Banco banco(prova::riempito());
  FileProva file = daRossi();
  file.documenti[0].ritenute[0].importo = "190.00";
  schede::Importi importi{};
  importi[0] = Decimal::fromInteger(950);
  importi[4] = Decimal::fromInteger(190);
  banco.richiesta.decisioni[{0, 0}] = {.pagamento = giorno(2017, 5, 5), .importi = importi};
  ASSERT_THAT(importaFatture(banco, {xmlDi(file)}), IsEmpty());
  banco.richiesta.decisioni.clear();
  banco.richiesta.fatture.fonte = FontePagamento::Tavola;
  const Piano piano = pianoDi(banco, {xmlDi(file)});
  EXPECT_EQ(Banco::stati(piano), "uguale") << "neither the amounts nor the date";
  EXPECT_TRUE(piano.applicabile());
}

// The way back.

TEST(AnnullaFatture, TakesPaymentsAccountsAndNewPayeesBack) {
  Banco banco(prova::riempito());
  const auto prima = banco.contenuto();
  ASSERT_THAT(importaFatture(banco, {xmlDi(daRossi()), xmlDi(daVerdi()), xmlDi(daVerdi(numerata("13")))}),
              IsEmpty());
  EXPECT_NE(banco.contenuto(), prima);
  const std::int32_t lotto = storico(*banco, 1).back().id;
  const Result<Annullato> annullato = banco.annulla(lotto);
  ASSERT_TRUE(annullato);
  EXPECT_EQ(annullato->tolti, 3U);
  EXPECT_EQ(annullato->percipienti, 1U);
  EXPECT_EQ(banco.contenuto(), prima);
  EXPECT_EQ(Banco::stati(pianoDi(banco, {xmlDi(daRossi())})), "nuovo");
}

TEST(AnnullaFatture, APayeeThatOtherPaymentsNameStays) {
  Banco banco(prova::riempito());
  ASSERT_THAT(importaFatture(banco, {xmlDi(daVerdi())}), IsEmpty());
  const std::int32_t lotto = storico(*banco, 1).back().id;
  ASSERT_THAT(importaFatture(banco, {xmlDi(daVerdi(numerata("13")))}), IsEmpty());
  const auto prima = banco.contenuto();
  EXPECT_FALSE(banco.annulla(lotto));
  EXPECT_EQ(banco.contenuto(), prima);
  ASSERT_TRUE(banco.annulla(lotto + 1));
  ASSERT_TRUE(banco.annulla(lotto));
}

TEST(StoricoFatture, HasEachFileAndTheCounts) {
  Banco banco(prova::riempito());
  ASSERT_THAT(importaFatture(banco, {xmlDi(daRossi()), "<a:RicevutaConsegna xmlns:a=\"x\"/>"}), IsEmpty());
  const Lotto lotto = storico(*banco, 1).back();
  EXPECT_EQ(lotto.elenco, Elenco::Compensi);
  ASSERT_EQ(lotto.file.size(), 2U);
  EXPECT_EQ(lotto.file[0].nome, "f1.xml");
  EXPECT_EQ(lotto.conteggi[static_cast<std::size_t>(StatoRiga::Nuovo)], 1U);
  EXPECT_EQ(lotto.conteggi[static_cast<std::size_t>(StatoRiga::Escluso)], 1U);
}

TEST(StoricoFatture, IsReadAndUndoneWithoutTheTableOfContents) {
  Banco banco(prova::riempito());
  const auto prima = banco.contenuto();
  ASSERT_THAT(importaFatture(banco, {xmlDi(daVerdi())}), IsEmpty());
  banco->Execute("DROP TABLE CuImportazioneContenuto");
  EXPECT_FALSE(haStorico(*banco)) << "an import needs it";
  const std::vector<Lotto> lotti = storico(*banco, 1);
  ASSERT_FALSE(lotti.empty());
  EXPECT_TRUE(banco.annulla(lotti.back().id));
  EXPECT_EQ(banco.contenuto(), prima);
}

// Counts the statements that it forwards.
class ConnessioneContata : public Connection {
 public:
  explicit ConnessioneContata(Connection& altra) : altra_(altra) {}
  std::int64_t Execute(std::string_view istruzione) override {
    ++quante;
    return altra_.Execute(istruzione);
  }
  void Query(std::string_view domanda, RowStore& righe) override {
    ++quante;
    altra_.Query(domanda, righe);
  }
  std::size_t quante = 0;

 private:
  Connection& altra_;
};

struct Sforzo {
  std::size_t pianificare = 0;
  std::size_t scrivere = 0;
};

// The statements that some invoices of half as many new payees take.
Sforzo sforzo(int fatture) {
  Banco banco(prova::riempito());
  ConnessioneContata contata(*banco);
  test::OneConnectionHost host(contata);
  prova::accettaTutto(banco);
  banco.richiesta.fatture.fonte = FontePagamento::Documento;
  std::vector<std::string> file;
  for (int i = 0; i < fatture; ++i) {
    FileProva una = daVerdi(numerata(std::to_string(i)));
    una.codiceFiscale.clear();
    const std::string cifre = std::to_string(1000000 + i / 2);
    una.partitaIva = prova::ivaDi("055" + cifre);
    una.nome = "<Denominazione>Studio " + cifre + "</Denominazione>";
    file.push_back(xmlDi(una));
  }
  const Piano piano = pianifica(contata, prova::lette(file), banco.richiesta);
  EXPECT_EQ(piano.quante(StatoRiga::Nuovo), static_cast<std::size_t>(fatture));
  EXPECT_EQ(piano.percipienti.size(), static_cast<std::size_t>(fatture / 2));
  Sforzo esito{contata.quante, 0};
  RicostruzioneContiIndividuali ricostruzione;
  EXPECT_TRUE(applica(host, ricostruzione, piano, {.prova = true, .utente = "", .momento = ""}));
  esito.scrivere = contata.quante - esito.pianificare;
  return esito;
}

TEST(MolteFatture, NeedNoStatementForEach) {
  const Sforzo poche = sforzo(20);
  const Sforzo molte = sforzo(1000);
  EXPECT_EQ(molte.pianificare, poche.pianificare);
  // Each writes a payment and its line of the history, and its file; half of them a payee and an account.
  EXPECT_LT(molte.scrivere - poche.scrivere, 980U / 3);
}

}  // namespace
}  // namespace cu::intake
