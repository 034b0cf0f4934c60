#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "archive/archivio.h"
#include "report_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string page(const std::string& path, int number) {
  const std::string n = std::to_string(number);
  return runCommand("pdftotext -layout -f " + n + " -l " + n + " '" + path + "' -").output;
}

TEST(FormLayout, IsTwoPagesWithTheIdentityFirst) {
  PrintShop shop;
  chooseLines({{101, "A"}});
  const std::string path = shop.print(kForms, formFormula(2016));
  const std::string first = page(path, 1);
  for (const char* text :
       {"CERTIFICAZIONE UNICA", "2017", "Redditi dell'anno 2016", "ORDINARIA",
        "DATI RELATIVI AL SOSTITUTO D'IMPOSTA", "BOTTEGA LESSINIA SERVIZI S.R.L.", "04123450233",
        "DATI RELATIVI AL PERCETTORE DELLE SOMME", "RSSMRC71C08L781I", "ROSSI", "08/03/1971",
        "DOMICILIO FISCALE AL 1º GENNAIO 2016", "DOMICILIO FISCALE AL 1º GENNAIO 2017", "DATA E FIRMA",
        "31/03/2018", "Anna Bertoldi", "Pagina 1 di 2"}) {
    EXPECT_THAT(first, HasSubstr(text));
  }
  const std::string second = page(path, 2);
  for (const char* text :
       {"CERTIFICAZIONE UNICA 2017", "Mod. N.", "RSSMRC71C08L781I", "ROSSI MARCO", "DATI FISCALI",
        "13.551,50", "2.710,30", "DATI PREVIDENZIALI", "Fallimento", "Pagina 2 di 2"}) {
    const std::string wanted = std::string(text) == "Fallimento" ? "FALLIMENTO" : text;
    EXPECT_THAT(second, HasSubstr(wanted));
  }
}

TEST(FormLayout, AnOrdinaryCommunicationShowsNoReferences) {
  PrintShop shop;
  chooseLines({{101, "A"}});
  EXPECT_THAT(shop.text(kForms, formFormula(2016)), Not(HasSubstr("17030634567890123")));
}

TEST(FormLayout, AnAnnulmentIsThePayeeAndTheReferencesAlone) {
  PrintShop shop;
  chooseLines({{101, "A"}}, 2);
  const std::string text = shop.text(kForms, formFormula(2016));
  EXPECT_THAT(text, HasSubstr("ANNULLAMENTO"));
  EXPECT_THAT(text, HasSubstr("Protocollo della certificazione annullata"));
  EXPECT_THAT(text, HasSubstr("17030634567890123"));
  EXPECT_THAT(text, HasSubstr("000026"));
  EXPECT_THAT(text, HasSubstr("Pagina 1 di 1"));
  EXPECT_THAT(text, Not(HasSubstr("DATI FISCALI")));
  EXPECT_THAT(text, Not(HasSubstr("13.551,50")));
}

TEST(FormLayout, AReplacementHasReferencesAndAmounts) {
  PrintShop shop;
  chooseLines({{101, "A"}}, 3);
  const std::string text = shop.text(kForms, formFormula(2016));
  EXPECT_THAT(text, HasSubstr("SOSTITUZIONE"));
  EXPECT_THAT(text, HasSubstr("Protocollo della certificazione sostituita"));
  EXPECT_THAT(text, HasSubstr("17030634567890123"));
  EXPECT_THAT(text, HasSubstr("13.551,50"));
}

TEST(FormLayout, EachAdditionalModuleIsAFurtherPage) {
  PrintShop shop;
  chooseLines({{123, "H"}});
  const std::string path = shop.print(kForms, formFormula(2015));
  EXPECT_THAT(page(path, 2), HasSubstr("42.000,00"));
  const std::vector<std::string> years = {"2012", "2013", "2014"};
  const std::vector<std::string> amounts = {"3.000,00", "4.000,00", "2.000,00"};
  for (int module = 2; module <= 4; ++module) {
    const std::string text = page(path, module + 1);
    EXPECT_THAT(text, HasSubstr("BRBLDA49E20D704Q"));
    EXPECT_THAT(text, HasSubstr(years[static_cast<std::size_t>(module - 2)]));
    EXPECT_THAT(text, HasSubstr(amounts[static_cast<std::size_t>(module - 2)]));
    EXPECT_THAT(text, HasSubstr("Pagina " + std::to_string(module + 1) + " di 5"));
    EXPECT_THAT(text, Not(HasSubstr("42.000,00")));
  }
}

