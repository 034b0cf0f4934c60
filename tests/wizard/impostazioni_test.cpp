#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kLettura =
    "SELECT CodiceFiscaleIntermediario, TipoComunicazione, DataImpegno FROM ConfigurazioneElencoCliFor"
    " WHERE IDAzienda = 1";

class RunSettings : public testing::Test, public WizardProva {
 protected:
  void intermediarioSalvato(const char* codice = "NTRMDR70A01H501U", const Value& impegno = whole(2)) {
    const Table riga({"CodiceFiscaleIntermediario", "TipoComunicazione", "DataImpegno"},
                     {{text(codice), impegno, day(2017, 2, 10)}});
    database.internal.answer(kLettura, riga);
    database.internal.answer("SELECT * FROM ConfigurazioneElencoCliFor WHERE IDAzienda = 1", riga);
  }
  // The intermediary as stored by "Avvia".
  std::string memorizzato() {
    for (int i = passo(); i < 2; ++i) premi(form().cmdNav[3]);
    dimentica();
    premi(form().cmdNav[4]);
    for (const std::string& testo : database.internal.texts()) {
      if (testo.starts_with("UPDATE ConfigurazioneElencoCliFor")) return testo;
    }
    return {};
  }
  static std::string istruzione(const std::string& codice, const std::string& impegno) {
    return "UPDATE ConfigurazioneElencoCliFor SET  CodiceFiscaleIntermediario = '" + codice +
           "', TipoComunicazione = " + impegno + ", DataImpegno = '20170210' WHERE IDAzienda = 1";
  }
};

struct Tipo {
  std::size_t indice;
  bool abilitato;
  const char* didascalia;
};

class KindOfCommunication : public testing::TestWithParam<Tipo>, public WizardProva {};

TEST_P(KindOfCommunication, RulesTheReferencesButton) {
  avviaCU();
  // From another choice, so that the click is a change.
  form().optTipoComunicazione.at((GetParam().indice + 1) % 3).click();
  premi(form().optTipoComunicazione.at(GetParam().indice));
  EXPECT_EQ(form().cmdProtocollo.enabled(), GetParam().abilitato);
  EXPECT_EQ(form().cmdProtocollo.caption(), GetParam().didascalia);
}

INSTANTIATE_TEST_SUITE_P(Kinds, KindOfCommunication,
                         testing::Values(Tipo{0, false, "&Protocollo ann./sost."},
                                         Tipo{1, true, "&Protocollo annullamento"},
                                         Tipo{2, true, "&Protocollo sostituzione"}));

TEST_F(RunSettings, TheCheckEnablesTheIntermediarysControls) {
  vaiAllaFine();
  const auto abilitati = [&] {
    int conteggio = 0;
    for (const char* nome : {"fraIntermediari", "lblCodiceFiscale", "lblTipoComunicazione", "lblDataImpegno",
                             "txtCodiceFiscale", "cboxTipoComunicazione", "dtDataImpegno"}) {
      conteggio += form().find(nome)->enabled() ? 1 : 0;
    }
    return conteggio;
  };
  const auto sfondi = [&] {
    return std::vector<Background>{form().txtCodiceFiscale.background(),
                                   form().cboxTipoComunicazione.background(),
                                   form().dtDataImpegno.background()};
  };
  EXPECT_EQ(abilitati(), 0);
  EXPECT_THAT(sfondi(), ElementsAre(Background::Face, Background::Face, Background::Face));
  premi(form().chkIntermediari);
  EXPECT_EQ(abilitati(), 7);
  EXPECT_THAT(sfondi(), ElementsAre(Background::Window, Background::Window, Background::Window));
  premi(form().chkIntermediari);
  EXPECT_EQ(abilitati(), 0);
  EXPECT_THAT(sfondi(), ElementsAre(Background::Face, Background::Face, Background::Face));
}

