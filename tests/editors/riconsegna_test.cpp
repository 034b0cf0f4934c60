// The confirmation writes the row back: codes, additional data, municipalities.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class HandBack : public testing::TestWithParam<int>, public CampiProva {
 protected:
  // Marks the row and confirms.
  void conferma() {
    importo(20).enter("5");
    database.internal.sent.clear();
    premi("cmdOk");
  }
  std::string colonna(const char* nome) { return riga.Get(nome).isNull() ? "NULL" : riga.Get(nome).toText(); }
};

constexpr const char* kComune =
    "SELECT CodiceComuneDiNascita, Provincia FROM Comune INNER JOIN Provincia ON Comune.IDProvincia = "
    "Provincia.IDProvincia WHERE IDComune = ";

TEST_P(HandBack, MarksTheRowAsModifiedAndCloses) {
  apri(GetParam());
  EXPECT_FALSE(editor->OK());
  conferma();
  EXPECT_TRUE(editor->OK());
  EXPECT_EQ(colonna("Modificato"), "-1");
  EXPECT_EQ(utilita.released.size(), 1U);
  EXPECT_EQ(riga.Status(), RecordStatus::Modified);
}

TEST_P(HandBack, NeverWritesTheTable) {
  apri(GetParam(), rigaPiena());
  conferma();
  EXPECT_TRUE(database.main.sent.empty());
}

TEST_P(HandBack, LeavesTheOtherRowsAlone) {
  apri(GetParam());
  conferma();
  riga.ClearFilter();
  riga.MoveTo(riga.RecordCount());
  EXPECT_EQ(colonna("IDAnagrafica"), "2");
  EXPECT_EQ(riga.Status(), RecordStatus::Unmodified);
}

TEST_P(HandBack, AnUnmarkedRowIsNotRewrittenButTheEditorIsConfirmed) {
  apri(GetParam(), rigaPiena());
  const Righe prima = fotografia(riga);
  database.internal.sent.clear();
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());
  EXPECT_TRUE(database.internal.sent.empty());
}

TEST_P(HandBack, StoresTheCodeOfTheChosenId) {
  apri(GetParam(), {{"IDCodicePerNonSoggetti", whole(1)}, {"CodicePerNonSoggetti", text("C1")}});
  c<ListBox>("cboCodicePerNonSoggetti").setRecord(2);
  database.internal.sent.clear();
  premi("cmdOk");
  EXPECT_EQ(colonna("IDCodicePerNonSoggetti"), "2");
  EXPECT_EQ(colonna("CodicePerNonSoggetti"), "C2");
  EXPECT_THAT(database.internal.texts(),
              Contains("SELECT Codice FROM CodicePerNonSoggetti WHERE IDCodicePerNonSoggetti = 2"));
}

TEST_P(HandBack, KeepsAnIdThatItsListHasNot) {
  apri(GetParam(), {{"IDCodicePerNonSoggetti", whole(77)}});
  EXPECT_EQ(c<ListBox>("cboCodicePerNonSoggetti").index(), -1);
  conferma();
  EXPECT_EQ(colonna("IDCodicePerNonSoggetti"), "77");
  EXPECT_EQ(colonna("RitenuteAcconto"), "5");
}

TEST_P(HandBack, KeepsAFiscalCodeThatIsLongerThanItsBox) {
  if (GetParam() == 2014) return;  // the oldest layout has no such box
  apri(GetParam(), {{"AltriSoggettiCodiceFiscale", text("RSSMRA70A01H501U-VECCHIO")},
                    {"CodiceFiscaleLavoroAutonomo", text("RSSMRA70A01H501U-VECCHIO")}});
  EXPECT_EQ(testo(5).text(), "RSSMRA70A01H501U");
  testo(6).enter("RSSMRA70A01H501U-NUOVO");
  conferma();
  EXPECT_EQ(colonna("AltriSoggettiCodiceFiscale"), "RSSMRA70A01H501U-VECCHIO");
  EXPECT_EQ(colonna("CodiceFiscaleLavoroAutonomo"), "RSSMRA70A01H501U");
}

TEST_P(HandBack, WithoutAChosenIdStoresNoCode) {
  apri(GetParam(), {{"IDCodicePerNonSoggetti", whole(1)}, {"CodicePerNonSoggetti", text("C1")}});
  c<ListBox>("cboCodicePerNonSoggetti").setIndex(-1);
  premi("cmdOk");
  EXPECT_EQ(colonna("IDCodicePerNonSoggetti"), "0");
  EXPECT_EQ(colonna("CodicePerNonSoggetti"), "");
}

