// The warnings of the input check, word for word, and the effect of the answer.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kInizio = "Attenzione! Verificare la compilazione dei seguenti campi:\r\n\r\n";
const std::string kFine =
    "\r\n\r\nIn presenza di tali segnalazioni il file potrebbe non essere accettato.\r\nProseguire "
    "ugualmente?";
const std::string kFallimento41 =
    "- Sezione \"FALLIMENTO E LIQUIDAZIONE COATTA AMMINISTRATIVA\"\r\n\"Somme corrisposte prima della data "
    "di fallimento\" (campo 41): il campo va riempito se il Codice Carica è 3 o 4";
const std::string kFallimento42 =
    "- Sezione \"FALLIMENTO E LIQUIDAZIONE COATTA AMMINISTRATIVA\"\r\n\"Somme corrisposte dal "
    "curatore/commissario\" (campo 42): il campo va riempito se il Codice Carica è 3 o 4";
const std::string kCasi = "- Sezione \"Casi particolari - Operazione straordinarie\"\r\n";
const std::string kPignoramento =
    kCasi +
    "\"Codice fiscale (sezione pignoramento presso terzi)\" (campo 72): il campo deve essere vuoto se è non "
    "compilata la sezione \"Somme liquidate a seguito di pignoramento presso terzi\" (campi da 101 a 108)";
const std::string kEsproprio =
    kCasi +
    "\"Codice fiscale (sezione indennità di esproprio)\" (campo 73): il campo deve essere vuoto se non è "
    "compilata la sezione \"Somme corrisposte a titolo di indennità di esproprio, altre indennità e "
    "interessi\" (campi da 131 a 138)";

std::string obbligatorio52(const std::string& campo) {
  return "- Sezione \"REDDITI EROGATI DA ALTRI SOGGETTI\"\r\n\"Codice fiscale\" (campo 52): il campo è "
         "obbligatorio in presenza di " +
         campo + ")";
}
std::string vuoto71(const std::string& campo) {
  return kCasi +
         "\"Codice fiscale (sezione lavoro autonomo e redditi diversi)\" (campo 71): il campo deve essere "
         "vuoto in presenza di " +
         campo + ")";
}

struct Voce {
  int indice;  // of curField on the page of module 1
  int altri;   // on the other page
  const char* nome;
};
std::ostream& operator<<(std::ostream& out, const Voce& voce) { return out << voce.nome; }
const Voce kElencoA[] = {
    {28, 74, "\"Imponibile\" (campo 53"},
    {31, 77, "\"Ritenute a titolo d'acconto\" (campo 54"},
    {30, 76, "\"Ritenute a titolo d'imposta\" (campo 55"},
    {29, 75, "\"Ritenute sospese\" (campo 56"},
    {32, 78, "\"Addizionale Regionale a titolo d'acconto\" (campo 57"},
    {34, 80, "\"Addizionale Regionale a titolo d'imposta\" (campo 58"},
    {35, 81, "\"Addizionale Regionale sospesa\" (campo 59"},
    {33, 79, "\"Addizionale comunale a titolo d'acconto\" (campo 60"},
    {36, 82, "\"Addizionale comunale a titolo d'imposta\" (campo 61"},
    {37, 83, "\"Addizionale comunale sospesa\" (campo 62"},
};

class Rules : public CampiProva {
 public:
  // The question of cmdOk in the editor of the year; "" when there is none.
  std::string segnalate() {
    frontEnd.boxes.clear();
    frontEnd.answers = {Answer::Cancel};
    premi("cmdOk");
    EXPECT_TRUE(frontEnd.errors.empty());
    if (frontEnd.boxes.empty()) {
      EXPECT_TRUE(editor->OK());
      return {};
    }
    EXPECT_FALSE(editor->OK());
    EXPECT_EQ(frontEnd.boxes.size(), 1U);
    const std::string testo = frontEnd.boxes[0].text;
    EXPECT_EQ(testo.substr(0, kInizio.size()), kInizio);
    EXPECT_EQ(testo.substr(testo.size() - kFine.size()), kFine);
    return testo.substr(kInizio.size(), testo.size() - kInizio.size() - kFine.size());
  }
};

struct Warnings : testing::Test, Rules {};