TEST_F(RunSettings, TheFirstClickReadsTheStoredIntermediary) {
  intermediarioSalvato();
  vaiAllaFine();
  dimentica();
  premi(form().chkIntermediari);
  EXPECT_THAT(database.internal.texts(), ElementsAre(kLettura));
  EXPECT_THAT(utilita.adapted, ElementsAre(kLettura));
  EXPECT_EQ(form().txtCodiceFiscale.text(), "NTRMDR70A01H501U");
  EXPECT_EQ(form().cboxTipoComunicazione.index(), 1);
  EXPECT_EQ(form().cboxTipoComunicazione.text(), "Comunicazione predisposta da chi effettua l'invio");
  EXPECT_EQ(form().dtDataImpegno.text(), "10/02/2017");
}

TEST_F(RunSettings, WithoutAStoredIntermediaryNothingIsFilledIn) {
  vaiAllaFine();
  premi(form().chkIntermediari);
  EXPECT_EQ(form().txtCodiceFiscale.text(), "");
  EXPECT_EQ(form().cboxTipoComunicazione.index(), -1);
  EXPECT_EQ(form().dtDataImpegno.text(), "");
}

TEST_F(RunSettings, TurningTheBoxOffAndOnReadsNothingAgainAndKeepsWhatWasTyped) {
  intermediarioSalvato();
  vaiAllaFine();
  premi(form().chkIntermediari);
  form().txtCodiceFiscale.enter("ALTRO");
  form().cboxTipoComunicazione.setIndex(0);
  form().dtDataImpegno.enter("01/03/2017");
  dimentica();
  premi(form().chkIntermediari);
  premi(form().chkIntermediari);
  EXPECT_THAT(database.internal.texts(), IsEmpty());
  EXPECT_EQ(form().txtCodiceFiscale.text(), "ALTRO");
  EXPECT_EQ(form().cboxTipoComunicazione.index(), 0);
  EXPECT_EQ(form().dtDataImpegno.text(), "01/03/2017");
}

TEST_F(RunSettings, NoRowIsRememberedAsWellAsARow) {
  vaiAllaFine();
  premi(form().chkIntermediari);
  dimentica();
  premi(form().chkIntermediari);
  premi(form().chkIntermediari);
  EXPECT_THAT(database.internal.texts(), IsEmpty());
}

TEST_F(RunSettings, AReadThatFailedIsTriedAgain) {
  database.internal.refuseContaining("FROM ConfigurazioneElencoCliFor");
  vaiAllaFine();
  premi(form().chkIntermediari);
  EXPECT_THAT(frontEnd.errors, SizeIs(1));
  intermediarioSalvato();
  premi(form().chkIntermediari);
  EXPECT_EQ(form().txtCodiceFiscale.text(), "NTRMDR70A01H501U");
}

TEST_F(RunSettings, TheIntermediarysCodeHoldsSixteenCharacters) {
  vaiAllaFine();
  premi(form().chkIntermediari);
  form().txtCodiceFiscale.enter("ABCDEFGHIJKLMNOPQR");
  EXPECT_EQ(form().txtCodiceFiscale.text(), "ABCDEFGHIJKLMNOP");
}

TEST_F(RunSettings, ALongerStoredCodeIsShownCutAndStaysStoredUntilAPersonTypes) {
  intermediarioSalvato("NTRMDR70A01H501U/2");
  vaiAllaFine();
  premi(form().chkIntermediari);
  EXPECT_EQ(form().txtCodiceFiscale.text(), "NTRMDR70A01H501U");
  EXPECT_EQ(memorizzato(), istruzione("NTRMDR70A01H501U/2", "2"));
  form().txtCodiceFiscale.enter("ALTRO");
  EXPECT_EQ(memorizzato(), istruzione("ALTRO", "2"));
}

