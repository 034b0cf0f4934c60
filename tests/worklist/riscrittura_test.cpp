#include "worklist/riscrittura.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "modello/forma_2031.h"
#include "worklist/compensi_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

enum class Come { Testo, Assoluto, Numero, TestoNullo };

struct Scritta {
  std::string_view colonna;
  Come come;
};

// clang-format off
constexpr Scritta kScritte[] = {
    {"ProtocolloAnnSost", Come::Testo},
    {"ProgressivoAnnSost", Come::Testo},
    {"Anticipazione", Come::Assoluto},
    {"AmmontareLordo", Come::Numero},
    {"SommeRegimeConvenzionale", Come::Numero},
    {"IDCodicePerNonSoggetti", Come::Numero},
    {"CodicePerNonSoggetti", Come::Testo},
    {"SommeNonSoggetteARitenuta", Come::Numero},
    {"QuotaProvvigioniNonSoggette", Come::Numero},
    {"Imponibile", Come::Numero},
    {"RitenuteAcconto", Come::Numero},
    {"RitenuteImposta", Come::Numero},
    {"RitenuteSospese", Come::Numero},
    {"AddRegionAcconto", Come::Numero},
    {"AddRegionImposta", Come::Numero},
    {"AddRegionSospesa", Come::Numero},
    {"AddComunAcconto", Come::Numero},
    {"AddComunImposta", Come::Numero},
    {"AddComunSospesa", Come::Numero},
    {"ImponibileAnniPrecedenti", Come::Numero},
    {"RitenuteAnniPrecedenti", Come::Numero},
    {"SpeseRimborsate", Come::Numero},
    {"RitenuteRimborsate", Come::Numero},
    {"ContributiCaricoAzienda", Come::Numero},
    {"ContributiCaricoPercipiente", Come::Numero},
    {"AltriContributi", Come::Assoluto},
    {"ImportoAltriContributi", Come::Numero},
    {"ContributiDovuti", Come::Numero},
    {"ContributiVersati", Come::Numero},
    {"SommeCorrispostePreFallimento", Come::Numero},
    {"SommeCorrisposteDalCuratore", Come::Numero},
    {"AltriSoggettiCodiceFiscale", Come::Testo},
    {"AltriSoggettiImponibile", Come::Numero},
    {"AltriSoggettiRitenuteAcconto", Come::Numero},
    {"AltriSoggettiRitenuteImposta", Come::Numero},
    {"AltriSoggettiRitenuteSospese", Come::Numero},
    {"AltriSoggettiAddRegionAcconto", Come::Numero},
    {"AltriSoggettiAddRegionImposta", Come::Numero},
    {"AltriSoggettiAddRegionSospesa", Come::Numero},
    {"AltriSoggettiAddComunAcconto", Come::Numero},
    {"AltriSoggettiAddComunImposta", Come::Numero},
    {"AltriSoggettiAddComunSospesa", Come::Numero},
    {"CodiceFiscaleLavoroAutonomo", Come::Testo},
    {"CodiceFiscalePignoramentoTerzi", Come::Testo},
    {"CodiceFiscaleIndennitaEsproprio", Come::Testo},
    {"PignoramentoTerziCodiceFiscale1", Come::Testo},
    {"PignoramentoTerziSommeErogate1", Come::Numero},
    {"PignoramentoTerziRitenuteOperate1", Come::Numero},
    {"PignoramentoTerziRitenuteNonOperate1", Come::Assoluto},
    {"PignoramentoTerziSommeNonTassate1", Come::Numero},
    {"PignoramentoTerziCodiceFiscale2", Come::Testo},
    {"PignoramentoTerziSommeErogate2", Come::Numero},
    {"PignoramentoTerziRitenuteOperate2", Come::Numero},
    {"PignoramentoTerziRitenuteNonOperate2", Come::Assoluto},
    {"PignoramentoTerziSommeNonTassate2", Come::Numero},
    {"IndennitaEsproprioSommeCorrisposte1", Come::Numero},
    {"IndennitaEsproprioRitenuteOperate1", Come::Numero},
    {"AltreIndennitaSommeCorrisposte1", Come::Numero},
    {"AltreIndennitaRitenuteOperate1", Come::Numero},
    {"IndennitaEsproprioSommeCorrisposte2", Come::Numero},
    {"IndennitaEsproprioRitenuteOperate2", Come::Numero},
    {"AltreIndennitaSommeCorrisposte2", Come::Numero},
    {"AltreIndennitaRitenuteOperate2", Come::Numero},
    {"IDComuneResidenzaAnnoPrec", Come::Numero},
    {"IDComuneResidenzaAnnoCorr", Come::Numero},
    {"ComuneResidenzaAnnoPrec", Come::Testo},
    {"ComuneResidenzaAnnoCorr", Come::Testo},
    {"SiglaProvResidenzaAnnoPrec", Come::Testo},
    {"CodiceComuneDiNascitaPrec", Come::Testo},
    {"SiglaProvResidenzaAnnoCorr", Come::Testo},
    {"CodiceComuneDiNascitaCorr", Come::Testo},
    {"FusioneComuni", Come::Testo},
    {"FusioneComuniAnnoPrec", Come::Testo},
    {"Modificato", Come::TestoNullo},
};