TEST(FormLayout, TheModuleNumberStandsOnItsPage) {
  PrintShop shop;
  chooseLines({{135, "A"}});
  auto engine = shop.engine(kForms, formFormula(2017));
  engine->preview();
  const std::vector<std::string>& pages = shop.screen.previews.at(0);
  ASSERT_EQ(pages.size(), 4U);
  for (int module = 1; module <= 3; ++module) {
    const std::string& text = pages[static_cast<std::size_t>(module)];
    const std::size_t label = text.find("Mod. N.");
    ASSERT_NE(label, std::string::npos);
    EXPECT_THAT(text.substr(label, 200), HasSubstr("\n" + std::to_string(module) + "\n"));
  }
}

TEST(FormLayout, ACumulativeFileNumbersThePagesOfEachCertificate) {
  PrintShop shop;
  chooseLines({{101, "A"}, {102, "A"}, {135, "A"}});
  const std::string text = shop.text(kForms, formFormula(2017));
  EXPECT_EQ(count(text, "Pagina 1 di 2"), 1);
  EXPECT_EQ(count(text, "Pagina 1 di 3"), 1);
  EXPECT_EQ(count(text, "Pagina 1 di 4"), 1);
  EXPECT_LT(text.find("NICCOLÒ"), text.find("ROSSI"));
  EXPECT_LT(text.find("ROSSI"), text.find("SANTORO"));
}

struct YearsTexts {
  int year;
  std::vector<const char*> there;
  std::vector<const char*> missing;
};
class FormYears : public testing::TestWithParam<YearsTexts> {};

TEST_P(FormYears, HaveTheBoxesOfTheirLayout) {
  PrintShop shop;
  chooseLines({{101, "A"}});
  const std::string text = shop.text(kForms, formFormula(GetParam().year));
  for (const char* each : GetParam().there) EXPECT_THAT(text, HasSubstr(each));
  for (const char* each : GetParam().missing) EXPECT_THAT(text, Not(HasSubstr(each)));
}

INSTANTIATE_TEST_SUITE_P(
    EachLayout, FormYears,
    testing::Values(
        YearsTexts{2014,
                   {"CERTIFICAZIONE UNICA 2015", "Contributi previdenziali a carico del percipiente",
                    "SPESE E RITENUTE RIMBORSATE"},
                   {"FALLIMENTO", "PIGNORAMENTO", "Schumacker", "Fusione comuni"}},
        YearsTexts{2015,
                   {"CERTIFICAZIONE UNICA 2016", "Codice ente", "Ritenute non operate", "Schumacker"},
                   {"Somme non tassate", "Fusione comuni"}},
        YearsTexts{2016,
                   {"CERTIFICAZIONE UNICA 2017", "Somme non tassate", "Fusione comuni"},
                   {"Codice ente", "Ritenute non operate"}},
        YearsTexts{2017,
                   {"CERTIFICAZIONE UNICA 2018", "Somme non tassate", "Fusione comuni"},
                   {"Codice ente", "Ritenute non operate"}}));

TEST(FormLayout, WithoutASignatureDateTodayStandsThere) {
  PrintShop shop;
  chooseLines({{101, "A"}}, 1, 0, "");
  EXPECT_THAT(shop.text(kForms, formFormula(2017)), HasSubstr("05/03/2018"));
}