TEST_F(RunSettings, ACommitmentThatIsStoredAsNullBecomesANumber) {
  intermediarioSalvato("NTRMDR70A01H501U", null());
  vaiAllaFine();
  premi(form().chkIntermediari);
  EXPECT_EQ(form().cboxTipoComunicazione.index(), -1);
  EXPECT_EQ(memorizzato(), istruzione("NTRMDR70A01H501U", "0"));
}

class UnlistedCommitment : public RunSettings, public testing::WithParamInterface<std::int32_t> {};

TEST_P(UnlistedCommitment, StaysStoredUntilOneIsChosen) {
  intermediarioSalvato("NTRMDR70A01H501U", whole(GetParam()));
  vaiAllaFine();
  premi(form().chkIntermediari);
  EXPECT_EQ(form().cboxTipoComunicazione.index(), -1);
  EXPECT_EQ(memorizzato(), istruzione("NTRMDR70A01H501U", std::to_string(GetParam())));
  form().cboxTipoComunicazione.setIndex(0);
  EXPECT_EQ(memorizzato(), istruzione("NTRMDR70A01H501U", "1"));
  form().cboxTipoComunicazione.setIndex(-1);
  EXPECT_EQ(memorizzato(), istruzione("NTRMDR70A01H501U", "0"));
}

INSTANTIATE_TEST_SUITE_P(Codes, UnlistedCommitment,
                         testing::Values(3, 0, -5, std::numeric_limits<std::int32_t>::max(),
                                         std::numeric_limits<std::int32_t>::min()));

TEST_F(RunSettings, TheFolderDialogStartsAtTheShownFolderAndItsChoiceBecomesTheFolder) {
  vaiAllaFine();
  frontEnd.folders = {"/scelta"};
  premi(form().cmdSfoglia);
  ASSERT_THAT(frontEnd.foldersAsked, SizeIs(1));
  EXPECT_EQ(frontEnd.foldersAsked[0].title, "Seleziona cartella...");
  EXPECT_EQ(frontEnd.foldersAsked[0].start, "/cu");
  EXPECT_EQ(form().txtPercorsoCU.text(), "/scelta");
  premi(form().cmdSfoglia);
  EXPECT_EQ(frontEnd.foldersAsked[1].start, "/scelta");
}

TEST_F(RunSettings, LeavingTheFolderDialogWithoutAChoiceChangesNothing) {
  vaiAllaFine();
  frontEnd.folders = {"/scelta"};
  premi(form().cmdSfoglia);
  premi(form().cmdSfoglia);
  EXPECT_EQ(form().txtPercorsoCU.text(), "/scelta");
}

TEST_F(RunSettings, WithoutAFolderTheDialogIsGivenNoStart) {
  utilita.cuFolder = "";
  vaiAllaFine();
  premi(form().cmdSfoglia);
  ASSERT_THAT(frontEnd.foldersAsked, SizeIs(1));
  EXPECT_EQ(frontEnd.foldersAsked[0].start, std::nullopt);
  EXPECT_EQ(form().txtPercorsoCU.text(), "");
}

// A front end whose dialog cannot be opened.
class WithoutDialogs : public ScriptedFrontEnd {
 public:
  std::string chooseFolder(const std::string&, const std::optional<std::string>&) override {
    throw Error(kErrorInvalidCall, "Il dialogo non si apre.");
  }
};

TEST_F(RunSettings, AnErrorInTheFolderDialogChangesNothing) {
  WithoutDialogs schermo;
  ModMain processo{Ambiente{.frontEnd = schermo,
                            .factory = factory,
                            .utilita = utilita,
                            .settings = settings,
                            .clock = clock,
                            .files = files,
                            .reports = stampe}};
  processo.main();
  processo.wizard()->cmdSfoglia.click();
  EXPECT_EQ(processo.wizard()->txtPercorsoCU.text(), "/cu");
}

TEST_F(RunSettings, TheFolderCannotBeTyped) {
  vaiAllaFine();
  form().txtPercorsoCU.enter("/altrove");
  EXPECT_EQ(form().txtPercorsoCU.text(), "/cu");
}

