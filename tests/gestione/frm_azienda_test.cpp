// The editor of a company.

#include "gestione/frm_azienda.h"

#include <gmock/gmock.h>

#include "gestione/gestione_prova.h"
#include "schede/aziende.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

class FrmAziendaTest : public GestioneProva {
 protected:
  void compila(FrmAzienda& form) {
    scrivi(form.txtCodiceFiscale, "12345670017");
    scrivi(form.txtPartitaIva, "12345670017");
    scrivi(form.txtDenominazione, "Studio Prova S.r.l.");
    scrivi(form.txtCodiceAttivita, "692011");
    form.TownComune.setRecord(comune("Verona"));
    scrivi(form.txtRappCodiceFiscale, "rssmra80a01h501u");
    scrivi(form.txtRappCognome, "Rossi");
    scrivi(form.txtRappNome, "Mario");
  }
};

TEST_F(FrmAziendaTest, WritesACompanyWithEveryRowThatItNeeds) {
  FrmAzienda form(contesto, std::nullopt);
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    compila(f);
    clic(f.cmdOk);
  });
  EXPECT_TRUE(form.OK()) << ultimoBox();
  const auto scritta = schede::Aziende(database()).cerca(form.idAzienda());
  ASSERT_TRUE(scritta);
  EXPECT_EQ(scritta->sede.anagrafica, "Studio Prova S.r.l.");
  EXPECT_EQ(scritta->rappresentante.codiceFiscale, "RSSMRA80A01H501U");
  EXPECT_EQ(scritta->idCarica, 1);
  EXPECT_EQ(scritta->primoAnno, 2017);
  EXPECT_EQ(scritta->ultimoAnno, 2018);
  EXPECT_EQ(scritta->codiceAttivita, "692011");
  EXPECT_EQ(quante("DefaultFilialePerTipoOggetto"), 3);
}

TEST_F(FrmAziendaTest, WhatIsMissingIsToldAndNothingTypedIsLost) {
  FrmAzienda form(contesto, std::nullopt);
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    scrivi(f.txtDenominazione, "Studio Prova");
    clic(f.cmdOk);
    EXPECT_EQ(ultimoBox(), "Manca il codice fiscale dell'azienda.");
    EXPECT_EQ(f.focus(), &f.txtCodiceFiscale);
    EXPECT_TRUE(f.isOpen());
    EXPECT_EQ(f.txtDenominazione.text(), "Studio Prova");
    EXPECT_EQ(f.unsavedWork(), "Quello che è stato scritto non è ancora registrato.");
  });
  EXPECT_FALSE(form.OK());
  EXPECT_EQ(quante("Azienda"), 0);
}

TEST_F(FrmAziendaTest, ACodeWithoutTheShapeOfOneIsRejected) {
  FrmAzienda form(contesto, std::nullopt);
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    compila(f);
    scrivi(f.txtRappCodiceFiscale, "RSSMRA80A01");
    clic(f.cmdOk);
    EXPECT_THAT(ultimoBox(), HasSubstr("Codice fiscale del rappresentante: RSSMRA80A01. Non ha la forma"));
    EXPECT_EQ(f.focus(), &f.txtRappCodiceFiscale);
  });
  EXPECT_FALSE(form.OK());
}

TEST_F(FrmAziendaTest, AWrongControlLetterIsAWarningThatTheUserMayPass) {
  FrmAzienda form(contesto, std::nullopt);
  schermo.answers = {Answer::No, Answer::Yes};
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    compila(f);
    scrivi(f.txtCodiceFiscale, "12345670018");
    EXPECT_EQ(f.lblCodiceFiscale.caption(), "L'ultimo carattere dovrebbe essere 7.");
    clic(f.cmdOk);
    EXPECT_THAT(ultimoBox(), HasSubstr("Registrare ugualmente?"));
    EXPECT_TRUE(f.isOpen());
    clic(f.cmdOk);
  });
  EXPECT_TRUE(form.OK());
}

