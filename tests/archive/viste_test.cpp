// What the views of the suite show of its tables.
#include <gtest/gtest.h>

#include <string>

#include "archive/archivio_vuoto_prova.h"

namespace cu {
namespace {

using test::EmptyArchive;
using test::Righe;
using test::words;

// Columns that the work table takes over from the view under the same name.
constexpr const char* kSameName =
    "Nome Anticipazione CodiceFiscale IDCodicePerNonSoggetti CodicePerNonSoggetti RitenuteSospese "
    "AddRegionAcconto AddRegionImposta AddRegionSospesa AddComunAcconto AddComunImposta "
    "AddComunSospesa ImponibileAnniPrecedenti RitenuteAnniPrecedenti RitenuteRimborsate "
    "ProtocolloAnnSost ProgressivoAnnSost FusioneComuni FusioneComuniAnnoPrec "
    "IDComuneResidenzaAnnoPrec IDComuneResidenzaAnnoCorr ComuneResidenzaAnnoPrec "
    "ComuneResidenzaAnnoCorr SiglaProvResidenzaAnnoPrec SiglaProvResidenzaAnnoCorr "
    "CodiceComuneDiNascitaPrec CodiceComuneDiNascitaCorr IDCategoriaParticolare IDEventoEccezionale "
    "NonResidente CodiceFiscaleRappresentante CodiceIdentificazioneFiscaleEstero CodiceAzPressoENPAM "
    "CodiceAzPressoENPAPI IDCUEntePrevidenziale IDCUCategoriaEntePrevidenziale CUCodiceFiscale "
    "CUDenominazioneEntePrevidenziale CUCodiceEntePrevidenziale CUCodiceCategoriaEntePrevidenziale "
    "AltreIndennitaRitenuteOperate1 AltreIndennitaRitenuteOperate2 AltreIndennitaSommeCorrisposte1 "
    "AltreIndennitaSommeCorrisposte2 AltriContributi AltriSoggettiAddComunAcconto "
    "AltriSoggettiAddComunImposta AltriSoggettiAddComunSospesa AltriSoggettiAddRegionAcconto "
    "AltriSoggettiAddRegionImposta AltriSoggettiAddRegionSospesa AltriSoggettiCodiceFiscale "
    "AltriSoggettiImponibile AltriSoggettiRitenuteImposta AltriSoggettiRitenuteAcconto "
    "AltriSoggettiRitenuteSospese CodiceFiscaleIndennitaEsproprio CodiceFiscaleLavoroAutonomo "
    "CodiceFiscalePignoramentoTerzi ContributiDovuti ContributiVersati ImportoAltriContributi "
    "IndennitaEsproprioRitenuteOperate1 IndennitaEsproprioRitenuteOperate2 "
    "IndennitaEsproprioSommeCorrisposte1 IndennitaEsproprioSommeCorrisposte2 "
    "PignoramentoTerziCodiceFiscale1 PignoramentoTerziCodiceFiscale2 "
    "PignoramentoTerziRitenuteNonOperate1 PignoramentoTerziSommeNonTassate1 "
    "PignoramentoTerziRitenuteNonOperate2 PignoramentoTerziSommeNonTassate2 "
    "PignoramentoTerziRitenuteOperate1 PignoramentoTerziRitenuteOperate2 "
    "PignoramentoTerziSommeErogate1 PignoramentoTerziSommeErogate2 SommeCorrisposteDalCuratore "
    "SommeCorrispostePreFallimento NonResidenteSchumacker CodiceFiscaleRappresentanteAzienda "
    "CodiceCarica CodicePercipiente IDAnagrafica IDCausalePagamento Anno IDAzienda";

TEST(RepContoIndividuale, HasWhatTheWorkTableIsFilledFrom) {
  const EmptyArchive connection;
  const Righe rows(*connection, "SELECT * FROM RepContoIndividuale WHERE 1 = 0");
  for (const std::string& column : words(kSameName)) {
    EXPECT_NE(rows.columns().find(column), Columns::kNone) << column;
  }
  for (const char* column :
       {"Anagrafica", "OnorarioProvvigioni", "SommeNonSoggette", "SommeNonSoggetteRegConv", "RitenutaAcconto",
        "RitenutaImposta", "ContributoPrevidenziale", "RitenutaPrevidenziale13", "CodiceCausalePagamento",
        "CausalePagamento", "IDAziendaPercipiente"}) {
    EXPECT_NE(rows.columns().find(column), Columns::kNone) << column;
  }
}

TEST(RepContoIndividuale, AReasonWithoutCodeAndAnAdvanceStoredAsNullStayNull) {
  const EmptyArchive connection;
  connection->Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda) VALUES (1, 1, 2016, "
      "1)");
  connection->Execute("UPDATE CausalePagamento SET Codice = NULL WHERE IDCausalePagamento = 1");
  connection->Execute(
      "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda) "
      "VALUES (1, 1, 2016, 1)");
  const std::string query = "SELECT Codice, CodiceCausalePagamento, Anticipazione FROM RepContoIndividuale";
  const Righe fresh(*connection, query);
  EXPECT_TRUE(fresh.isNull(0, "Codice"));
  EXPECT_TRUE(fresh.isNull(0, "CodiceCausalePagamento"));
  EXPECT_EQ(fresh.text(0, "Anticipazione"), "0");  // where nobody has said anything
  connection->Execute("UPDATE ContoIndividualeDatiAggiuntivi SET Anticipazione = NULL");
  EXPECT_TRUE(Righe(*connection, query).isNull(0, "Anticipazione"));
}

TEST(RepContoIndividuale, AFiscalCodeOfBlanksIsNone) {
  const EmptyArchive connection;
  connection->Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda) VALUES (1, 1, 2016, "
      "1)");
  connection->Execute(
      "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, CodiceFiscale, PartitaIva) VALUES (1, 'Bianchi', '  "
      "', "
      "'01234567890')");
  EXPECT_EQ(Righe(*connection, "SELECT CodiceFiscale FROM RepContoIndividuale").text(0, "CodiceFiscale"),
            "01234567890");
}

