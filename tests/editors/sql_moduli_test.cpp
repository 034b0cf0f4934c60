// The statements on the additional modules, word for word.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/applica_prova.h"
#include "editors/sql_moduli.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;

struct Statements : testing::Test, Applying {};

const std::string kColonneComuni =
    "(IDModuloXContoIndividuale, IDAnagrafica, IDAzienda, IDCausalePagamento, Anno, NumeroModulo, "
    "IDCodicePerNonSoggetti, AnnoModulo, SommeNonSoggette, ImponibileAnniPrec, RitenuteAnniPrec, "
    "Anticipazione";
const std::string kColonneDal2015 =
    ", ContributiCaricoAzienda, ContributiCaricoPercipiente, AltriContributi, ImportoAltriContributi, "
    "ContributiDovuti, ContributiVersati, AltriSoggettiCodiceFiscale, AltriSoggettiImponibile, "
    "AltriSoggettiRitenuteAcconto, AltriSoggettiRitenuteImposta, AltriSoggettiRitenuteSospese, "
    "AltriSoggettiAddRegionAcconto, AltriSoggettiAddRegionImposta, AltriSoggettiAddRegionSospesa, "
    "AltriSoggettiAddComunAcconto, AltriSoggettiAddComunImposta, AltriSoggettiAddComunSospesa, "
    "CodiceFiscaleLavoroAutonomo, CodiceFiscalePignoramentoTerzi, CodiceFiscaleIndennitaEsproprio, ";
const std::string kColonneEsproprio =
    ", IndennitaEsproprioSommeCorrisposte1, IndennitaEsproprioRitenuteOperate1, "
    "AltreIndennitaSommeCorrisposte1, AltreIndennitaRitenuteOperate1, IndennitaEsproprioSommeCorrisposte2, "
    "IndennitaEsproprioRitenuteOperate2, AltreIndennitaSommeCorrisposte2, AltreIndennitaRitenuteOperate2)";

TEST_F(Statements, TheKeyOfALineStandsInThemInNumbersWhateverTheTableHolds) {
  database.main.answer("chiavi",
                       workTable({workRow(1, 1,
                                          {{"Anno", text("2016 OR 1=1")},
                                           {"IDAnagrafica", text("31 --")},
                                           {"IDCausalePagamento", text("4;DROP TABLE Compenso")}})}));
  Recordset chiavi;
  chiavi.Open(database.main, "chiavi");
  const SqlModuli sql(fnDisposizione(2016), {}, utilita);
  EXPECT_EQ(sql.select(chiavi, 1),
            "SELECT *, Anticipazione AS Eliminato FROM ModuloXContoIndividuale WHERE Anno = 2016 AND "
            "IDAnagrafica = "
            "31 AND IDAzienda = 1 AND IDCausalePagamento = 4");
}

TEST_F(Statements, AnInsertionOfTheNewestLayout) {
  apri(2016);
  riempi(2016);
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(
      database.main.texts(),
      ElementsAre(
          "SELECT MAX(IDModuloXContoIndividuale) AS ID FROM ModuloXContoIndividuale",
          "INSERT INTO ModuloXContoIndividuale " + kColonneComuni + kColonneDal2015 +
              "PignoramentoTerziCodiceFiscale1, PignoramentoTerziSommeErogate1, "
              "PignoramentoTerziRitenuteOperate1, PignoramentoTerziSommeNonTassate1, "
              "PignoramentoTerziCodiceFiscale2, PignoramentoTerziSommeErogate2, "
              "PignoramentoTerziRitenuteOperate2, PignoramentoTerziSommeNonTassate2" +
              kColonneEsproprio +
              " VALUES (42, 1, 1, 1, 2016, 4, 2, 2009, 7.5, 18.5, 19.5, 1, 34.5, 35.5, 1, 37.5, 38.5, 39.5, "
              "'l''52', 53.5, 54.5, 55.5, 56.5, 57.5, 58.5, 59.5, 60.5, 61.5, 62.5, NULL, NULL, NULL, "
              "'l''101', 102.5, 103.5, 104.5, 'l''105', 106.5, 107.5, 108.5, 131.5, 132.5, 133.5, 134.5, "
              "135.5, 136.5, 137.5, 138.5)"));
  EXPECT_TRUE(editor->OK());
}