// clang-format on

class RowUpdate : public testing::Test, public CompensiProva {
 protected:
  // Sets the row in the grid's recordset and saves it; returns the one statement sent.
  std::string salva(WorkRow cambiamenti) {
    carica({workRow(31, 4, std::move(cambiamenti))});
    compensi.sbAggiornaRiga();
    EXPECT_EQ(istruzioni().size(), 1U);
    return istruzioni().at(0);
  }
  // The value written into the column by the statement.
  static std::string scritto(const std::string& testo, std::string_view colonna) {
    const std::string inizio = std::string(colonna) + " = ";
    std::size_t da = testo.find(" SET " + inizio);
    da = da == std::string::npos ? testo.find(", " + inizio) + 2 : da + 5;
    da += inizio.size();
    std::size_t a = testo.find(", ", da);
    if (a == std::string::npos) a = testo.find(" WHERE Anno");
    return testo.substr(da, a - da);
  }
};

// A row with a different value in every column, and the statement composed column by column.
TEST_F(RowUpdate, WritesTheSeventyFourColumnsEachInItsWay) {
  EXPECT_EQ(std::size(kScritte), 74U);
  WorkRow riga;
  std::string atteso = "UPDATE tmpprequadrivio12 SET ";
  int numero = 0;
  for (const Scritta& scritta : kScritte) {
    ++numero;
    const std::string n = std::to_string(numero);
    if (numero > 1) atteso += ", ";
    atteso += std::string(scritta.colonna) + " = ";
    switch (scritta.come) {
      case Come::Testo:
        riga[std::string(scritta.colonna)] = text("t'" + n);
        atteso += "'t''" + n + "'";
        break;
      case Come::Assoluto:
        riga[std::string(scritta.colonna)] = whole(-1);
        atteso += "1";
        break;
      case Come::Numero:
        riga[std::string(scritta.colonna)] = amount("-" + n + ".0125");
        atteso += "-" + n + ".0125";
        break;
      case Come::TestoNullo:
        riga[std::string(scritta.colonna)] = whole(-1);
        atteso += "-1";
        break;
    }
  }
  EXPECT_EQ(salva(riga), atteso + chiave(31, 4));
}