TEST_F(FrmAziendaTest, WhatTheFileWouldCarryAsItIsTypedIsAsked) {
  FrmAzienda form(contesto, std::nullopt);
  schermo.answers = {Answer::No};
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    compila(f);
    scrivi(f.txtCap, "abcde");
    scrivi(f.txtEmail, "non una mail");
    scrivi(f.txtCodiceAttivita, "25.11.0x");
    clic(f.cmdOk);
    EXPECT_THAT(ultimoBox(), HasSubstr("CAP: «abcde» non è di 5 cifre."));
    EXPECT_THAT(ultimoBox(), HasSubstr("Posta elettronica: «non una mail» non è un indirizzo."));
    EXPECT_THAT(ultimoBox(),
                HasSubstr("Codice attività: «25.11.0x» non è di sei cifre al più, come 692011."));
    EXPECT_TRUE(f.isOpen());
    scrivi(f.txtCap, "37121");
    scrivi(f.txtEmail, "ufficio@esempio.example");
    scrivi(f.txtCodiceAttivita, "25.11.00");
    clic(f.cmdOk);
  });
  ASSERT_TRUE(form.OK()) << ultimoBox();
  EXPECT_EQ(schede::Aziende(database()).cerca(form.idAzienda())->codiceAttivita, "251100");
}

TEST_F(FrmAziendaTest, APersonIsItsOwnRepresentative) {
  FrmAzienda form(contesto, std::nullopt);
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    compila(f);
    scrivi(f.txtCodiceFiscale, "RSSMRA80A01H501U");
    f.perform(f.chkPersonaFisica, [&] { f.chkPersonaFisica.click(); });
    EXPECT_FALSE(f.fraRappresentante.enabled());
    scrivi(f.txtDenominazione, "Rossi");
    scrivi(f.txtNome, "Mario");
    clic(f.cmdOk);
  });
  ASSERT_TRUE(form.OK()) << ultimoBox();
  const auto scritta = schede::Aziende(database()).cerca(form.idAzienda());
  EXPECT_TRUE(scritta->sede.personaFisica);
  EXPECT_EQ(scritta->rappresentante.id, 0);
  EXPECT_EQ(quante("Anagrafica"), 1);
}

TEST_F(FrmAziendaTest, ARecordThatSomeoneElseChangedIsNotOverwritten) {
  const schede::SchedaAzienda prima = azienda();
  FrmAzienda form(contesto, prima);
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    database().Execute("UPDATE Anagrafica SET Telefono = '045' WHERE IDAnagrafica = " +
                       std::to_string(prima.sede.id));
    scrivi(f.txtFax, "046");
    clic(f.cmdOk);
    EXPECT_THAT(ultimoBox(), HasSubstr("un'altra sessione"));
    EXPECT_TRUE(f.isOpen());
  });
  EXPECT_FALSE(form.OK());
  EXPECT_EQ(primo("SELECT Fax FROM Anagrafica WHERE IDAnagrafica = " + std::to_string(prima.sede.id)), "");
}

TEST_F(FrmAziendaTest, AnErrorOfTheDatabaseLeavesTheFormOpen) {
  RefusingConnection pieno(database(), "INSERT INTO Azienda");
  OneConnectionHost host(pieno);
  contesto.database = &host;
  FrmAzienda form(contesto, std::nullopt);
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    compila(f);
    clic(f.cmdOk);
    ASSERT_EQ(schermo.errors.size(), 1U);
    EXPECT_EQ(schermo.errors[0].text, "Spazio esaurito.");
    EXPECT_TRUE(f.isOpen());
    EXPECT_EQ(f.txtDenominazione.text(), "Studio Prova S.r.l.");
  });
  EXPECT_FALSE(form.OK());
  EXPECT_EQ(quante("Anagrafica"), 0);
}

TEST_F(FrmAziendaTest, AnotherDatabaseIsOnlyShown) {
  const schede::SchedaAzienda prima = azienda();
  contesto.scrivibile = false;
  FrmAzienda form(contesto, prima);
  apri<FrmAzienda>(form, [&](FrmAzienda& f) {
    EXPECT_FALSE(f.cmdOk.available());
    EXPECT_EQ(f.unsavedWork(), "");
  });
}

}  // namespace
}  // namespace cu::test