TEST(RepContoIndividuale, GivesOneRowForAnAccountWithNothingBesideIt) {
  const EmptyArchive connection;
  connection->Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, OnorarioProvvigioni)"
      " VALUES (0, 0, 2016, 9, 100)");
  const Righe rows(*connection, "SELECT * FROM RepContoIndividuale");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.text(0, "CodiceFiscale"), "");
  EXPECT_EQ(rows.integer(0, "Anticipazione"), 0);
  EXPECT_EQ(rows.amount(0, "OnorarioProvvigioni"), Decimal::fromInteger(100));
  EXPECT_TRUE(rows.isNull(0, "ProtocolloAnnSost"));
  EXPECT_TRUE(rows.isNull(0, "CodicePercipiente"));
}

// One payee of company 1 with an account of 2016 for reason "M" (id 11) and all that can accompany it.
void fillOneAccount(Connection& connection) {
  connection.Execute("INSERT INTO Azienda (IDAzienda, IDAnagrafica) VALUES (1, 1)");
  connection.Execute(
      "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, Nome, PersonaFisica, CodiceFiscale, PartitaIva, "
      "Sesso,"
      " DataNascita, IDComuneNascita, IDNazionalita, IDComune, IDNazione, Indirizzo) VALUES"
      " (1, 'Ditta', NULL, 0, NULL, '01234567897', NULL, NULL, NULL, NULL, 12781, 86, 'Via Roma 1'),"
      " (2, 'Bertoldi', 'Anna', 1, 'BRTNNA68D52L781X', NULL, 'F', '19680412', 12781, 86, 12781, 86, NULL),"
      " (7, 'Rossi', 'Marco', 1, '', '00743110157', 'M', '19710308', 12781, 94, 12781, 86, 'Via Po 2')");
  connection.Execute(
      "INSERT INTO ConfigurazioneGenerale (IDAzienda, IDAnagraficaRappresentante, "
      "IDCodiceCaricaRappresentante,"
      " IDFilialePrevalente) VALUES (1, 2, 3, 5)");
  connection.Execute("INSERT INTO Filiale (IDFiliale, IDAzienda, IDAttivitaAzienda) VALUES (5, 1, 4)");
  connection.Execute("INSERT INTO AttivitaAzienda (IDAttivitaAzienda, IDAzienda) VALUES (4, 1)");
  connection.Execute(
      "INSERT INTO PeriodoIva (IDPeriodoIva, IDAzienda, Anno) VALUES (8, 1, 2016), (9, 1, 2015)");
  connection.Execute(
      "INSERT INTO AttivitaAziendaPerPeriodoIva (IDAttivitaAzienda, IDPeriodoIva, IDCodiceAttivita)"
      " VALUES (4, 8, 1)");
  connection.Execute("INSERT INTO CodiceAttivita (IDCodiceAttivita, CodiceAttivita) VALUES (1, '620909')");
  connection.Execute(
      "INSERT INTO Percipiente (IDAzienda, IDAnagrafica, Codice, NonResidente, CodiceAzPressoENPAM,"
      " IDCUEntePrevidenziale, IDCUCategoriaEntePrevidenziale) VALUES (1, 7, 'P7', 1, 'MED', 1, 1)");
  connection.Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, OnorarioProvvigioni,"
      " QuotaProvvigioniNonSoggette, SommeNonSoggette, SommeNonSoggetteRegConv, RitenutaAcconto, "
      "RitenutaImposta,"
      " ContributoPrevidenziale, RitenutaPrevidenziale13)"
      " VALUES (7, 11, 2016, 1, 1000, 200, 30, 4, 160, 5, 90, 30), (7, 11, 2015, 1, 10, 0, 0, 0, 2, 0, 0, "
      "0)");
  connection.Execute(
      "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda,"
      " QuotaProvvigioniNonSoggette, Anticipazione, IDCodicePerNonSoggetti, ProtocolloAnnSost,"
      " IDComuneResidenzaAnnoPrec, IDComuneResidenzaAnnoCorr) VALUES (7, 11, 2016, 1, 999, 1, 2, '123', "
      "6205, 8501)");
  connection.Execute(
      "INSERT INTO ModuloXContoIndividuale (IDModuloXContoIndividuale, IDAnagrafica, IDAzienda, "
      "IDCausalePagamento,"
      " Anno, NumeroModulo, SommeNonSoggette) VALUES (1, 7, 1, 11, 2016, 2, 0.5), (2, 7, 1, 11, 2016, 3, "
      "NULL)");
}