TEST_F(RowUpdate, AsTheServerIsSentItForALineAsLoaded) {
  const std::string testo = salva({{"ProtocolloAnnSost", text("")}, {"AmmontareLordo", amount("1234.5")}});
  const std::string inizio =
      "UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = '', ProgressivoAnnSost = NULL, Anticipazione = 0,"
      " AmmontareLordo = 1234.5, SommeRegimeConvenzionale = 0, IDCodicePerNonSoggetti = NULL,"
      " CodicePerNonSoggetti = NULL, SommeNonSoggetteARitenuta = 0, QuotaProvvigioniNonSoggette = 0,"
      " Imponibile = 0, RitenuteAcconto = 0,";
  EXPECT_EQ(testo.substr(0, inizio.size()), inizio);
  const std::string fine =
      " IDComuneResidenzaAnnoPrec = NULL, IDComuneResidenzaAnnoCorr = NULL, ComuneResidenzaAnnoPrec = NULL,"
      " ComuneResidenzaAnnoCorr = NULL, SiglaProvResidenzaAnnoPrec = NULL, CodiceComuneDiNascitaPrec = NULL,"
      " SiglaProvResidenzaAnnoCorr = NULL, CodiceComuneDiNascitaCorr = NULL, FusioneComuni = NULL,"
      " FusioneComuniAnnoPrec = NULL, Modificato = 0"
      " WHERE Anno = 2016 AND IDAnagrafica = 31 AND IDAzienda = 1 AND IDCausalePagamento = 4";
  EXPECT_EQ(testo.substr(testo.size() - fine.size()), fine);
}

TEST_F(RowUpdate, ATextIsQuotedWithItsApostrophesDoubled) {
  EXPECT_EQ(scritto(salva({{"ComuneResidenzaAnnoCorr", text("L'Aquila")}}), "ComuneResidenzaAnnoCorr"),
            "'L''Aquila'");
  EXPECT_EQ(scritto(salva({{"ComuneResidenzaAnnoCorr", text("''")}}), "ComuneResidenzaAnnoCorr"), "''''''");
  EXPECT_EQ(scritto(salva({{"ComuneResidenzaAnnoCorr", text("")}}), "ComuneResidenzaAnnoCorr"), "''");
  EXPECT_EQ(scritto(salva({{"ComuneResidenzaAnnoCorr", null()}}), "ComuneResidenzaAnnoCorr"), "NULL");
}

TEST_F(RowUpdate, TheKeyIsWrittenInNumbersWhateverTheTableHolds) {
  const std::string testo = salva({{"Anno", text("2016 OR 1=1")},
                                   {"IDAnagrafica", text("31; DROP TABLE Compenso")},
                                   {"IDAzienda", text("1 --")},
                                   {"IDCausalePagamento", text("4'")}});
  EXPECT_EQ(testo.substr(testo.find(" WHERE ")),
            " WHERE Anno = 2016 AND IDAnagrafica = 31 AND IDAzienda = 1 AND IDCausalePagamento = 4");
}

TEST_F(RowUpdate, AnAmountHasAPointAndNoMorePlacesThanItNeeds) {
  EXPECT_EQ(scritto(salva({{"Imponibile", amount("1234567.8900")}}), "Imponibile"), "1234567.89");
  EXPECT_EQ(scritto(salva({{"Imponibile", amount("0.0001")}}), "Imponibile"), "0.0001");
  EXPECT_EQ(scritto(salva({{"Imponibile", amount("-0.5")}}), "Imponibile"), "-0.5");
  EXPECT_EQ(scritto(salva({{"Imponibile", amount("100")}}), "Imponibile"), "100");
  EXPECT_EQ(scritto(salva({{"Imponibile", amount("922337203685477.5807")}}), "Imponibile"),
            "922337203685477.5807");
  EXPECT_EQ(scritto(salva({{"Imponibile", null()}}), "Imponibile"), "NULL");
}

TEST_F(RowUpdate, AFlagIsWrittenAsItsAbsoluteValue) {
  for (const char* colonna : {"Anticipazione", "AltriContributi", "PignoramentoTerziRitenuteNonOperate1",
                              "PignoramentoTerziRitenuteNonOperate2"}) {
    SCOPED_TRACE(colonna);
    EXPECT_EQ(scritto(salva({{colonna, whole(-1)}}), colonna), "1");
    EXPECT_EQ(scritto(salva({{colonna, whole(1)}}), colonna), "1");
    EXPECT_EQ(scritto(salva({{colonna, whole(0)}}), colonna), "0");
    EXPECT_EQ(scritto(salva({{colonna, null()}}), colonna), "NULL");
  }
}

