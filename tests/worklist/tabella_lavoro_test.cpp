#include "worklist/tabella_lavoro.h"

#include <gtest/gtest.h>

#include <string>

#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/work_table.h"

namespace cu::test {
namespace {

// Without ranges, up to the year.
const std::string kSelect =
    "SELECT 1 AS Selezionato, 0 AS Modificato, RTRIM(Anagrafica + ' ' + ISNULL(Nome,'')) AS Anagrafica, Nome,"
    " RTRIM(Codice) AS Codice, Anticipazione, CodiceFiscale,"
    " ISNULL(OnorarioProvvigioni,0) + ISNULL(SommeNonSoggette,0) + ISNULL(SommeNonSoggetteRegConv,0)"
    " + ISNULL((SELECT SUM(ISNULL(SommeNonSoggette,0)) FROM ModuloXContoIndividuale MXCI"
    " WHERE MXCI.Anno = RepContoIndividuale.Anno AND MXCI.IDAzienda = RepContoIndividuale.IDAzienda"
    " AND MXCI.IDAnagrafica = RepContoIndividuale.IDAnagrafica"
    " AND MXCI.IDCausalePagamento = RepContoIndividuale.IDCausalePagamento),0) AS AmmontareLordo,"
    " SommeNonSoggetteRegConv AS SommeRegimeConvenzionale, IDCodicePerNonSoggetti, CodicePerNonSoggetti,"
    " CASE WHEN RTRIM(Codice) IN ('M','O') THEN 0 ELSE ISNULL(SommeNonSoggette,0) END"
    " AS SommeNonSoggetteARitenuta,"
    " (SELECT OnorarioProvvigioni - ISNULL(QuotaProvvigioniNonSoggette,0) FROM ContoIndividuale CI"
    " WHERE RepContoIndividuale.IDAnagrafica = CI.IDAnagrafica"
    " AND RepContoIndividuale.IDCausalePagamento = CI.IDCausalePagamento"
    " AND RepContoIndividuale.Anno = CI.Anno"
    " AND RepContoIndividuale.IDAzienda = CI.IDAzienda) AS Imponibile,"
    " RitenutaAcconto AS RitenuteAcconto,"
    " (SELECT RitenutaImposta FROM ContoIndividuale CI"
    " WHERE RepContoIndividuale.IDAnagrafica = CI.IDAnagrafica"
    " AND RepContoIndividuale.IDCausalePagamento = CI.IDCausalePagamento"
    " AND RepContoIndividuale.Anno = CI.Anno"
    " AND RepContoIndividuale.IDAzienda = CI.IDAzienda) AS RitenuteImposta,"
    " RitenuteSospese, AddRegionAcconto, AddRegionImposta, AddRegionSospesa, AddComunAcconto,"
    " AddComunImposta, AddComunSospesa, ImponibileAnniPrecedenti, RitenuteAnniPrecedenti,"
    " ContributoPrevidenziale - RitenutaPrevidenziale13 AS ContributiCaricoAzienda,"
    " RitenutaPrevidenziale13 AS ContributiCaricoPercipiente,"
    " CASE WHEN RTRIM(Codice) IN ('M','O') THEN ISNULL(SommeNonSoggette,0) ELSE 0 END SpeseRimborsate,"
    " RitenuteRimborsate, ProtocolloAnnSost, ProgressivoAnnSost, FusioneComuni, FusioneComuniAnnoPrec,"
    " IDComuneResidenzaAnnoPrec, IDComuneResidenzaAnnoCorr, ComuneResidenzaAnnoPrec,"
    " ComuneResidenzaAnnoCorr, SiglaProvResidenzaAnnoPrec, SiglaProvResidenzaAnnoCorr,"
    " CodiceComuneDiNascitaPrec, CodiceComuneDiNascitaCorr, IDCategoriaParticolare, IDEventoEccezionale,"
    " NonResidente, CodiceFiscaleRappresentante, CodiceIdentificazioneFiscaleEstero,"
    " (SELECT QuotaProvvigioniNonSoggette FROM ContoIndividuale CI"
    " WHERE RepContoIndividuale.IDAnagrafica = CI.IDAnagrafica"
    " AND RepContoIndividuale.IDCausalePagamento = CI.IDCausalePagamento"
    " AND RepContoIndividuale.Anno = CI.Anno"
    " AND RepContoIndividuale.IDAzienda = CI.IDAzienda) AS QuotaProvvigioniNonSoggette,"
    " (SELECT IDTipoCausalePagamento FROM CausalePagamento CP"
    " WHERE RepContoIndividuale.IDCausalePagamento = CP.IDCausalePagamento) AS IDTipoCausalePagamento,"
    " CodiceAzPressoENPAM, CodiceAzPressoENPAPI, IDCUEntePrevidenziale, IDCUCategoriaEntePrevidenziale,"
    " CUCodiceFiscale, CUDenominazioneEntePrevidenziale, CUCodiceEntePrevidenziale,"
    " CUCodiceCategoriaEntePrevidenziale, AltreIndennitaRitenuteOperate1, AltreIndennitaRitenuteOperate2,"
    " AltreIndennitaSommeCorrisposte1, AltreIndennitaSommeCorrisposte2, AltriContributi,"
    " AltriSoggettiAddComunAcconto, AltriSoggettiAddComunImposta, AltriSoggettiAddComunSospesa,"
    " AltriSoggettiAddRegionAcconto, AltriSoggettiAddRegionImposta, AltriSoggettiAddRegionSospesa,"
    " AltriSoggettiCodiceFiscale, AltriSoggettiImponibile, AltriSoggettiRitenuteImposta,"
    " AltriSoggettiRitenuteAcconto, AltriSoggettiRitenuteSospese, CodiceFiscaleIndennitaEsproprio,"
    " CodiceFiscaleLavoroAutonomo, CodiceFiscalePignoramentoTerzi, ContributiDovuti, ContributiVersati,"
    " ImportoAltriContributi, IndennitaEsproprioRitenuteOperate1, IndennitaEsproprioRitenuteOperate2,"
    " IndennitaEsproprioSommeCorrisposte1, IndennitaEsproprioSommeCorrisposte2,"
    " PignoramentoTerziCodiceFiscale1, PignoramentoTerziCodiceFiscale2,"
    " PignoramentoTerziRitenuteNonOperate1, PignoramentoTerziSommeNonTassate1,"
    " PignoramentoTerziRitenuteNonOperate2, PignoramentoTerziSommeNonTassate2,"
    " PignoramentoTerziRitenuteOperate1, PignoramentoTerziRitenuteOperate2,"
    " PignoramentoTerziSommeErogate1, PignoramentoTerziSommeErogate2, SommeCorrisposteDalCuratore,"
    " SommeCorrispostePreFallimento, NonResidenteSchumacker, CodiceFiscaleRappresentanteAzienda,"
    " CodiceCarica, CodicePercipiente, IDAnagrafica, IDCausalePagamento, Anno, IDAzienda"
    " FROM RepContoIndividuale";

class Select : public testing::Test {
 protected:
  // The text after the year and the company.
  std::string oltre(const Filtri& filtri) const {
    const std::string testo = fnSelectCompensi(filtri, 7, utilita);
    const std::string inizio = kSelect + " WHERE Anno = 2016 AND IDAzienda = 7";
    EXPECT_EQ(testo.substr(0, inizio.size()), inizio);
    return testo.substr(inizio.size());
  }
  static Filtri perNome() {
    Filtri filtri;
    filtri.anno = "2016";
    return filtri;
  }
  static Filtri perCodice() {
    Filtri filtri = perNome();
    filtri.perCodice = true;
    filtri.perNome = false;
    return filtri;
  }

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
};

}  // namespace

TEST(WorkTable, NameIsTheUsersNumberBehindAFixedWord) {
  EXPECT_EQ(fnNomeTabellaLavoro(12), "tmpprequadrivio12");
  EXPECT_EQ(fnNomeTabellaLavoro(1), "tmpprequadrivio1");
  EXPECT_EQ(fnNomeTabellaLavoro(2147483647), "tmpprequadrivio2147483647");
}

TEST(WorkTable, AnEarlierTableOfTheUserIsDropped) {
  EXPECT_EQ(fnEliminaTabella("tmpprequadrivio12"),
            "if exists (select * from dbo.sysobjects where id = object_id(N'[dbo].[tmpprequadrivio12]')"
            " AND type in ('N','U')) drop table [dbo].[tmpprequadrivio12]");
}

TEST(WorkTable, HasItsColumnsInOrderAndItsKey) {
  std::string expected = "CREATE TABLE [dbo].[tmpprequadrivio12]  (";
  for (std::size_t i = 0; i < kWorkColumns.size(); ++i) {
    const WorkColumn& column = kWorkColumns[i];
    if (i > 0) expected += " , ";
    expected += "[" + std::string(column.name) + "] [" + std::string(column.type) + "]";
    expected += column.nullable ? " NULL" : " NOT NULL";
  }
  expected +=
      " CONSTRAINT [PK_tmpprequadrivio12] PRIMARY KEY CLUSTERED ([IDAnagrafica] ASC,"
      " [IDCausalePagamento] ASC, [Anno]) WITH (IGNORE_DUP_KEY = OFF) ON [PRIMARY]) ON [PRIMARY]";
  EXPECT_EQ(fnCreaTabella("tmpprequadrivio12"), expected);
}

TEST(WorkTable, CreationBeginsAndGoesOnAsTheServerIsSentIt) {
  const std::string begin =
      "CREATE TABLE [dbo].[tmpprequadrivio3]  ([Selezionato] [int] NULL , [Modificato] [int] NULL ,"
      " [AnagraficaPerc] [Note] NULL , [Nome] [Descrizione] NULL , [Codice] [Descrizione] NOT NULL ,"
      " [Anticipazione] [SiNo] NOT NULL , [CodiceFiscale] [Descrizione] NOT NULL ,"
      " [AmmontareLordo] [Importo] NULL ,";
  EXPECT_EQ(fnCreaTabella("tmpprequadrivio3").substr(0, begin.size()), begin);
}

TEST_F(Select, WithoutRangesReadsTheYearAndTheCompany) {
  EXPECT_EQ(fnSelectCompensi(perNome(), 7, utilita), kSelect + " WHERE Anno = 2016 AND IDAzienda = 7");
}

TEST_F(Select, TheYearIsTakenAsShownButForBlanksAround) {
  Filtri filtri = perNome();
  filtri.anno = "  2016 ";
  EXPECT_EQ(fnSelectCompensi(filtri, 7, utilita), kSelect + " WHERE Anno = 2016 AND IDAzienda = 7");
  filtri.anno = "anno 2016";
  EXPECT_EQ(fnSelectCompensi(filtri, 7, utilita), kSelect + " WHERE Anno = anno 2016 AND IDAzienda = 7");
}

TEST_F(Select, RangeByCodeComparesTheCodes) {
  Filtri filtri = perCodice();
  filtri.codiceDa = "P1";
  filtri.descrizioneDa = "Rossi";
  filtri.codiceA = "P9";
  filtri.descrizioneA = "Verdi";
  EXPECT_EQ(oltre(filtri), " AND CodicePercipiente >= 'P1' AND CodicePercipiente <= 'P9'");
}

TEST_F(Select, RangeByNameComparesTheDescriptions) {
  Filtri filtri = perNome();
  filtri.codiceDa = "P1";
  filtri.descrizioneDa = "Rossi";
  filtri.codiceA = "P9";
  filtri.descrizioneA = "Verdi";
  EXPECT_EQ(oltre(filtri), " AND Anagrafica >= 'Rossi' AND Anagrafica <= 'Verdi'");
}

TEST_F(Select, EachBoundStandsAlone) {
  Filtri filtri = perCodice();
  filtri.codiceDa = "P1";
  EXPECT_EQ(oltre(filtri), " AND CodicePercipiente >= 'P1'");
  filtri = perCodice();
  filtri.codiceA = "P9";
  EXPECT_EQ(oltre(filtri), " AND CodicePercipiente <= 'P9'");
  filtri = perNome();
  filtri.codiceDa = "P1";
  filtri.descrizioneDa = "Rossi";
  EXPECT_EQ(oltre(filtri), " AND Anagrafica >= 'Rossi'");
  filtri = perNome();
  filtri.codiceA = "P9";
  filtri.descrizioneA = "Verdi";
  EXPECT_EQ(oltre(filtri), " AND Anagrafica <= 'Verdi'");
}

TEST_F(Select, ANameWithoutItsCodeSetsNoBound) {
  Filtri filtri = perNome();
  filtri.codiceDa = "   ";
  filtri.descrizioneDa = "Rossi";
  filtri.descrizioneA = "Verdi";
  EXPECT_EQ(oltre(filtri), "");
}

TEST_F(Select, ACodeWithoutItsNameBoundsByTheEmptyName) {
  Filtri filtri = perNome();
  filtri.codiceDa = "P1";
  EXPECT_EQ(oltre(filtri), " AND Anagrafica >= ''");
}

TEST_F(Select, ABlankCodeSetsNoBoundAndAGivenOneIsNotTrimmed) {
  Filtri filtri = perCodice();
  filtri.codiceDa = "  ";
  filtri.codiceA = " P9 ";
  filtri.causaleDa = " ";
  filtri.causaleA = "M ";
  EXPECT_EQ(oltre(filtri), " AND CodicePercipiente <= ' P9 ' AND Codice <= 'M '");
}

TEST_F(Select, WithNeitherWayOfSelectionThePayeesAreNotBounded) {
  Filtri filtri = perNome();
  filtri.perNome = false;
  filtri.codiceDa = "P1";
  filtri.codiceA = "P9";
  EXPECT_EQ(oltre(filtri), "");
}

TEST_F(Select, RangeOfReasonsComparesTheirCode) {
  Filtri filtri = perNome();
  filtri.causaleDa = "A";
  filtri.causaleA = "M";
  EXPECT_EQ(oltre(filtri), " AND Codice >= 'A' AND Codice <= 'M'");
  filtri.causaleDa.clear();
  EXPECT_EQ(oltre(filtri), " AND Codice <= 'M'");
  filtri.causaleDa = "A";
  filtri.causaleA.clear();
  EXPECT_EQ(oltre(filtri), " AND Codice >= 'A'");
}

TEST_F(Select, RangesStandInTheOrderPayeesThenReasonsWithTheirQuotesDoubled) {
  Filtri filtri = perNome();
  filtri.codiceDa = "P1";
  filtri.descrizioneDa = "D'Amico";
  filtri.codiceA = "P9";
  filtri.descrizioneA = "L'Abate";
  filtri.causaleDa = "A'";
  filtri.causaleA = "Z";
  EXPECT_EQ(
      oltre(filtri),
      " AND Anagrafica >= 'D''Amico' AND Anagrafica <= 'L''Abate' AND Codice >= 'A''' AND Codice <= 'Z'");
}

}  // namespace cu::test
