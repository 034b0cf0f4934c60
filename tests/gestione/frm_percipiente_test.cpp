// The editor of a payee, and the list of payees.

#include "gestione/frm_percipiente.h"

#include <gmock/gmock.h>

#include "gestione/frm_percipienti.h"
#include "gestione/gestione_prova.h"
#include "schede/percipienti.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

class FrmPercipienteTest : public GestioneProva {
 protected:
  const schede::SchedaAzienda azienda_ = azienda();
  std::optional<schede::SchedaPercipiente> scritto(std::int32_t id) {
    return schede::Percipienti(database(), azienda_.id).cerca(id);
  }
};

TEST_F(FrmPercipienteTest, TheFiscalCodeFillsSexAndBirthAndSaysSo) {
  FrmPercipiente form(contesto, azienda_.id, std::nullopt, "P001");
  apri<FrmPercipiente>(form, [&](FrmPercipiente& f) {
    scrivi(f.txtCodiceFiscale, "rssmra80a01h501u");
    EXPECT_EQ(f.lblCodiceFiscale.caption(), "Codice di un uomo nato il 01/01/1980 a Roma (RM).");
    EXPECT_EQ(f.cboSesso.text(), "M - Maschio");
    EXPECT_EQ(f.cboSesso.caption(), "Sesso (dal codice fiscale)");
    EXPECT_EQ(f.datNascita.text(), "01/01/1980");
    EXPECT_EQ(f.TownComuneNascita.text(), "Roma");
    EXPECT_EQ(f.cboNazioneNascita.text(), "Italia");
    scrivi(f.txtCognome, "Rossi");
    scrivi(f.txtNome, "Mario");
    clic(f.cmdOk);
  });
  ASSERT_TRUE(form.OK()) << ultimoBox();
  const auto percipiente = scritto(form.idAnagrafica());
  ASSERT_TRUE(percipiente);
  EXPECT_EQ(percipiente->codice, "P001");
  EXPECT_EQ(percipiente->anagrafica.codiceFiscale, "RSSMRA80A01H501U");
  EXPECT_EQ(percipiente->anagrafica.sesso, "M");
  EXPECT_EQ(percipiente->anagrafica.idComuneNascita, comune("Roma"));
}

TEST_F(FrmPercipienteTest, WhatTheUserWroteIsNotDerivedAgain) {
  FrmPercipiente form(contesto, azienda_.id, std::nullopt, "P001");
  apri<FrmPercipiente>(form, [&](FrmPercipiente& f) {
    scrivi(f.txtCodiceFiscale, "RSSMRA80A01H501U");
    scrivi(f.datNascita, "02/01/1980");
    EXPECT_EQ(f.datNascita.caption(), "Data");
    EXPECT_THAT(f.lblCodiceFiscale.caption(), HasSubstr("La data di nascita non è quella del codice."));
    scrivi(f.txtCodiceFiscale, "RSSMRA80A41H501Y");
    EXPECT_EQ(f.datNascita.text(), "02/01/1980");
    EXPECT_EQ(f.cboSesso.text(), "F - Femmina");
  });
}

TEST_F(FrmPercipienteTest, ACodeOfAFirmMakesAFirm) {
  FrmPercipiente form(contesto, azienda_.id, std::nullopt, "P001");
  apri<FrmPercipiente>(form, [&](FrmPercipiente& f) {
    EXPECT_TRUE(f.chkPersonaFisica.value());
    scrivi(f.txtCodiceFiscale, "00743110157");
    EXPECT_FALSE(f.chkPersonaFisica.value());
    EXPECT_EQ(f.txtCognome.caption(), "Denominazione");
    EXPECT_FALSE(f.txtNome.available());
    scrivi(f.txtCognome, "Ditta S.p.A.");
    clic(f.cmdOk);
  });
  EXPECT_TRUE(form.OK()) << ultimoBox();
}

TEST_F(FrmPercipienteTest, WhatAPersonLacksIsToldAtItsField) {
  FrmPercipiente form(contesto, azienda_.id, std::nullopt, "P001");
  apri<FrmPercipiente>(form, [&](FrmPercipiente& f) {
    scrivi(f.txtCodiceFiscale, "RSSMRA80A01H501U");
    scrivi(f.txtCognome, "Rossi");
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Manca il nome del percipiente.");
    EXPECT_EQ(f.focus(), &f.txtNome);
    EXPECT_EQ(f.txtCognome.text(), "Rossi");
    scrivi(f.txtNome, "Mario");
    scrivi(f.datNascita, "31/02/1980");
    clic(f.cmdOk);
    EXPECT_THAT(ultimoBox(), HasSubstr("«31/02/1980» non è una data"));
    EXPECT_EQ(f.focus(), &f.datNascita);
  });
  EXPECT_FALSE(form.OK());
}

TEST_F(FrmPercipienteTest, ANameThatDoesNotFitIsAWarning) {
  FrmPercipiente form(contesto, azienda_.id, std::nullopt, "P001");
  apri<FrmPercipiente>(form, [&](FrmPercipiente& f) {
    scrivi(f.txtCodiceFiscale, "RSSMRA80A01H501U");
    scrivi(f.txtCognome, "Bianchi");
    scrivi(f.txtNome, "Mario");
    clic(f.cmdOk);
  });
  EXPECT_TRUE(form.OK());
  EXPECT_THAT(ultimoBox(), HasSubstr("Cognome e nome darebbero BNCMRA, il codice ha RSSMRA."));
}