TEST_F(Statements, AnInsertionOfTheLayoutOf2015) {
  apri(2015);
  riempi(2015);
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(
      istruzioni(),
      ElementsAre(
          "INSERT INTO ModuloXContoIndividuale " + kColonneComuni + kColonneDal2015 +
          "PignoramentoTerziCodiceFiscale1, PignoramentoTerziSommeErogate1, "
          "PignoramentoTerziRitenuteOperate1, PignoramentoTerziRitenuteNonOperate1, "
          "PignoramentoTerziCodiceFiscale2, PignoramentoTerziSommeErogate2, "
          "PignoramentoTerziRitenuteOperate2, PignoramentoTerziRitenuteNonOperate2" +
          kColonneEsproprio +
          " VALUES (42, 1, 1, 1, 2015, 4, 2, 2009, 7.5, 18.5, 19.5, 1, 34.5, 35.5, 1, 37.5, 38.5, 39.5, "
          "'l''52', 53.5, 54.5, 55.5, 56.5, 57.5, 58.5, 59.5, 60.5, 61.5, 62.5, NULL, NULL, NULL, "
          "'l''101', 102.5, 103.5, 1, 'l''105', 106.5, 107.5, 1, 131.5, 132.5, 133.5, 134.5, 135.5, 136.5, "
          "137.5, 138.5)"));
}

// Its list of columns ends with a blank.
TEST_F(Statements, AnInsertionOfTheOldestLayout) {
  apri(2014);
  riempi(2014);
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(istruzioni(), ElementsAre("INSERT INTO ModuloXContoIndividuale " + kColonneComuni +
                                        ")  VALUES (42, 1, 1, 1, 2014, 4, 2, 2009, 7.5, 18.5, 19.5, 1)"));
}

TEST_F(Statements, AnInsertionOfAnEmptyModule) {
  apri(2014);
  premi("cmdNew");
  importo(18).enter("0");
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(istruzioni(), ElementsAre("INSERT INTO ModuloXContoIndividuale " + kColonneComuni +
                                        ")  VALUES (42, 1, 1, 1, 2014, 2, NULL, NULL, 0, 0, 0, 0)"));
}

const WorkRow kConservato = {
    {"IDCodicePerNonSoggetti", whole(1)},
    {"AnnoModulo", null()},
    {"CodiceFiscaleLavoroAutonomo", text("d'Alba")},
    {"CodiceFiscalePignoramentoTerzi", text("")},
};
const std::string kAssegnazioniDal2015 =
    ", ContributiCaricoAzienda = 0, ContributiCaricoPercipiente = 0, AltriContributi = 0, "
    "ImportoAltriContributi = -1.5, ContributiDovuti = 0, ContributiVersati = 0, "
    "AltriSoggettiCodiceFiscale = '', AltriSoggettiImponibile = 0, AltriSoggettiRitenuteAcconto = 0, "
    "AltriSoggettiRitenuteImposta = 0, AltriSoggettiRitenuteSospese = 0, AltriSoggettiAddRegionAcconto = 0, "
    "AltriSoggettiAddRegionImposta = 0, AltriSoggettiAddRegionSospesa = 0, AltriSoggettiAddComunAcconto = "
    "0, AltriSoggettiAddComunImposta = 0, AltriSoggettiAddComunSospesa = 0, CodiceFiscaleLavoroAutonomo = "
    "'d''Alba', CodiceFiscalePignoramentoTerzi = '', CodiceFiscaleIndennitaEsproprio = NULL, ";
const std::string kAssegnazioniEsproprio =
    ", IndennitaEsproprioSommeCorrisposte1 = 0, IndennitaEsproprioRitenuteOperate1 = 0, "
    "AltreIndennitaSommeCorrisposte1 = 0, AltreIndennitaRitenuteOperate1 = 0, "
    "IndennitaEsproprioSommeCorrisposte2 = 0, IndennitaEsproprioRitenuteOperate2 = 0, "
    "AltreIndennitaSommeCorrisposte2 = 0, AltreIndennitaRitenuteOperate2 = 0 "
    "WHERE IDModuloXContoIndividuale = 7";

TEST_F(Statements, AnUpdateOfTheNewestLayout) {
  moduli({modulo(7, 2, kConservato)});
  apri(2016);
  importo(69).enter("-1,5");
  importo(17).enter("1234,5");
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(
      database.main.texts(),
      ElementsAre("UPDATE ModuloXContoIndividuale SET  NumeroModulo = 2, IDCodicePerNonSoggetti = 1, "
                  "AnnoModulo = NULL, SommeNonSoggette = 1234.5, ImponibileAnniPrec = 0, RitenuteAnniPrec = "
                  "0, Anticipazione = 0" +
                  kAssegnazioniDal2015 +
                  "PignoramentoTerziCodiceFiscale1 = '', PignoramentoTerziSommeErogate1 = 0, "
                  "PignoramentoTerziRitenuteOperate1 = 0, PignoramentoTerziSommeNonTassate1 = 0, "
                  "PignoramentoTerziCodiceFiscale2 = '', PignoramentoTerziSommeErogate2 = 0, "
                  "PignoramentoTerziRitenuteOperate2 = 0, PignoramentoTerziSommeNonTassate2 = 0" +
                  kAssegnazioniEsproprio));
}