TEST_F(Warnings, AskNothingWhenThereIsNone) {
  for (const int anno : {2015, 2016}) {
    apri(anno);
    EXPECT_EQ(segnalate(), "");
  }
}

TEST_F(Warnings, AreOneQuestionWithTheRunsTitleAndTheRefusalAsDefault) {
  apri(2016, {{"SommeCorrispostePreFallimento", amount("1")}});
  premi("cmdOk");
  ASSERT_EQ(frontEnd.boxes.size(), 1U);
  const MessageBox& domanda = frontEnd.boxes[0];
  EXPECT_EQ(domanda.text, kInizio + kFallimento41 + kFine);
  EXPECT_EQ(domanda.title, "Quadrivio");
  EXPECT_EQ(domanda.icon, BoxIcon::Question);
  EXPECT_EQ(domanda.buttons, BoxButtons::OkCancel);
  EXPECT_EQ(domanda.byDefault, Answer::Cancel);
}

TEST_F(Warnings, ARefusalLeavesFormRowAndModulesAsTheyAre) {
  moduli({modulo(7, 2)});
  apri(2016, {{"SommeCorrispostePreFallimento", amount("1")}});
  const Righe prima = fotografia(riga);
  importo(20).enter("5");
  importo(18).enter("6");
  premi("cmdSave");
  frontEnd.answers = {Answer::Cancel};
  premi("cmdOk");
  EXPECT_FALSE(editor->OK());
  EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_TRUE(utilita.released.empty());  // still open
  frontEnd.answers = {Answer::Cancel};
  premi("cmdOk");  // asks again at the next press
  EXPECT_EQ(frontEnd.boxes.size(), 2U);
  frontEnd.answers = {Answer::Ok};
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_EQ(riga.Get("RitenuteAcconto").toText(), "5");
  EXPECT_EQ(istruzioni().size(), 1U);
}

TEST_F(Warnings, AnyOtherAnswerGoesOn) {
  for (const Answer risposta : {Answer::Ok, Answer::Yes, Answer::No}) {
    apri(2016, {{"SommeCorrispostePreFallimento", amount("1")}});
    frontEnd.answers = {risposta};
    premi("cmdOk");
    EXPECT_TRUE(editor->OK());
  }
}

TEST_F(Warnings, RunAlsoWhereTheRowIsNotMarked) {
  apri(2016, {{"CodiceFiscalePignoramentoTerzi", text("RSSMRA70A01H501U")}});
  EXPECT_EQ(segnalate(), kPignoramento);
}

TEST_F(Warnings, ReadTheControlsAndNotTheStoredRow) {
  apri(2016, {{"SommeCorrispostePreFallimento", amount("1")}});
  importo(26).enter("");
  EXPECT_EQ(segnalate(), "");
  apri(2016);
  importo(26).enter("1");
  EXPECT_EQ(segnalate(), kFallimento41);
}

TEST_F(Warnings, OfTheBankruptcyAreSilencedByTheOfficesThreeAndFour) {
  for (const char* carica : {"3", "4"}) {
    apri(2016, {{"CodiceCarica", text(carica)},
                {"SommeCorrispostePreFallimento", amount("1")},
                {"SommeCorrisposteDalCuratore", amount("1")}});
    EXPECT_EQ(segnalate(), "") << carica;
  }
  const Value altre[] = {null(), text(""), text("1"), text("2"), text("5"), text("34")};
  for (const Value& carica : altre) {
    apri(2016, {{"CodiceCarica", carica}, {"SommeCorrisposteDalCuratore", amount("1")}});
    EXPECT_EQ(segnalate(), kFallimento42) << carica.view().toText();
  }
}

TEST_F(Warnings, OfTheBankruptcyCanFireTogetherWithTheSectionLineTwice) {
  apri(2016, {{"SommeCorrispostePreFallimento", amount("1")}, {"SommeCorrisposteDalCuratore", amount("1")}});
  EXPECT_EQ(segnalate(), kFallimento41 + "\r\n\r\n" + kFallimento42);
}

TEST_F(Warnings, OfTheBankruptcyHaveNoConverse) {
  apri(2016, {{"CodiceCarica", text("3")}});
  EXPECT_EQ(segnalate(), "");
}