TEST_F(FrmPercipienteTest, ACodeInUseIsRejected) {
  percipiente(azienda_.id, "P001", "Ditta");
  FrmPercipiente form(contesto, azienda_.id, std::nullopt, "P001");
  apri<FrmPercipiente>(form, [&](FrmPercipiente& f) {
    scrivi(f.txtCodiceFiscale, "12345670017");
    scrivi(f.txtCognome, "Altra ditta");
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Il codice P001 è già di un altro percipiente.");
    EXPECT_EQ(f.focus(), &f.txtCodice);
  });
  EXPECT_FALSE(form.OK());
  EXPECT_EQ(quante("Percipiente"), 1);
}

TEST_F(FrmPercipienteTest, AbroadThePlaceIsWrittenAndKept) {
  FrmPercipiente form(contesto, azienda_.id, std::nullopt, "P001");
  apri<FrmPercipiente>(form, [&](FrmPercipiente& f) {
    scrivi(f.txtCodiceFiscale, "00743110157");
    scrivi(f.txtCognome, "Weber GmbH");
    f.cboNazione.setIndex(f.cboNazione.indexOf("Germania"));
    EXPECT_FALSE(f.TownComune.available());
    scrivi(f.txtLocalita, "Tübingen");
    clic(f.cmdOk);
  });
  ASSERT_TRUE(form.OK()) << ultimoBox();
  const auto percipiente = scritto(form.idAnagrafica());
  EXPECT_EQ(
      primo("SELECT Comune FROM Comune WHERE IDComune = " + std::to_string(percipiente->anagrafica.idComune)),
      "Tübingen");
  FrmPercipiente ancora(contesto, azienda_.id, percipiente);
  apri<FrmPercipiente>(ancora, [&](FrmPercipiente& f) {
    EXPECT_EQ(f.txtLocalita.text(), "Tübingen");
    EXPECT_EQ(f.unsavedWork(), "");
    clic(f.cmdOk);
  });
  EXPECT_TRUE(ancora.OK());
  EXPECT_EQ(scritto(form.idAnagrafica())->anagrafica.idComune, percipiente->anagrafica.idComune);
}

TEST_F(FrmPercipienteTest, TheNextCodeFollowsTheLastOne) {
  schede::SchedaPercipiente uno;
  EXPECT_EQ(codiceSeguente({}), "P001");
  uno.codice = "F0099";
  EXPECT_EQ(codiceSeguente({uno}), "F0100");
  schede::SchedaPercipiente altro;
  altro.codice = "7";
  EXPECT_EQ(codiceSeguente({uno, altro}), "8");
  altro.codice = "ROSSI";
  EXPECT_EQ(codiceSeguente({uno, altro}), "ROSSI001");
}

TEST_F(FrmPercipienteTest, TheListIsNarrowedByCodeNameAndFiscalCode) {
  percipiente(azienda_.id, "P001", "Zeta");
  percipiente(azienda_.id, "P002", "Àlfa servizi");
  FrmPercipienti elenco(contesto, azienda_);
  apri<FrmPercipienti>(elenco, [&](FrmPercipienti& f) {
    EXPECT_EQ(f.grdPercipienti.rowCount(), 2U);
    EXPECT_EQ(f.grdPercipienti.rows()->Get("Nominativo").text(), "Àlfa servizi");
    scrivi(f.txtCerca, "ALFA SERV");
    EXPECT_EQ(f.grdPercipienti.rowCount(), 1U);
    EXPECT_EQ(f.lblTrovati.caption(), "1 di 2 percipienti.");
    scrivi(f.txtCerca, "p001");
    EXPECT_EQ(f.grdPercipienti.rows()->Get("Nominativo").text(), "Zeta");
    scrivi(f.txtCerca, "0074311");
    EXPECT_EQ(f.grdPercipienti.rowCount(), 2U);
    scrivi(f.txtCerca, "nessuno");
    EXPECT_EQ(f.grdPercipienti.rowCount(), 0U);
    EXPECT_FALSE(f.cmdModifica.available());
    scrivi(f.txtCerca, "");
    EXPECT_EQ(f.grdPercipienti.rowCount(), 2U);
  });
}

TEST_F(FrmPercipienteTest, APayeeWithPaymentsIsNotDeleted) {
  const auto con = percipiente(azienda_.id, "P001", "Con compensi");
  percipiente(azienda_.id, "P002", "Senza");
  compenso(con, "20/03/2017", 1000, 200);
  FrmPercipienti elenco(contesto, azienda_);
  apri<FrmPercipienti>(elenco, [&](FrmPercipienti& f) {
    clic(f.cmdElimina);
    EXPECT_THAT(
        ultimoBox(),
        HasSubstr("Non si può eliminare il percipiente: ne dipendono un compenso e un conto individuale."));
    f.grdPercipienti.selectRow(2);
    clic(f.cmdElimina);
    EXPECT_EQ(f.grdPercipienti.rowCount(), 1U);
  });
  EXPECT_EQ(quante("Percipiente"), 1);
}

TEST_F(FrmPercipienteTest, ANewPayeeIsShownInTheList) {
  FrmPercipienti elenco(contesto, azienda_);
  poi<FrmPercipiente>([&](FrmPercipiente& f) {
    EXPECT_EQ(f.txtCodice.text(), "P001");
    scrivi(f.txtCodiceFiscale, "00743110157");
    scrivi(f.txtCognome, "Ditta");
    clic(f.cmdOk);
  });
  apri<FrmPercipienti>(elenco, [&](FrmPercipienti& f) {
    EXPECT_EQ(f.lblTrovati.caption(), "Non c'è ancora nessun percipiente.");
    clic(f.cmdNuovo);
    EXPECT_EQ(f.grdPercipienti.rowCount(), 1U);
    EXPECT_EQ(f.grdPercipienti.row(), 1U);
  });
}

}  // namespace
}  // namespace cu::test
