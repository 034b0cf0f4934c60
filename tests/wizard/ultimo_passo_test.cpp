#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

class PrintSetup : public testing::Test, public WizardProva {};
class ModeChange : public testing::Test, public WizardProva {};

struct UltimoPasso {
  int modo;
  bool file;
};

class LastStep : public testing::TestWithParam<UltimoPasso>, public WizardProva {
 protected:
  void SetUp() override {
    if (GetParam().modo == 342) {
      vaiAllaFine();
      return;
    }
    avvia(GetParam().modo);
    form().KRNCboEsCont0.setIndex(0);
    premi(form().cmdNav[3]);
  }
};

TEST_P(LastStep, ShowsTheFramesOfItsMode) {
  for (const char* nome :
       {"chkIntermediari", "fraIntermediari", "fraFirma", "fraTipoStampa", "fraPercorso"}) {
    EXPECT_EQ(form().find(nome)->visible(), GetParam().file) << nome;
  }
  EXPECT_TRUE(form().Frame5.visible());
  EXPECT_TRUE(form().WizPrint.visible());
}

TEST_P(LastStep, PreparesThePrintControl) {
  const PrintControl::Setup& dati = form().WizPrint.setup();
  EXPECT_EQ(dati.connection, &database.main);
  EXPECT_EQ(dati.idFiliale, 1);
  EXPECT_EQ(dati.report, "");
  EXPECT_EQ(dati.idUtente, 12);
  EXPECT_EQ(dati.objectType, GetParam().modo);
  EXPECT_EQ(dati.defaultRow, 0);
  EXPECT_EQ(dati.application, "Autocomposizione");
  EXPECT_EQ(form().WizPrint.choice(), !GetParam().file);
  EXPECT_EQ(form().WizPrint.output(), GetParam().file ? 6 : 1);
  EXPECT_FALSE(form().WizPrint.toFile());
}

TEST_P(LastStep, LooksUpTheDefaultRowOfTypeAndBranch) {
  EXPECT_THAT(database.main.texts(),
              Contains("SELECT IDDefaultFilialePerTipoOggetto, IDTipoOggetto, IDFiliale"
                       " FROM DefaultFilialePerTipoOggetto WHERE IDTipoOggetto = " +
                       std::to_string(GetParam().modo) + " AND \r\nIDFiliale = 1"));
}

INSTANTIATE_TEST_SUITE_P(Modes, LastStep,
                         testing::Values(UltimoPasso{246, false}, UltimoPasso{247, false},
                                         UltimoPasso{342, true}),
                         [](const auto& caso) { return "Mode" + std::to_string(caso.param.modo); });

TEST_F(PrintSetup, TheDefaultRowIsTheFirstOneFound) {
  database.main.answerContaining(
      "DefaultFilialePerTipoOggetto",
      Table({"IDDefaultFilialePerTipoOggetto", "IDTipoOggetto", "IDFiliale"},
            {{whole(41), whole(246), whole(1)}, {whole(42), whole(246), whole(1)}}));
  avvia(246);
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().WizPrint.setup().defaultRow, 41);
}

TEST_F(PrintSetup, AnErrorInTheLookUpOfTheDefaultRowYieldsNone) {
  database.main.refuseContaining("DefaultFilialePerTipoOggetto");
  avvia(246);
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 2);
  EXPECT_EQ(form().WizPrint.setup().defaultRow, 0);
  EXPECT_THAT(frontEnd.errors, IsEmpty());
}

TEST_F(PrintSetup, ThePrintControlTakesTheBranchOfTheSession) {
  factory.prepareSession = [](FakeSession& sessione) {
    sessione.processes = {{"Wizard stampa", 246}};
    sessione.branch = 9;
  };
  modMain.main();
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().WizPrint.setup().idFiliale, 9);
  EXPECT_THAT(database.main.texts(), Contains(HasSubstr(" AND \r\nIDFiliale = 9")));
}

struct ModoIniziale {
  int modo;
  bool opzioni;      // the two options of the type, and the controls of the file
  bool secondoAnno;  // the second list of years
};

class ModeAtStart : public testing::TestWithParam<ModoIniziale>, public WizardProva {};

TEST_P(ModeAtStart, HidesWhatItDoesNotUse) {
  avvia(GetParam().modo);
  for (const char* nome : {"optstType(0)", "optstType(1)", "fraTipoComunicazione", "fraFirma",
                           "fraIntermediari", "chkIntermediari", "fraTipoStampa", "fraPercorso"}) {
    EXPECT_EQ(form().find(nome)->visible(), GetParam().opzioni) << nome;
  }
  EXPECT_EQ(form().lblEsCont1.visible(), GetParam().secondoAnno);
  EXPECT_EQ(form().KRNCboEsCont1.visible(), GetParam().secondoAnno);
}

INSTANTIATE_TEST_SUITE_P(Modes, ModeAtStart,
                         testing::Values(ModoIniziale{246, false, true}, ModoIniziale{247, true, false}),
                         [](const auto& caso) { return "Mode" + std::to_string(caso.param.modo); });

TEST_F(ModeChange, OptionOfTheFileEnablesTheKindsOfCommunication) {
  avvia(247);
  premi(form().optstType[1]);
  EXPECT_EQ(globali().gIDFunzione, 342);
  EXPECT_TRUE(form().fraTipoComunicazione.enabled());
  EXPECT_TRUE(form().fraTipoComunicazione.visible());
  for (const Option& opzione : form().optTipoComunicazione) EXPECT_TRUE(opzione.enabled());
  premi(form().optstType[0]);
  EXPECT_EQ(globali().gIDFunzione, 247);
  EXPECT_FALSE(form().fraTipoComunicazione.enabled());
  EXPECT_TRUE(form().fraTipoComunicazione.visible());
  for (const Option& opzione : form().optTipoComunicazione) EXPECT_FALSE(opzione.enabled());
}

}  // namespace
}  // namespace cu::test
