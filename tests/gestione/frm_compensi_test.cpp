// The payments of a year and their editor: the accounts follow.

#include "gestione/frm_compensi.h"

#include <gmock/gmock.h>

#include "gestione/frm_pagamento.h"
#include "gestione/gestione_prova.h"
#include "schede/compensi.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

class FrmCompensiTest : public GestioneProva {
 protected:
  const schede::SchedaAzienda azienda_ = azienda();
  const schede::SchedaPercipiente rossi_ = percipiente(azienda_.id, "P001", "Rossi");

  static std::string conto(const char* colonna) {
    return primo(std::string("SELECT ") + colonna + " FROM ContoIndividuale");
  }
  void scriviPagamento(FrmPagamento& f, const char* onorario) {
    f.KrnCDPerc.chooseRecord(rossi_.anagrafica.id);
    f.KrnCDCausale.chooseRecord(1);
    scrivi(f.datPagamento, "20/03/2017");
    scrivi(f.ambOnorario, onorario);
  }
};

TEST_F(FrmCompensiTest, APaymentIsComputedWhileItIsTypedAndMakesItsAccount) {
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    EXPECT_EQ(f.datPagamento.text(), "31/12/2017");
    scriviPagamento(f, "1000");
    EXPECT_EQ(f.ambImponibile.text(), "1.000,00");
    EXPECT_EQ(f.ambRitenutaAcconto.text(), "200,00");
    EXPECT_EQ(f.ambNetto.text(), "800,00");
    scrivi(f.ambSommeNonSoggette, "2");
    EXPECT_EQ(f.ambLordo.text(), "1.002,00");
    clic(f.cmdOk);
  });
  ASSERT_TRUE(form.ultimo()) << ultimoBox();
  EXPECT_TRUE(schermo.boxes.empty());
  EXPECT_EQ(conto("OnorarioProvvigioni"), "1000");
  EXPECT_EQ(conto("RitenutaAcconto"), "200");
  EXPECT_EQ(conto("SommeNonSoggette"), "2");
}

TEST_F(FrmCompensiTest, AnEmptiedFigureIsComputedAgainWhenItIsLeft) {
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    scriviPagamento(f, "1000");
    scrivi(f.ambRitenutaAcconto, "150");
    scrivi(f.ambOnorario, "2000");
    EXPECT_EQ(f.ambRitenutaAcconto.text(), "150,00");
    EXPECT_EQ(f.lblAvvisi.caption(),
              "La ritenuta d'acconto non è il 20 % dell'imponibile: 150,00 invece di 400,00.");
    scrivi(f.ambRitenutaAcconto, "");
    f.setFocus(&f.ambOnorario);
    EXPECT_EQ(f.ambRitenutaAcconto.text(), "400,00");
    EXPECT_THAT(f.lblAvvisi.caption(), HasSubstr("si calcolano dal compenso"));
  });
}

TEST_F(FrmCompensiTest, AnUnusualTaxIsAskedAboutAndNeverAnError) {
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  schermo.answers = {Answer::No, Answer::Yes};
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    scriviPagamento(f, "1000");
    scrivi(f.ambRitenutaAcconto, "150");
    clic(f.cmdOk);
    EXPECT_TRUE(f.isOpen());
    EXPECT_THAT(ultimoBox(), HasSubstr("150,00 invece di 200,00"));
    clic(f.cmdOk);
  });
  EXPECT_TRUE(form.ultimo());
  EXPECT_EQ(conto("RitenutaAcconto"), "150");
}

TEST_F(FrmCompensiTest, APayeeIsFoundByCodeAndShownWithTheWholeName) {
  schede::SchedaPercipiente anna;
  anna.idAzienda = azienda_.id;
  anna.codice = "P007";
  anna.anagrafica.anagrafica = "Bianchi";
  anna.anagrafica.nome = "Anna";
  ASSERT_TRUE(contesto.registrazione().percipiente(std::nullopt, anna));
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    EXPECT_EQ(f.KrnCDPerc.findCode("P007")->description, "Bianchi Anna");
    EXPECT_EQ(f.KrnCDPerc.findCode("P001")->description, "Rossi");
    Recordset elenco;
    f.KrnCDPerc.list(elenco);
    ASSERT_EQ(elenco.RecordCount(), 2U);
    EXPECT_EQ(elenco.Get(2).text(), "Bianchi Anna");
  });
}