TEST(RepContoIndividuale, GathersWhatStandsBesideAnAccount) {
  const EmptyArchive connection;
  fillOneAccount(*connection);
  const Righe rows(*connection, "SELECT * FROM RepContoIndividuale WHERE Anno = 2016");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.text(0, "Anagrafica"), "Rossi");
  EXPECT_EQ(rows.text(0, "Nome"), "Marco");
  EXPECT_EQ(rows.text(0, "CodiceFiscale"), "00743110157");  // the VAT number, as the fiscal code is empty
  EXPECT_EQ(rows.text(0, "Codice"), "M");
  EXPECT_EQ(rows.text(0, "CodiceCausalePagamento"), "M");
  EXPECT_EQ(rows.text(0, "CodicePercipiente"), "P7");
  EXPECT_EQ(rows.integer(0, "IDAziendaPercipiente"), 1);
  EXPECT_EQ(rows.amount(0, "QuotaProvvigioniNonSoggette"), Decimal::fromInteger(200));  // the account's own
  EXPECT_EQ(rows.integer(0, "Anticipazione"), 1);
  EXPECT_EQ(rows.text(0, "CodicePerNonSoggetti"), "2");
  EXPECT_EQ(rows.text(0, "ProtocolloAnnSost"), "123");
  EXPECT_EQ(rows.text(0, "ComuneResidenzaAnnoPrec"), "Milano");
  EXPECT_EQ(rows.text(0, "SiglaProvResidenzaAnnoPrec"), "MI");
  EXPECT_EQ(rows.text(0, "CodiceComuneDiNascitaPrec"), "F205");
  EXPECT_EQ(rows.text(0, "ComuneResidenzaAnnoCorr"), "Roma");
  EXPECT_EQ(rows.text(0, "SiglaProvResidenzaAnnoCorr"), "RM");
  EXPECT_EQ(rows.text(0, "CodiceComuneDiNascitaCorr"), "H501");
  EXPECT_EQ(rows.integer(0, "NonResidente"), 1);
  EXPECT_EQ(rows.text(0, "CodiceAzPressoENPAM"), "MED");
  EXPECT_EQ(rows.text(0, "CUDenominazioneEntePrevidenziale"), "ENPAM");
  EXPECT_EQ(rows.text(0, "CUCodiceFiscale"), "80015110580");
  EXPECT_EQ(rows.text(0, "CUCodiceCategoriaEntePrevidenziale"), "I");
  EXPECT_EQ(rows.text(0, "CodiceFiscaleRappresentanteAzienda"), "BRTNNA68D52L781X");
  EXPECT_EQ(rows.text(0, "CodiceCarica"), "3");
}

