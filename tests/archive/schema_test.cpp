#include "archive/schema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "archive/archivio.h"
#include "archive/archivio_vuoto_prova.h"

namespace cu {
namespace {

using test::EmptyArchive;
using test::number;
using test::Righe;
using test::words;

struct TableRow {
  const char* table;
  const char* columns;
};

constexpr TableRow kTables[] = {
    {"Azienda", "IDAzienda IDAnagrafica"},
    {"Anagrafica",
     "IDAnagrafica Anagrafica Nome PersonaFisica CodiceFiscale PartitaIva EMailInternet Telefono Fax "
     "Cap Indirizzo Sesso DataNascita IDComuneNascita IDNazionalita IDComune IDNazione"},
    {"Comune", "IDComune Comune IDProvincia CodiceComuneDiNascita"},
    {"Provincia", "IDProvincia Provincia"},
    {"Nazione", "IDNazione Nazione PrefissoInternazionale"},
    {"CodiceCarica", "IDCodiceCarica Codice CodiceCarica"},
    {"CategoriaParticolare", "IDCategoriaParticolare CodiceCategoriaParticolare"},
    {"EventoEccezionale", "IDEventoEccezionale CodiceEventoEccezionale"},
    {"ConfigurazioneGenerale",
     "IDAzienda CodiceFiscaleSocieta IDAnagraficaRappresentante IDCodiceCaricaRappresentante "
     "IDFilialePrevalente"},
    {"ConfigurazioneCompensiATerzi", "IDAzienda IDEventoEccezionale"},
    {"ConfigurazioneContabile", "IDAzienda InterlineaGiornale"},
    {"ConfigurazioneElencoCliFor", "IDAzienda CodiceFiscaleIntermediario TipoComunicazione DataImpegno"},
    {"Filiale", "IDFiliale IDAzienda IDAttivitaAzienda"},
    {"AttivitaAzienda", "IDAttivitaAzienda IDAzienda"},
    {"AttivitaAziendaPerPeriodoIva", "IDAttivitaAzienda IDPeriodoIva IDCodiceAttivita"},
    {"PeriodoIva", "IDPeriodoIva IDAzienda Anno"},
    {"CodiceAttivita", "IDCodiceAttivita CodiceAttivita"},
    {"DefaultFilialePerTipoOggetto", "IDDefaultFilialePerTipoOggetto IDTipoOggetto IDFiliale"},
    {"CausalePagamento", "IDCausalePagamento Codice CausalePagamento IDTipoCausalePagamento"},
    {"CodicePerNonSoggetti", "IDCodicePerNonSoggetti Codice Descrizione"},
    {"CUEntePrevidenziale",
     "IDCUEntePrevidenziale CUCodiceFiscale CUDenominazioneEntePrevidenziale "
     "CUCodiceEntePrevidenziale"},
    {"CUCategoriaEntePrevidenziale", "IDCUCategoriaEntePrevidenziale CUCodiceCategoriaEntePrevidenziale"},
    {"Percipiente",
     "IDAzienda IDAnagrafica Codice NonResidente NonResidenteSchumacker CodiceFiscaleRappresentante "
     "CodiceIdentificazioneFiscaleEstero CodiceAzPressoENPAM CodiceAzPressoENPAPI "
     "IDCategoriaParticolare IDEventoEccezionale IDCUEntePrevidenziale IDCUCategoriaEntePrevidenziale"},
    {"ContoIndividuale",
     "IDAnagrafica IDCausalePagamento Anno IDAzienda OnorarioProvvigioni QuotaProvvigioniNonSoggette "
     "SommeNonSoggette SommeNonSoggetteRegConv RitenutaAcconto RitenutaImposta "
     "ContributoPrevidenziale RitenutaPrevidenziale13"},
    {"ContoIndividualeDatiAggiuntivi",
     "IDAnagrafica IDCausalePagamento Anno IDAzienda QuotaProvvigioniNonSoggette Anticipazione "
     "IDCodicePerNonSoggetti RitenuteSospese AddRegionAcconto AddRegionImposta AddRegionSospesa "
     "AddComunAcconto AddComunImposta AddComunSospesa ImponibileAnniPrecedenti "
     "RitenuteAnniPrecedenti RitenuteRimborsate AltriContributi ImportoAltriContributi "
     "ContributiDovuti ContributiVersati SommeCorrispostePreFallimento SommeCorrisposteDalCuratore "
     "AltriSoggettiCodiceFiscale AltriSoggettiImponibile AltriSoggettiRitenuteAcconto "
     "AltriSoggettiRitenuteImposta AltriSoggettiRitenuteSospese AltriSoggettiAddRegionAcconto "
     "AltriSoggettiAddRegionImposta AltriSoggettiAddRegionSospesa AltriSoggettiAddComunAcconto "
     "AltriSoggettiAddComunImposta AltriSoggettiAddComunSospesa CodiceFiscaleLavoroAutonomo "
     "CodiceFiscalePignoramentoTerzi CodiceFiscaleIndennitaEsproprio PignoramentoTerziCodiceFiscale1 "
     "PignoramentoTerziSommeErogate1 PignoramentoTerziRitenuteOperate1 "
     "PignoramentoTerziRitenuteNonOperate1 PignoramentoTerziSommeNonTassate1 "
     "PignoramentoTerziCodiceFiscale2 PignoramentoTerziSommeErogate2 "
     "PignoramentoTerziRitenuteOperate2 PignoramentoTerziRitenuteNonOperate2 "
     "PignoramentoTerziSommeNonTassate2 IndennitaEsproprioSommeCorrisposte1 "
     "IndennitaEsproprioRitenuteOperate1 AltreIndennitaSommeCorrisposte1 "
     "AltreIndennitaRitenuteOperate1 IndennitaEsproprioSommeCorrisposte2 "
     "IndennitaEsproprioRitenuteOperate2 AltreIndennitaSommeCorrisposte2 "
     "AltreIndennitaRitenuteOperate2 ProtocolloAnnSost ProgressivoAnnSost FusioneComuni "
     "FusioneComuniAnnoPrec IDComuneResidenzaAnnoPrec IDComuneResidenzaAnnoCorr"},
    {"ModuloXContoIndividuale",
     "IDModuloXContoIndividuale IDAnagrafica IDAzienda IDCausalePagamento Anno NumeroModulo "
     "IDCodicePerNonSoggetti AnnoModulo SommeNonSoggette ImponibileAnniPrec RitenuteAnniPrec "
     "Anticipazione ContributiCaricoAzienda ContributiCaricoPercipiente AltriContributi "
     "ImportoAltriContributi ContributiDovuti ContributiVersati AltriSoggettiCodiceFiscale "
     "AltriSoggettiImponibile AltriSoggettiRitenuteAcconto AltriSoggettiRitenuteImposta "
     "AltriSoggettiRitenuteSospese AltriSoggettiAddRegionAcconto AltriSoggettiAddRegionImposta "
     "AltriSoggettiAddRegionSospesa AltriSoggettiAddComunAcconto AltriSoggettiAddComunImposta "
     "AltriSoggettiAddComunSospesa CodiceFiscaleLavoroAutonomo CodiceFiscalePignoramentoTerzi "
     "CodiceFiscaleIndennitaEsproprio PignoramentoTerziCodiceFiscale1 PignoramentoTerziSommeErogate1 "
     "PignoramentoTerziRitenuteOperate1 PignoramentoTerziSommeNonTassate1 "
     "PignoramentoTerziCodiceFiscale2 PignoramentoTerziSommeErogate2 "
     "PignoramentoTerziRitenuteOperate2 PignoramentoTerziSommeNonTassate2 "
     "IndennitaEsproprioSommeCorrisposte1 IndennitaEsproprioRitenuteOperate1 "
     "AltreIndennitaSommeCorrisposte1 AltreIndennitaRitenuteOperate1 "
     "IndennitaEsproprioSommeCorrisposte2 IndennitaEsproprioRitenuteOperate2 "
     "AltreIndennitaSommeCorrisposte2 AltreIndennitaRitenuteOperate2 "
     "PignoramentoTerziRitenuteNonOperate1 PignoramentoTerziRitenuteNonOperate2"},
    {"Compenso",
     "IDCompenso IDAzienda IDAnagrafica IDCausalePagamento DataPagamento NumeroDocumento "
     "DataDocumento OnorarioProvvigioni QuotaProvvigioniNonSoggette SommeNonSoggette "
     "SommeNonSoggetteRegConv RitenutaAcconto RitenutaImposta ContributoPrevidenziale "
     "RitenutaPrevidenziale13"},
    {"TabellaRicorsione2", "IDPath1 IDPath2 IDUtente IDFunzione Path14 Path1 Path2 Path3"},
};

TEST(Schema, HasEachTableWithItsColumnsInOrder) {
  const EmptyArchive connection;
  for (const TableRow& row : kTables) {
    const Righe rows(*connection, std::string("SELECT * FROM ") + row.table + " WHERE 1 = 0");
    EXPECT_EQ(rows.names(), words(row.columns)) << row.table;
  }
}

TEST(Schema, HasTheTablesAndFourViewsAndNothingElse) {
  std::vector<std::string> expected;
  for (const TableRow& row : kTables) expected.emplace_back(row.table);
  for (const char* view :
       {"RepContoIndividuale", "RepCompenso", "RepPercipienteCD", "RepCertificazioneUnica"}) {
    expected.emplace_back(view);
  }
  std::vector<std::string> names;
  for (std::string_view name : nomiSchema()) names.emplace_back(name);
  std::sort(expected.begin(), expected.end());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, expected);
}

TEST(Moduli, TakeARowThatNamesOnlyTheFirstTwelveColumns) {
  const EmptyArchive connection;
  connection->Execute(
      "INSERT INTO ModuloXContoIndividuale (IDModuloXContoIndividuale, IDAnagrafica, IDAzienda, "
      "IDCausalePagamento,"
      " Anno, NumeroModulo, IDCodicePerNonSoggetti, AnnoModulo, SommeNonSoggette, ImponibileAnniPrec,"
      " RitenuteAnniPrec, Anticipazione) VALUES (1, 7, 1, 11, 2014, 2, NULL, NULL, 10, 0, 0, 0)");
  EXPECT_EQ(number(*connection, "SELECT COUNT(*) FROM ModuloXContoIndividuale"), 1);
}

TEST(CreaArchivio, OnARealDatabaseLeavesNothingBehindAFailure) {
  const auto connection = SqliteConnection::create(":memory:");
  for (const char* piece : {"CREATE VIEW [dbo].[RepCertificazioneUnica]", "INSERT INTO Comune",
                            "INSERT INTO ModuloXContoIndividuale", "COMMIT"}) {
    test::RefusingConnection refusing(*connection, piece);
    EXPECT_THROW(creaArchivio(refusing, ContenutoArchivio::Dimostrativo), DatabaseError) << piece;
    EXPECT_FALSE(contieneSuite(*connection)) << piece;
  }
  creaArchivio(*connection, ContenutoArchivio::Dimostrativo);
  EXPECT_TRUE(contieneSuite(*connection));
}

TEST(CreaArchivio, OnARealDatabaseRefusesASecondTimeAndChangesNothing) {
  const auto connection = SqliteConnection::create(":memory:");
  creaArchivio(*connection, ContenutoArchivio::Vuoto);
  connection->Execute("DELETE FROM Comune WHERE IDComune = 1001");
  const std::int64_t before = number(*connection, "SELECT COUNT(*) FROM Comune");
  EXPECT_THROW(creaArchivio(*connection, ContenutoArchivio::Dimostrativo), ArchivioEsistente);
  EXPECT_EQ(number(*connection, "SELECT COUNT(*) FROM Comune"), before);
  EXPECT_EQ(number(*connection, "SELECT COUNT(*) FROM Anagrafica"), 0);
}

TEST(CreaArchivio, RefusesADatabaseWithOneTableOfTheSuiteWhateverItsCase) {
  const auto connection = SqliteConnection::create(":memory:");
  connection->Execute("CREATE TABLE percipiente (X int NULL)");
  EXPECT_THROW(creaArchivio(*connection, ContenutoArchivio::Vuoto), ArchivioEsistente);
  EXPECT_EQ(number(*connection, "SELECT COUNT(*) FROM dbo.sysobjects WHERE type IN ('U', 'V')"), 1);
}

TEST(CreaArchivio, TakesADatabaseWithTablesOfOthers) {
  const auto connection = SqliteConnection::create(":memory:");
  connection->Execute("CREATE TABLE Appunti (X int NULL)");
  creaArchivio(*connection, ContenutoArchivio::Vuoto);
  EXPECT_EQ(number(*connection, "SELECT COUNT(*) FROM Appunti"), 0);
}

}  // namespace
}  // namespace cu