TEST_F(FrmCompensiTest, ATaxAboveTheBaseIsRejected) {
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    scriviPagamento(f, "100");
    scrivi(f.ambRitenutaAcconto, "150");
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Le ritenute 150,00 superano l'imponibile 100,00.");
    EXPECT_TRUE(f.isOpen());
  });
  EXPECT_EQ(quante("Compenso"), 0);
}

TEST_F(FrmCompensiTest, WhatIsMissingIsToldAtItsField) {
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Manca il percipiente.");
    EXPECT_EQ(f.focus(), &f.KrnCDPerc);
    f.KrnCDPerc.choose("P9", "");
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Nessun percipiente ha il codice «P9».");
    f.KrnCDPerc.choose("P001", "Verdi");
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Nessun percipiente ha il codice «P001» e si chiama «Verdi».");
    f.KrnCDPerc.choose("P001", "");
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Manca la causale.");
    f.KrnCDPerc.chooseRecord(rossi_.anagrafica.id);
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Manca la causale.");
    f.KrnCDCausale.chooseRecord(1);
    scrivi(f.datPagamento, "31/02/2017");
    clic(f.cmdOk);
    EXPECT_THAT(ultimoBox(), HasSubstr("non è una data"));
    EXPECT_EQ(f.focus(), &f.datPagamento);
  });
}

TEST_F(FrmCompensiTest, WhatStandsForNothingIsUnsavedWorkToo) {
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    EXPECT_EQ(f.unsavedWork(), "");
    scrivi(f.datDocumento, "31/02/2017");
    EXPECT_NE(f.unsavedWork(), "");
    scrivi(f.datDocumento, "");
    EXPECT_EQ(f.unsavedWork(), "");
    f.KrnCDPerc.choose("P9", "");
    EXPECT_NE(f.unsavedWork(), "");
  });
}

TEST_F(FrmCompensiTest, APayeeAbroadIsProposedAFinalTax) {
  const auto weber = percipiente(azienda_.id, "P002", "Weber", true);
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    scriviPagamento(f, "1000");
    f.KrnCDPerc.chooseRecord(weber.anagrafica.id);
    EXPECT_EQ(f.ambRitenutaAcconto.text(), "");
    EXPECT_EQ(f.ambRitenutaImposta.text(), "300,00");
  });
}

TEST_F(FrmCompensiTest, SeveralPaymentsAreWrittenInARow) {
  FrmPagamento form(contesto, azienda_.id, std::nullopt, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    scriviPagamento(f, "1000");
    clic(f.cmdAltro);
    EXPECT_TRUE(f.isOpen());
    EXPECT_EQ(f.KrnCDPerc.record(), 0);
    EXPECT_EQ(f.KrnCDCausale.record(), 1);
    EXPECT_EQ(f.ambOnorario.text(), "");
    EXPECT_EQ(f.datPagamento.text(), "20/03/2017");
    EXPECT_EQ(f.focus(), &f.KrnCDPerc);
    EXPECT_EQ(f.unsavedWork(), "");
    scriviPagamento(f, "500");
    clic(f.cmdOk);
  });
  EXPECT_EQ(quante("Compenso"), 2);
  EXPECT_EQ(conto("OnorarioProvvigioni"), "1500");
}

TEST_F(FrmCompensiTest, AChangeOfReasonMovesTheAmountsToAnotherAccount) {
  const auto primo = compenso(rossi_, "20/03/2017", 1000, 200);
  FrmPagamento form(contesto, azienda_.id, primo, 2017);
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    f.KrnCDCausale.chooseRecord(11);
    clic(f.cmdOk);
  });
  ASSERT_TRUE(form.ultimo()) << ultimoBox();
  EXPECT_EQ(quante("ContoIndividuale"), 1);
  EXPECT_EQ(conto("IDCausalePagamento"), "11");
}

TEST_F(FrmCompensiTest, AnAccountCorrectedByHandIsAskedAbout) {
  const auto primo = compenso(rossi_, "20/03/2017", 1000, 200);
  database().Execute("UPDATE ContoIndividuale SET RitenutaAcconto = 190");
  FrmPagamento form(contesto, azienda_.id, primo, 2017);
  schermo.answers = {Answer::No, Answer::Yes};
  apri<FrmPagamento>(form, [&](FrmPagamento& f) {
    scrivi(f.txtNumero, "7");
    clic(f.cmdOk);
    EXPECT_THAT(ultimoBox(), HasSubstr("sono stati corretti a mano"));
    EXPECT_TRUE(f.isOpen());
    EXPECT_EQ(conto("RitenutaAcconto"), "190");
    clic(f.cmdOk);
  });
  EXPECT_TRUE(form.ultimo());
  EXPECT_EQ(conto("RitenutaAcconto"), "200");
}