TEST_F(Warnings, ANegativeValueCountsAsFilled) {
  apri(2016, {{"AltriSoggettiImponibile", amount("-0.01")}});
  EXPECT_EQ(segnalate(), obbligatorio52("\"Imponibile\" (campo 53"));
}

TEST_F(Warnings, BlanksAloneAreNoText) {
  apri(2016, {{"AltriSoggettiCodiceFiscale", text("   ")}, {"AltriSoggettiImponibile", amount("1")}});
  EXPECT_EQ(segnalate(), obbligatorio52("\"Imponibile\" (campo 53"));
  apri(2016, {{"CodiceFiscalePignoramentoTerzi", text("  ")}});
  EXPECT_EQ(segnalate(), "");
}

TEST_F(Warnings, NameOnlyTheFirstFilledFieldOfTheOtherPayer) {
  apri(2016, {{"AltriSoggettiRitenuteImposta", amount("1")}, {"AltriSoggettiImponibile", amount("1")}});
  EXPECT_EQ(segnalate(), obbligatorio52("\"Imponibile\" (campo 53"));
}

TEST_F(Warnings, NameTheOtherPayersCodeBeforeItsAmounts) {
  apri(2016, {{"CodiceFiscaleLavoroAutonomo", text("A")},
              {"AltriSoggettiCodiceFiscale", text("B")},
              {"AltriSoggettiImponibile", amount("1")}});
  EXPECT_EQ(segnalate(), vuoto71("\"Codice fiscale\" (campo 52"));
}

TEST_F(Warnings, TheSelfEmploymentCodeAloneIsFine) {
  apri(2016, {{"CodiceFiscaleLavoroAutonomo", text("A")}});
  EXPECT_EQ(segnalate(), "");
}

TEST_F(Warnings, AllAtOnceStandInTheirOrder) {
  for (const int anno : {2015, 2016}) {
    apri(anno, {{"SommeCorrispostePreFallimento", amount("1")},
                {"SommeCorrisposteDalCuratore", amount("1")},
                {"AltriSoggettiAddRegionAcconto", amount("1")},
                {"CodiceFiscaleLavoroAutonomo", text("A")},
                {"CodiceFiscalePignoramentoTerzi", text("B")},
                {"CodiceFiscaleIndennitaEsproprio", text("C")}});
    const std::string voce = "\"Addizionale Regionale a titolo d'acconto\" (campo 57";
    EXPECT_EQ(segnalate(), kFallimento41 + "\r\n\r\n" + kFallimento42 + "\r\n\r\n" + obbligatorio52(voce) +
                               "\r\n\r\n" + vuoto71(voce) + "\r\n\r\n" + kPignoramento + "\r\n\r\n" +
                               kEsproprio);
  }
}

TEST_F(Warnings, TheOldestLayoutHasNone) {
  apri(2014, {{"SommeCorrispostePreFallimento", amount("1")},
              {"AltriSoggettiImponibile", amount("1")},
              {"CodiceFiscalePignoramentoTerzi", text("B")},
              {"CodiceFiscaleIndennitaEsproprio", text("C")}});
  EXPECT_EQ(segnalate(), "");
}

class OtherPayer : public testing::TestWithParam<Voce>, public Rules {
 protected:
  AmountBox& casella() { return importo(GetParam().indice); }
};

TEST_P(OtherPayer, AsksForItsCode) {
  for (const int anno : {2015, 2016}) {
    apri(anno);
    casella().enter("1");
    EXPECT_EQ(segnalate(), obbligatorio52(GetParam().nome));
    apri(anno);
    casella().enter("1");
    testo(5).enter("X");
    EXPECT_EQ(segnalate(), "");
  }
}

TEST_P(OtherPayer, ExcludesTheSelfEmploymentCode) {
  for (const int anno : {2015, 2016}) {
    apri(anno);
    casella().enter("1");
    testo(6).enter("X");
    EXPECT_EQ(segnalate(), obbligatorio52(GetParam().nome) + "\r\n\r\n" + vuoto71(GetParam().nome));
  }
}

TEST_P(OtherPayer, IsNamedBeforeTheLaterFieldsOfTheList) {
  apri(2016);
  bool dopo = false;
  for (const Voce& voce : kElencoA) {
    dopo = dopo || voce.indice == GetParam().indice;
    if (dopo) importo(voce.indice).enter("1");
  }
  EXPECT_EQ(segnalate(), obbligatorio52(GetParam().nome));
}