TEST(RepContoIndividuale, PrefersTheFiscalCodeToTheVatNumber) {
  const EmptyArchive connection;
  fillOneAccount(*connection);
  connection->Execute("UPDATE Anagrafica SET CodiceFiscale = 'RSSMRC71C08L781I' WHERE IDAnagrafica = 7");
  EXPECT_EQ(Righe(*connection, "SELECT * FROM RepContoIndividuale").text(0, "CodiceFiscale"),
            "RSSMRC71C08L781I");
}

TEST(RepCompenso, GivesEachPaymentWithItsYearAndNames) {
  const EmptyArchive connection;
  fillOneAccount(*connection);
  connection->Execute(
      "INSERT INTO Compenso (IDCompenso, IDAzienda, IDAnagrafica, IDCausalePagamento, DataPagamento,"
      " OnorarioProvvigioni) VALUES (1, 1, 7, 11, '20161231', 12.34), (2, 1, 99, 98, '20170101', 1)");
  const Righe rows(*connection, "SELECT * FROM RepCompenso ORDER BY IDCompenso");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows.integer(0, "Anno"), 2016);
  EXPECT_EQ(rows.text(0, "Codice"), "P7");
  EXPECT_EQ(rows.text(0, "CodicePagamento"), "M");
  EXPECT_EQ(rows.text(0, "Anagrafica"), "Rossi");
  EXPECT_EQ(rows.text(0, "CodiceFiscale"), "00743110157");
  EXPECT_EQ(rows.text(0, "OnorarioProvvigioni"), "12.34");
  EXPECT_EQ(rows.integer(1, "Anno"), 2017);
  EXPECT_TRUE(rows.isNull(1, "CodicePagamento"));
}

TEST(RepPercipienteCD, GivesEachPayeeOnce) {
  const EmptyArchive connection;
  fillOneAccount(*connection);
  connection->Execute("INSERT INTO Percipiente (IDAzienda, IDAnagrafica, Codice) VALUES (1, 999, 'P999')");
  const Righe rows(*connection, "SELECT * FROM RepPercipienteCD WHERE IDAzienda = 1 ORDER BY IDAnagrafica");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows.names(), words("IDAzienda IDAnagrafica Codice Anagrafica Nome"));
  EXPECT_EQ(rows.text(0, "Codice"), "P7");
  EXPECT_EQ(rows.text(0, "Anagrafica"), "Rossi");
  EXPECT_TRUE(rows.isNull(1, "Anagrafica"));
}

void choose(Connection& connection, int function) {
  connection.Execute(
      "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2,"
      " Path3) VALUES (7,11,12," +
      std::to_string(function) + ",1,3,1,'05/03/2017')");
}