TEST_P(HandBack, LooksUpProvinceAndCodeOfBothMunicipalities) {
  WorkRow piena = rigaPiena();
  for (const char* nome : {"SiglaProvResidenzaAnnoPrec", "SiglaProvResidenzaAnnoCorr",
                           "CodiceComuneDiNascitaPrec", "CodiceComuneDiNascitaCorr"}) {
    piena[nome] = text("vecchio");
  }
  apri(GetParam(), piena);
  conferma();
  EXPECT_THAT(database.internal.texts(),
              ElementsAre("SELECT Codice FROM CodicePerNonSoggetti WHERE IDCodicePerNonSoggetti = 1",
                          kComune + std::string("58"), kComune + std::string("59")));
  EXPECT_EQ(colonna("SiglaProvResidenzaAnnoPrec"), "RM");
  EXPECT_EQ(colonna("CodiceComuneDiNascitaPrec"), "H501");
  EXPECT_EQ(colonna("SiglaProvResidenzaAnnoCorr"), "MI");
  EXPECT_EQ(colonna("CodiceComuneDiNascitaCorr"), "F205");
}

TEST_P(HandBack, AnIdBelowOneClearsProvinceAndCode) {
  for (const Value& id : {whole(0), whole(-1), null()}) {
    WorkRow piena = rigaPiena();
    piena["IDComuneResidenzaAnnoPrec"] = id;
    piena["IDComuneResidenzaAnnoCorr"] = id;
    apri(GetParam(), piena);
    conferma();
    EXPECT_EQ(database.internal.texts().size(), 1U);  // only the code
    for (const char* nome : {"SiglaProvResidenzaAnnoPrec", "SiglaProvResidenzaAnnoCorr",
                             "CodiceComuneDiNascitaPrec", "CodiceComuneDiNascitaCorr"}) {
      EXPECT_EQ(colonna(nome), "") << nome;
    }
  }
}

TEST_P(HandBack, AMunicipalityWithoutARowLeavesProvinceAndCodeAsTheyAre) {
  database.internal.answerContaining(kComune, Table({"CodiceComuneDiNascita", "Provincia"}, {}));
  apri(GetParam(), rigaPiena());
  conferma();
  EXPECT_EQ(colonna("SiglaProvResidenzaAnnoPrec"), "RM");
  EXPECT_EQ(colonna("CodiceComuneDiNascitaPrec"), "H501");
  EXPECT_EQ(colonna("SiglaProvResidenzaAnnoCorr"), "MI");
  EXPECT_EQ(colonna("CodiceComuneDiNascitaCorr"), "F205");
}

TEST_P(HandBack, NullsBecomeZerosAndEmptyTextsOnlyWhereTheLayoutHasTheField) {
  WorkRow vuota = rigaPiena();
  for (const Campo& campo : tavolaModulo1()) vuota[campo.colonna] = null();
  apri(GetParam(), vuota);
  conferma();
  for (const Campo& campo : tavolaModulo1()) {
    if (std::string(campo.colonna) == "RitenuteAcconto") continue;
    const std::string vuoto = campo.tipo == Tipo::Testo ? "" : "0";
    EXPECT_EQ(colonna(campo.colonna), campo.nel(GetParam()) ? vuoto : "NULL") << campo.colonna;
  }
}

TEST_P(HandBack, LosesNothingAtTheLimits) {
  WorkRow estrema = rigaPiena();
  for (const Campo& campo : tavolaModulo1()) {
    if (campo.tipo == Tipo::Importo) estrema[campo.colonna] = amount("9999999999999.9999");
    if (campo.tipo == Tipo::Testo) estrema[campo.colonna] = text("L'ÀÈÌÒÙ\"; -- €16");
  }
  apri(GetParam(), estrema);
  const Righe prima = fotografia(riga);
  conferma();
  EXPECT_EQ(differenze(prima, fotografia(riga)), (Righe{{"RitenuteAcconto", "5"}, {"Modificato", "-1"}}));
}

TEST_P(HandBack, StoresTheModulesAlsoWhenTheRowIsUnmarked) {
  moduli({modulo(7, 2), modulo(8, 3)});
  apri(GetParam());
  premi("cmdDelete");
  // The deletion has recalculated the gross amount, which did not change.
  premi("cmdOk");
  EXPECT_FALSE(modificata());
  EXPECT_THAT(istruzioni(),
              ElementsAre("DELETE ModuloXContoIndividuale WHERE IDModuloXContoIndividuale = 7"));
}