TEST_F(RowUpdate, AnIdOfZeroStaysZero) {
  EXPECT_EQ(scritto(salva({{"IDCodicePerNonSoggetti", whole(0)}}), "IDCodicePerNonSoggetti"), "0");
  EXPECT_EQ(scritto(salva({{"IDComuneResidenzaAnnoPrec", whole(0)}}), "IDComuneResidenzaAnnoPrec"), "0");
}

TEST_F(RowUpdate, TheChangedMarkIsWrittenAsItStands) {
  EXPECT_EQ(scritto(salva({{"Modificato", whole(0)}}), "Modificato"), "0");
  carica({workRow(31, 4)});
  compensi.rsCompensi().Set("Modificato", Value::ofFlag(true));
  compensi.sbAggiornaRiga();
  EXPECT_EQ(scritto(istruzioni().at(0), "Modificato"), "-1");
}

TEST_F(RowUpdate, WritesTheRowAsItStandsInMemory) {
  carica({workRow(31, 4), workRow(32, 4)});
  compensi.rsCompensi().MoveNext();
  compensi.rsCompensi().Set("RitenuteAcconto", amount("20.25"));
  compensi.sbAggiornaRiga();
  EXPECT_EQ(scritto(istruzioni().at(0), "RitenuteAcconto"), "20.25");
  EXPECT_THAT(istruzioni().at(0), testing::EndsWith(chiave(32, 4)));
}

TEST_F(RowUpdate, IsAdaptedBeforeItRuns) {
  utilita.adapt = [](const std::string& testo) { return testo + " --"; };
  database.main.answer("tmpprequadrivio12 --", workTable({workRow(31, 4)}));
  caricaAnno(filtriDi("2016"));
  compensi.sbAggiornaRiga();
  EXPECT_THAT(istruzioni().back(), testing::EndsWith(chiave(31, 4) + " --"));
}

TEST_F(RowUpdate, LeavesOutWhatAnEditorCannotChange) {
  const std::string testo = salva({});
  for (const char* colonna :
       {"AnagraficaPerc", "Nome", "Codice", "CodiceFiscale", "Selezionato", "NonResidente",
        "NonResidenteSchumacker", "CodiceFiscaleRappresentante", "CodiceFiscaleRappresentanteAzienda",
        "CodiceIdentificazioneFiscaleEstero", "CodiceCarica", "CodicePercipiente", "IDCategoriaParticolare",
        "IDEventoEccezionale", "IDTipoCausalePagamento"}) {
    EXPECT_EQ(testo.find(" " + std::string(colonna) + " = "), std::string::npos) << colonna;
  }
}

TEST_F(RowUpdate, OneThatTouchesNoRowIsTold) {
  carica({workRow(31, 4)});
  database.internal.touchContaining("UPDATE tmpprequadrivio12", 0);
  EXPECT_THAT(erroreDi([&] { compensi.sbAggiornaRiga(); }),
              testing::StartsWith("La tabella di lavoro non contiene più questa riga: "));
}

TEST_F(RowUpdate, ARefusedOneRises) {
  carica({workRow(31, 4)});
  database.internal.refuseContaining("UPDATE tmpprequadrivio12");
  EXPECT_THROW(compensi.sbAggiornaRiga(), DatabaseError);
}

// A new year's column is written back behind the other amounts; one that the year took away still is, as the
// lines of the years before have it.
TEST(NewYear, ItsColumnIsWrittenBack) {
  const std::vector<ColonnaRiscritta> colonne = colonneRiscritte(kModello2031);
  ASSERT_EQ(colonne.size(), std::size(kScritte) + 1);
  std::size_t nuova = 0;
  while (nuova < colonne.size() && colonne[nuova].nome != kColonnaNuova) ++nuova;
  ASSERT_LT(nuova, colonne.size());
  EXPECT_EQ(colonne[nuova].scrittura, Scrittura::Numero);
  EXPECT_EQ(colonne[nuova - 1].nome, kColonnaTolta);
  EXPECT_EQ(colonne[nuova + 1].nome, "IDComuneResidenzaAnnoPrec");
}

}  // namespace
}  // namespace cu::test