TEST_P(OtherPayer, OfAModuleIsWarnedOfAndSavedAllTheSame) {
  for (const int anno : {2015, 2016}) {
    frontEnd.boxes.clear();
    moduli({modulo(7, 2)});
    apri(anno);
    importo(GetParam().altri).enter("1");
    premi("cmdSave");
    ASSERT_EQ(frontEnd.boxes.size(), 1U);
    EXPECT_EQ(frontEnd.boxes[0].text,
              kInizio + obbligatorio52(GetParam().nome) +
                  "\r\n\r\nIn presenza di tali segnalazioni il file potrebbe non essere accettato.");
    EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
    EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Warning);
    EXPECT_EQ(frontEnd.boxes[0].buttons, BoxButtons::Ok);
    EXPECT_EQ(righeModuli().Status(), RecordStatus::Modified);
    EXPECT_FALSE(salvaAcceso());
  }
}

TEST_P(OtherPayer, OfAModuleIsNotWarnedOfWithItsCode) {
  moduli({modulo(7, 2)});
  apri(2016);
  importo(GetParam().altri).enter("1");
  testo(18).enter("X");
  premi("cmdSave");
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(ListA, OtherPayer, testing::ValuesIn(kElencoA),
                         [](const auto& voce) { return "curField_" + std::to_string(voce.param.indice); });

// Each field of the sections of campo 72 and campo 73: whether it is sufficient alone, by year.
struct Sezione {
  const char* controllo;
  bool nel2015;
  bool nel2016;
  int campo;  // 72 or 73
};
std::ostream& operator<<(std::ostream& out, const Sezione& s) { return out << s.controllo; }

class Section : public testing::TestWithParam<Sezione>, public Rules {};

TEST_P(Section, AllowsItsFiscalCode) {
  for (const int anno : {2015, 2016}) {
    apri(anno);
    testo(GetParam().campo == 72 ? 7 : 8).enter("X");
    const bool basta = anno == 2015 ? GetParam().nel2015 : GetParam().nel2016;
    if (!esiste(GetParam().controllo)) {
      EXPECT_FALSE(basta);
      continue;
    }
    if (GetParam().controllo[0] == 'c' && GetParam().controllo[1] == 'h') {
      c<Check>(GetParam().controllo).click();
    } else {
      c<EditBox>(GetParam().controllo).enter("1");
    }
    const std::string avviso = GetParam().campo == 72 ? kPignoramento : kEsproprio;
    EXPECT_EQ(segnalate(), basta ? "" : avviso) << anno;
  }
}

// In 2015 campi 103 and 107 alone are not sufficient.
INSTANTIATE_TEST_SUITE_P(
    ListB, Section,
    testing::Values(Sezione{"txtField(9)", true, true, 72}, Sezione{"curField(38)", true, true, 72},
                    Sezione{"curField(39)", false, true, 72}, Sezione{"curField(50)", false, true, 72},
                    Sezione{"chkRitenuteNonOperate1", true, false, 72},
                    Sezione{"txtField(10)", true, true, 72}, Sezione{"curField(40)", true, true, 72},
                    Sezione{"curField(41)", false, true, 72}, Sezione{"curField(51)", false, true, 72},
                    Sezione{"chkRitenuteNonOperate2", true, false, 72},
                    // of the other section
                    Sezione{"curField(46)", false, false, 72}, Sezione{"curField(44)", false, false, 72}),
    [](const auto& s) { return nomeDi(s.param.controllo); });
INSTANTIATE_TEST_SUITE_P(
    ListC, Section,
    testing::Values(Sezione{"curField(46)", true, true, 73}, Sezione{"curField(47)", true, true, 73},
                    Sezione{"curField(42)", true, true, 73}, Sezione{"curField(43)", true, true, 73},
                    Sezione{"curField(48)", true, true, 73}, Sezione{"curField(49)", true, true, 73},
                    Sezione{"curField(45)", true, true, 73}, Sezione{"curField(44)", true, true, 73},
                    // of the other section
                    Sezione{"txtField(9)", false, false, 73}, Sezione{"curField(38)", false, false, 73}),
    [](const auto& s) { return nomeDi(s.param.controllo); });

}  // namespace
}  // namespace cu::test