TEST(FormLayout, TheIntermediaryStandsThereWhenItIsUsed) {
  const auto archive = SqliteConnection::create(":memory:");
  creaArchivio(*archive, ContenutoArchivio::Dimostrativo);
  archive->Execute("DELETE FROM ConfigurazioneElencoCliFor WHERE IDAzienda = 1");
  archive->Execute(
      "INSERT INTO ConfigurazioneElencoCliFor (IDAzienda, CodiceFiscaleIntermediario, TipoComunicazione, "
      "DataImpegno) "
      "VALUES (1, 'brtnna68d52l781x', 2, '20180226')");
  for (const int used : {0, 1}) {
    archive->Execute("DELETE FROM TabellaRicorsione2");
    archive->Execute(
        "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2) "
        "VALUES (101, 1, 12, 342, 1, 1, " +
        std::to_string(used) + ")");
    PrintShop shop;
    auto engine = shop.engine(kForms, formFormula(2017));
    engine->setConnection(*archive);
    PrintShop::nameFile(*engine, shop.folder / "a.pdf");
    engine->run(3);
    const std::string text = pdfText(shop.folder / "a.pdf");
    const bool shown = text.find("IMPEGNO ALLA PRESENTAZIONE TELEMATICA") != std::string::npos;
    EXPECT_EQ(shown, used == 1);
    if (used == 0) continue;
    EXPECT_THAT(text, HasSubstr("BRTNNA68D52L781X"));
    EXPECT_THAT(text, HasSubstr("2 - predisposta da chi effettua l'invio"));
    EXPECT_THAT(text, HasSubstr("26/02/2018"));
  }
}

TEST(FormLayout, ALongNameTakesTwoLinesAndIsWhole) {
  PrintShop shop;
  chooseLines({{107, "W"}});
  const std::string path = shop.print(kForms, formFormula(2017));
  const std::string text = page(path, 1);
  EXPECT_THAT(text, HasSubstr("CONSORZIO ARTIGIANO PER LA MANUTENZIONE DEL VERDE URBANO\n"));
  EXPECT_THAT(text, HasSubstr("E DEGLI IMPIANTI SPORTIVI DELLA PROVINCIA DI VERONA\n"));
}

double heightOf(const PdfWord& word) { return word.bottom - word.top; }

TEST(FormLayout, ACompanyOfTwoHundredLettersIsReadableInItsBoxAndWholeInTheSignature) {
  const auto archive = SqliteConnection::create(":memory:");
  creaArchivio(*archive, ContenutoArchivio::Dimostrativo);
  archive->Execute(
      "UPDATE Anagrafica SET Anagrafica = 'Cooperativa Agricola per la Valorizzazione dei Prodotti Tipici e "
      "delle Tradizioni degli Allevatori e dei Coltivatori di Tutto un Altopiano e dei Sette Comuni a "
      "Responsabilità Limitata in Liquidazione Ultima' WHERE IDAnagrafica = 1");
  archive->Execute(
      "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2) VALUES "
      "(101, 1, 12, 342, 1, 1, 0)");
  PrintShop shop;
  auto engine = shop.engine(kForms, formFormula(2017));
  engine->setConnection(*archive);
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  engine->run(3);
  std::vector<PdfWord> box;
  std::vector<PdfWord> signature;
  std::vector<PdfWord>* into = &box;
  std::vector<PdfWord> label;
  for (const PdfWord& word : pdfWords(shop.folder / "a.pdf")) {
    if (word.page > 1) break;
    if (word.text == "FIRMA") into = &signature;
    if (word.text == "Agricola" || word.text == "AGRICOLA" || word.text == "ULTIMA") into->push_back(word);
    if (word.text == "Codice" && label.empty()) label.push_back(word);
  }
  ASSERT_EQ(box.size(), 2U);
  ASSERT_EQ(signature.size(), 2U);
  ASSERT_EQ(label.size(), 1U);
  // Three lines, only slightly smaller than the caption above.
  EXPECT_NEAR(box[1].top - box[0].top, 2 * 1.05 * heightOf(box[0]), 1);
  EXPECT_GT(heightOf(box[0]), 0.8 * heightOf(label[0]));
  // One size, larger than in the box.
  EXPECT_NEAR(heightOf(signature[0]), heightOf(signature[1]), 0.01);
  EXPECT_GT(heightOf(signature[0]), 1.3 * heightOf(box[0]));
  EXPECT_GT(signature[1].top, signature[0].top);
}

TEST(FormLayout, NothingChosenIsAPageThatSaysSo) {
  PrintShop shop;
  chooseLines({});
  const std::string text = shop.text(kForms, formFormula(2017));
  EXPECT_THAT(text, HasSubstr("Nessun elemento da stampare."));
  EXPECT_THAT(text, HasSubstr("Pagina 1 di 1"));
}

}  // namespace
}  // namespace cu::test