TEST_F(Statements, AnUpdateOfTheLayoutOf2015) {
  moduli({modulo(7, 2, kConservato)});
  apri(2015);
  importo(69).enter("-1,5");
  c<Check>("chkRitenuteNonOperate2AltriModuli").click();
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(
      istruzioni(),
      ElementsAre("UPDATE ModuloXContoIndividuale SET  NumeroModulo = 2, IDCodicePerNonSoggetti = 1, "
                  "AnnoModulo = NULL, SommeNonSoggette = 0, ImponibileAnniPrec = 0, RitenuteAnniPrec = "
                  "0, Anticipazione = 0" +
                  kAssegnazioniDal2015 +
                  "PignoramentoTerziCodiceFiscale1 = '', PignoramentoTerziSommeErogate1 = 0, "
                  "PignoramentoTerziRitenuteOperate1 = 0, PignoramentoTerziRitenuteNonOperate1 = 0, "
                  "PignoramentoTerziCodiceFiscale2 = '', PignoramentoTerziSommeErogate2 = 0, "
                  "PignoramentoTerziRitenuteOperate2 = 0, PignoramentoTerziRitenuteNonOperate2 = 1" +
                  kAssegnazioniEsproprio));
}

TEST_F(Statements, AnUpdateOfTheOldestLayout) {
  moduli({modulo(7, 2, {{"ContributiDovuti", amount("3")}})});
  apri(2014);
  importo(18).enter("1234,5");
  c<NumberBox>("numAnno").enter("2010");
  c<Check>("chkAnticipazioneAltri").click();
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(istruzioni(),
              ElementsAre("UPDATE ModuloXContoIndividuale SET  NumeroModulo = 2, IDCodicePerNonSoggetti = "
                          "NULL, AnnoModulo = 2010, SommeNonSoggette = 0, ImponibileAnniPrec = 1234.5, "
                          "RitenuteAnniPrec = 0, Anticipazione = 1 WHERE IDModuloXContoIndividuale = 7"));
}

TEST_F(Statements, ADeletion) {
  for (const int anno : kAnni) {
    moduli({modulo(7, 2), modulo(8, 3)});
    apri(anno);
    elimina(1);
    premi("cmdOk");
    EXPECT_THAT(database.main.texts(),
                ElementsAre("DELETE ModuloXContoIndividuale WHERE IDModuloXContoIndividuale = 7"));
  }
}

// Number and year are amounts in an update and ids in an insertion.
TEST_F(Statements, AYearOfZeroIsZeroInAnUpdateAndNullInAnInsertion) {
  moduli({modulo(7, 0, {{"AnnoModulo", whole(0)}})});
  apri(2014);
  const std::vector<CampoEditor> campi = campiEditor(Pagina::AltriModuli, 2014);
  const SqlModuli sql(fnDisposizione(2014), campi, utilita);
  EXPECT_EQ(sql.update(7, righeModuli()),
            "UPDATE ModuloXContoIndividuale SET  NumeroModulo = 0, IDCodicePerNonSoggetti = NULL, AnnoModulo "
            "= 0, SommeNonSoggette = NULL, ImponibileAnniPrec = NULL, RitenuteAnniPrec = NULL, Anticipazione "
            "= 0 WHERE IDModuloXContoIndividuale = 7");
  EXPECT_EQ(sql.insert(8, riga, 1, righeModuli()),
            "INSERT INTO ModuloXContoIndividuale " + kColonneComuni +
                ")  VALUES (8, 1, 1, 1, 2014, NULL, NULL, NULL, NULL, NULL, NULL, 0)");
}

TEST_F(Statements, GoThroughTheSuitesAdaptation) {
  moduli({modulo(7, 2), modulo(8, 3)});
  apri(2016);
  elimina(1);
  aggiungi();
  utilita.adapted.clear();
  premi("cmdOk");
  EXPECT_EQ(utilita.adapted, database.main.texts());
}

}  // namespace
}  // namespace cu::test