TEST_P(HandBack, AFailingLookUpGoesToTheCallerAndLeavesRowAndEditorAsTheyWere) {
  for (const char* richiesta :
       {"SELECT Codice FROM CodicePerNonSoggetti", "WHERE IDComune = 58", "WHERE IDComune = 59"}) {
    CampiProva prova;
    prova.apri(GetParam(), rigaPiena());
    const Righe prima = fotografia(prova.riga);
    prova.database.internal.refuseContaining(richiesta);
    prova.importo(20).enter("5");
    prova.premi("cmdOk");
    EXPECT_EQ(prova.frontEnd.errors.size(), 1U) << richiesta;
    EXPECT_FALSE(prova.editor->OK());
    EXPECT_TRUE(prova.utilita.released.empty());
    EXPECT_TRUE(prova.istruzioni().empty());
    prova.premi("cmdAnnulla");
    prova.riga.ClearFilter();
    EXPECT_TRUE(differenze(prima, fotografia(prova.riga)).empty()) << richiesta;
    EXPECT_EQ(prova.riga.Status(), RecordStatus::Unmodified) << richiesta;
  }
}

INSTANTIATE_TEST_SUITE_P(Layouts, HandBack, testing::ValuesIn(kAnni),
                         [](const auto& anno) { return std::to_string(anno.param); });

struct ClosedEditor : testing::Test, CampiProva {};

TEST_F(ClosedEditor, TheCloseBoxGivesUp) {
  apri(2016);
  importo(20).enter("5");
  editor->close();
  EXPECT_FALSE(editor->OK());
  EXPECT_FALSE(modificata());
  EXPECT_EQ(utilita.released.size(), 1U);
}

TEST_F(ClosedEditor, EnterConfirmsAndEscapeGivesUp) {
  apri(2016);
  frontEnd.modals.push_back([](Form& form) { form.keyDown(27, 0); });
  editor->showModal();
  EXPECT_FALSE(editor->OK());
  apri(2016);
  frontEnd.modals.push_back([](Form& form) { form.keyDown(13, 0); });
  editor->showModal();
  EXPECT_TRUE(editor->OK());
}

class NotRewritten : public HandBack {
 protected:
  std::string detto(std::int32_t tipo = 1) {
    editor->setTipoComunicazione(static_cast<Comunicazione>(tipo));
    premi("cmdOk");
    EXPECT_TRUE(editor->OK());
    return frontEnd.facts.empty() ? "" : frontEnd.facts.back();
  }
};

TEST_P(NotRewritten, WithoutAChangeTheRowIsSaidToBeAsItWas) {
  apri(GetParam(), rigaPiena());
  EXPECT_EQ(detto(), "La riga è rimasta com'era: nessuna modifica.");
}

TEST_P(NotRewritten, ChangesThatDoNotMarkTheRowAreSaidToBeLost) {
  apri(GetParam(), rigaPiena());
  c<Check>("chkAnticipazione").click();
  EXPECT_EQ(detto(),
            "La riga non è stata riscritta: le modifiche fatte, da sole, non bastano (guida: Correggere un "
            "compenso).");
}

TEST_P(NotRewritten, ARewrittenRowIsNotSpokenOf) {
  apri(GetParam(), rigaPiena());
  importo(20).enter("5");
  EXPECT_EQ(detto(), "");
}

INSTANTIATE_TEST_SUITE_P(Years, NotRewritten, testing::Values(2014, 2015, 2016));

class Annulment : public testing::Test, public CampiProva {};

TEST_F(Annulment, ReferencesOfAnAnnulmentThatDoNotReachTheRowAreSaidToBeWrittenElsewhere) {
  apri(2016, rigaPiena(), 2);
  const std::string prima = riga.Get("ProtocolloAnnSost").toText();
  frontEnd.modals.push_back([](Form& dialogo) {
    dynamic_cast<TextBox&>(*dialogo.find("txtProtocollo")).enter("99999999999999999");
    dynamic_cast<TextBox&>(*dialogo.find("txtProgressivo")).enter("77");
    dynamic_cast<Button&>(*dialogo.find("cmdOk")).click();
  });
  editor->ApriDatiAggiuntivi();
  EXPECT_TRUE(editor->OK());
  EXPECT_EQ(riga.Get("ProtocolloAnnSost").toText(), prima);
  EXPECT_THAT(frontEnd.facts, ElementsAre("I riferimenti non sono entrati nella riga: si scrivono con il "
                                          "pulsante Protocollo."));
}

}  // namespace
}  // namespace cu::test