TEST(RepCertificazioneUnica, GivesTheChosenLineInEachYearOfItsAccount) {
  const EmptyArchive connection;
  fillOneAccount(*connection);
  choose(*connection, 342);
  choose(*connection, 246);
  const Righe rows(*connection, "SELECT * FROM RepCertificazioneUnica WHERE IDUtente = 12 ORDER BY Anno");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows.integer(0, "Anno"), 2015);
  EXPECT_EQ(rows.integer(1, "Anno"), 2016);
}

TEST(RepCertificazioneUnica, HasTheAmountsOfTheForm) {
  const EmptyArchive connection;
  fillOneAccount(*connection);
  choose(*connection, 342);
  const Righe rows(*connection, "SELECT * FROM RepCertificazioneUnica WHERE Anno = 2016");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.text(0, "AmmontareLordo"), "1034.5");  // with the sums of the additional modules
  EXPECT_EQ(rows.text(0, "SommeRegimeConvenzionale"), "4");
  EXPECT_EQ(rows.text(0, "SommeNonSoggetteARitenuta"), "0");  // of reason M they are reimbursed expenses
  EXPECT_EQ(rows.text(0, "SpeseRimborsate"), "30");
  EXPECT_EQ(rows.text(0, "Imponibile"), "800");
  EXPECT_EQ(rows.text(0, "RitenuteAcconto"), "160");
  EXPECT_EQ(rows.text(0, "RitenuteImposta"), "5");
  EXPECT_EQ(rows.text(0, "ContributiCaricoAzienda"), "60");
  EXPECT_EQ(rows.text(0, "ContributiCaricoPercipiente"), "30");
}

TEST(RepCertificazioneUnica, HasPayeeCompanyAndCommunication) {
  const EmptyArchive connection;
  fillOneAccount(*connection);
  connection->Execute(
      "INSERT INTO ConfigurazioneElencoCliFor (IDAzienda, CodiceFiscaleIntermediario, TipoComunicazione, "
      "DataImpegno)"
      " VALUES (1, '12345678903', 2, '20170220')");
  choose(*connection, 342);
  const Righe rows(*connection, "SELECT * FROM RepCertificazioneUnica WHERE Anno = 2016");
  EXPECT_EQ(rows.integer(0, "Path1"), 3);
  EXPECT_EQ(rows.integer(0, "Path2"), 1);
  EXPECT_EQ(rows.text(0, "Path3"), "05/03/2017");
  EXPECT_EQ(rows.text(0, "Sesso"), "M");
  EXPECT_EQ(rows.text(0, "DataNascita"), "08/03/1971");
  EXPECT_EQ(rows.text(0, "ComuneNascita"), "Germania");
  EXPECT_EQ(rows.text(0, "ProvinciaNascita"), "EE");
  EXPECT_EQ(rows.text(0, "Indirizzo"), "Via Po 2");
  EXPECT_EQ(rows.text(0, "ComuneRes"), "Verona");
  EXPECT_EQ(rows.text(0, "PrefissoInternazionaleRes"), "086");
  EXPECT_EQ(rows.text(0, "CodiceFiscaleAz"), "01234567897");
  EXPECT_EQ(rows.text(0, "AnagraficaAz"), "Ditta");
  EXPECT_EQ(rows.text(0, "SiglaProvinciaAz"), "VR");
  EXPECT_EQ(rows.text(0, "AnagraficaRapp"), "Bertoldi");
  EXPECT_EQ(rows.text(0, "CodiceAttivita"), "620909");
  EXPECT_EQ(rows.text(0, "CodiceFiscaleIntermediario"), "12345678903");
  EXPECT_EQ(rows.text(0, "DataImpegno"), "20/02/2017");
  // 2015 has a period of its own without an activity.
  choose(*connection, 342);
  EXPECT_TRUE(Righe(*connection, "SELECT * FROM RepCertificazioneUnica WHERE Anno = 2015")
                  .isNull(0, "CodiceAttivita"));
}

}  // namespace
}  // namespace cu