TEST_F(FrmCompensiTest, TheListSumsTheYearByPayeeAndReason) {
  const auto bianchi = percipiente(azienda_.id, "P002", "Bianchi");
  compenso(rossi_, "20/03/2017", 1000, 200);
  compenso(rossi_, "20/04/2017", 500, 100);
  compenso(bianchi, "20/05/2017", 100, 20);
  compenso(bianchi, "20/05/2016", 100, 20);
  FrmCompensi elenco(contesto, azienda_);
  apri<FrmCompensi>(elenco, [&](FrmCompensi& f) {
    EXPECT_EQ(f.cboAnno.text(), "2017");
    EXPECT_EQ(f.grdCompensi.rowCount(), 3U);
    ASSERT_EQ(f.grdTotali.rowCount(), 2U);
    EXPECT_EQ(f.grdTotali.rows()->Get("Percipiente").text(), "Bianchi");
    f.grdTotali.selectRow(2);
    EXPECT_EQ(f.grdTotali.rows()->Get("Compensi").integer(), 2);
    EXPECT_EQ(f.grdTotali.rows()->Get("Lordo").decimal(), Decimal::fromInteger(1500));
    EXPECT_EQ(f.lblTotale.caption(),
              "Per percipiente e causale. In tutto 3 compensi: lordo 1.600,00, imponibile 1.600,00, ritenute "
              "320,00, netto 1.280,00.");
    f.cboAnno.setRecord(2016);
    EXPECT_EQ(f.grdCompensi.rowCount(), 1U);
  });
}

TEST_F(FrmCompensiTest, DeletingTheLastPaymentDeletesItsAccount) {
  compenso(rossi_, "20/03/2017", 1000, 200);
  FrmCompensi elenco(contesto, azienda_);
  apri<FrmCompensi>(elenco, [&](FrmCompensi& f) {
    clic(f.cmdElimina);
    EXPECT_EQ(ultimoBox(), "Eliminare il compenso di Rossi, 20/03/2017, 1.000,00?");
    EXPECT_EQ(f.grdCompensi.rowCount(), 0U);
  });
  EXPECT_EQ(quante("Compenso"), 0);
  EXPECT_EQ(quante("ContoIndividuale"), 0);
}

TEST_F(FrmCompensiTest, AnAccountWithAdditionalDataIsKeptWithoutAmounts) {
  const auto solo = compenso(rossi_, "20/03/2017", 1000, 200);
  database().Execute(
      "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda) SELECT "
      "IDAnagrafica, IDCausalePagamento, Anno, IDAzienda FROM ContoIndividuale");
  EXPECT_TRUE(contesto.registrazione().togliCompenso(solo));
  EXPECT_EQ(conto("OnorarioProvvigioni"), "0");
}

TEST_F(FrmCompensiTest, AnAccountDoesNotBecomeNegative) {
  const auto grande = compenso(rossi_, "20/03/2017", 1000, 200);
  compenso(rossi_, "20/04/2017", -300, -60);
  const Result<> esito = contesto.registrazione().togliCompenso(grande);
  ASSERT_FALSE(esito);
  EXPECT_THAT(esito.refusals.front().text, HasSubstr("una somma diventa negativa"));
  EXPECT_EQ(quante("Compenso"), 2);
  EXPECT_EQ(conto("OnorarioProvvigioni"), "700");
}

TEST_F(FrmCompensiTest, AYearThatTheCompanyLacksIsAddedWithItsFirstPayment) {
  compenso(rossi_, "20/03/2014", 1000, 200);
  EXPECT_EQ(quante("PeriodoIva WHERE Anno = 2014"), 1);
  EXPECT_EQ(quante("AttivitaAziendaPerPeriodoIva"), 3);
}

TEST_F(FrmCompensiTest, WithoutPayeesNoPaymentIsOffered) {
  const Result<> tolto = contesto.registrazione().togliPercipiente(rossi_);
  ASSERT_TRUE(tolto);
  FrmCompensi elenco(contesto, azienda_);
  apri<FrmCompensi>(elenco, [&](FrmCompensi& f) {
    EXPECT_FALSE(f.cmdNuovo.available());
    EXPECT_EQ(f.lblStato.caption(), "Prima dei compensi servono i percipienti.");
  });
}

}  // namespace
}  // namespace cu::test