TEST_F(RunSettings, ThePrintTypeTellsThePrintControl) {
  vaiAllaFine();
  form().WizPrint.setOutput(2);
  premi(form().optStampaTracciato[1]);
  EXPECT_TRUE(form().WizPrint.toFile());
  EXPECT_EQ(form().WizPrint.output(), 6);
  form().WizPrint.setOutput(2);
  premi(form().optStampaTracciato[0]);
  EXPECT_FALSE(form().WizPrint.toFile());
  EXPECT_EQ(form().WizPrint.output(), 6);
}

TEST_F(RunSettings, AreKeptBetweenPassesOverTheSteps) {
  vaiAllaFine();
  premi(form().chkIntermediari);
  form().txtCodiceFiscale.enter("ABC");
  form().dtDataFirma.enter("01/03/2017");
  premi(form().optStampaTracciato[1]);
  premi(form().cmdNav[2]);
  premi(form().cmdNav[3]);
  EXPECT_TRUE(form().chkIntermediari.value());
  EXPECT_EQ(form().txtCodiceFiscale.text(), "ABC");
  EXPECT_EQ(form().dtDataFirma.text(), "01/03/2017");
  EXPECT_TRUE(form().optStampaTracciato[1].value());
}

class FolderNote : public RunSettings {
 protected:
  void SetUp() override {
    database.own.answerContaining("AS CodFisc", azienda());
    files.folders.insert("/scelta");
  }
  const std::string& nota() { return form().txtPercorsoCU.note(); }
  void scegli(const char* cartella) {
    frontEnd.folders = {cartella};
    premi(form().cmdSfoglia);
  }
};

TEST_F(FolderNote, NamesTheFileThatWouldBeReplacedBeforeItIs) {
  files.files["/scelta/CUR_01234567890_2016.cur"] = "di ieri";
  vaiAllaFine();
  EXPECT_EQ(nota(), "");
  scegli("/scelta");
  EXPECT_EQ(nota(), "CUR_01234567890_2016.cur esiste già: Avvia lo sostituisce.");
  scegli("");
  EXPECT_EQ(nota(), "CUR_01234567890_2016.cur esiste già: Avvia lo sostituisce.");
  scegli("/cu");
  EXPECT_EQ(nota(), "");
  files.files["/cu/CUR_01234567890_2016.cur"] = "di un altro";
  premi(form().cmdNav[2]);
  premi(form().cmdNav[3]);
  EXPECT_EQ(nota(), "CUR_01234567890_2016.cur esiste già: Avvia lo sostituisce.");
  EXPECT_EQ(files.files["/scelta/CUR_01234567890_2016.cur"], "di ieri");
}

TEST_F(FolderNote, SaysThatTheFileCannotBeReplacedWhereTheRunCouldNotOpenIt) {
  files.files["/cu/CUR_01234567890_2016.cur"] = "di un altro";
  files.closed.insert("/cu/CUR_01234567890_2016.cur");
  vaiAllaFine();
  EXPECT_EQ(nota(), "CUR_01234567890_2016.cur esiste già e non si può sostituire.");
}

TEST_F(FolderNote, SaysWhereNoFileCanBeMade) {
  files.closed.insert("/scelta");
  vaiAllaFine();
  scegli("/scelta");
  EXPECT_EQ(nota(), "In questa cartella non si può scrivere.");
  scegli("/manca");
  EXPECT_EQ(nota(), "La cartella non esiste.");
}

TEST_F(FolderNote, IsEmptyWhereItCannotBeFoundOut) {
  database.own.refuseContaining("AS CodFisc");
  vaiAllaFine();
  EXPECT_EQ(nota(), "");
  EXPECT_EQ(passo(), 2);
  EXPECT_THAT(frontEnd.errors, IsEmpty());
}

}  // namespace
}  // namespace cu::test
