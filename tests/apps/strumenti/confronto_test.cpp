// Files and accounts side by side.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>

#include "apps/strumenti/confronto.h"
#include "apps/strumenti/finestra_confronto.h"
#include "apps/strumenti/tabella_vista.h"
#include "azienda_support.h"
#include "lettura/lettura_prova.h"

namespace cu::strumenti {
namespace {

using lettura::prova::FileDiProva;
using ::testing::HasSubstr;
using ::testing::Not;

const FileEsaminato::Avanza kLibero = [](const char*, std::uint64_t, std::uint64_t) {};

struct DueFile {
  test::TempFolder cartella;
  std::string vecchio;
  std::string nuovo;
  DueFile() {
    FileDiProva prima;
    prima.certificato().certificato("BNCLCU80A01L781X").certificato("VRDGNN75B41L781W").fine();
    vecchio = test::scritto(cartella / "vecchio.cur", prima.testo());
    FileDiProva dopo;
    dopo.certificato("NRELNU70A41L781Z").certificato("BNCLCU80A01L781X").certificato().fine();
    dopo.valore(6, "AU001004", FileDiProva::amount("1234,51"));
    dopo.valore(3, "DA003001", "        06032018");
    nuovo = test::scritto(cartella / "nuovo.cur", dopo.testo());
  }
};

TEST(Comparison, FindsEachCertificateWhateverItsPlace) {
  const DueFile file;
  const Confronto confronto = Confronto::diFile(file.vecchio, file.nuovo, kLibero);
  ASSERT_EQ(confronto.righe().size(), 4U);
  EXPECT_EQ(confronto.quante(EsitoConfronto::Uguale), 1U);
  EXPECT_EQ(confronto.quante(EsitoConfronto::Diverso), 1U);
  EXPECT_EQ(confronto.quante(EsitoConfronto::SoloVecchio), 1U);
  EXPECT_EQ(confronto.quante(EsitoConfronto::SoloNuovo), 1U);
  EXPECT_EQ(confronto.righe()[1].percipiente, "BNCLCU80A01L781X");
  EXPECT_EQ(confronto.righe()[1].esito, EsitoConfronto::Diverso);
}

TEST(Comparison, ShowsAllBoxesAndMarksThoseThatDiffer) {
  const DueFile file;
  const Confronto confronto = Confronto::diFile(file.vecchio, file.nuovo, kLibero);
  const std::vector<CasellaConfrontata> caselle = confronto.caselle(1);
  int diverse = 0;
  for (const CasellaConfrontata& una : caselle) {
    EXPECT_NE(una.codice.substr(0, 5), "DA003") << "the signature is not compared";
    if (!una.diversa) {
      EXPECT_EQ(una.vecchio, una.nuovo);
      continue;
    }
    ++diverse;
    EXPECT_EQ(una.codice, "AU001004");
    EXPECT_EQ(una.vecchio, "1234,50");
    EXPECT_EQ(una.nuovo, "1234,51");
    EXPECT_EQ(una.modulo, 1);
  }
  EXPECT_EQ(diverse, 1);
  EXPECT_GT(caselle.size(), 8U);
  for (const CasellaConfrontata& una : confronto.caselle(0)) EXPECT_EQ(una.vecchio, "");
  for (const CasellaConfrontata& una : confronto.caselle(3)) EXPECT_EQ(una.nuovo, "");
}

TEST(Comparison, AFreshFileIsTheAccountsAndACentIsFound) {
  const test::Azienda azienda;
  const std::string file = azienda.scrivi(2017);
  const Confronto uguale = Confronto::conConti(file, azienda.profilo, kLibero);
  EXPECT_EQ(uguale.quante(EsitoConfronto::Uguale), uguale.righe().size());
  EXPECT_GT(uguale.righe().size(), 40U);
  std::string testo = test::letto(file);
  const std::size_t posto = testo.find("AU001008");
  testo[posto + 23] = testo[posto + 23] == '1' ? '2' : '1';
  const Confronto diverso =
      Confronto::conConti(test::scritto(azienda.cartella / "cambiato.cur", testo), azienda.profilo, kLibero);
  EXPECT_EQ(diverso.quante(EsitoConfronto::Diverso), 1U);
  azienda.esegui("DELETE FROM ContoIndividuale WHERE Anno = 2017 AND IDAzienda = 1 AND IDAnagrafica = 101");
  const Confronto senza = Confronto::conConti(file, azienda.profilo, kLibero);
  EXPECT_GE(senza.quante(EsitoConfronto::SoloVecchio), 1U);
  EXPECT_EQ(senza.quante(EsitoConfronto::Diverso), 0U);
}

TEST(Comparison, HeadsThatDifferFromTheCompanyAreARowOfTheirOwn) {
  const test::Azienda azienda;
  const std::string file = azienda.scrivi(2017);
  EXPECT_FALSE(Confronto::conConti(file, azienda.profilo, kLibero).testateDiverse());
  azienda.esegui("UPDATE Anagrafica SET Anagrafica = 'Altra Denominazione' WHERE IDAnagrafica = 1");
  const Confronto altro = Confronto::conConti(file, azienda.profilo, kLibero);
  ASSERT_TRUE(altro.testateDiverse());
  EXPECT_EQ(altro.righe()[0].nome, "Frontespizio della fornitura");
  const std::vector<CasellaConfrontata> campi = altro.caselle(0);
  ASSERT_EQ(campi.size(), 1U);
  EXPECT_EQ(campi[0].nuovo.substr(0, 19), "ALTRA DENOMINAZIONE");
  EXPECT_TRUE(campi[0].diversa);
}

TEST(Comparison, WithoutAYearThereAreNoAccounts) {
  const test::Azienda azienda;
  FileDiProva prova("XYZ99");
  prova.certificato().fine();
  EXPECT_THROW(
      Confronto::conConti(test::scritto(azienda.cartella / "x.cur", prova.testo()), azienda.profilo, kLibero),
      Error);
}

// The ordinary supply of the accounts, as another company would have it.
std::string diAltri(const test::Azienda& azienda) {
  std::string testo = test::letto(azienda.scrivi(2017));
  for (std::size_t posto = 0; (posto = testo.find("04123450233", posto)) != std::string::npos;)
    testo.replace(posto, 11, "00000000232");
  return test::scritto(azienda.cartella / "altri.cur", testo);
}

TEST(Comparison, OfAnotherCompanyOrAnotherYearIsSaidFirst) {
  const test::Azienda azienda;
  const std::string file = diAltri(azienda);
  const Confronto altri = Confronto::conConti(file, azienda.profilo, kLibero);
  EXPECT_THAT(altri.estraneita(), HasSubstr("di un'altra azienda (00000000232"));
  EXPECT_THAT(altri.estraneita(), HasSubstr("codice fiscale 04123450233"));
  EXPECT_THAT(altri.estraneita(), Not(HasSubstr("altro anno")));
  EXPECT_FALSE(altri.confrontati());
  EXPECT_TRUE(altri.righe().empty());
  const Confronto comunque = Confronto::conConti(file, azienda.profilo, kLibero, true);
  EXPECT_TRUE(comunque.confrontati());
  EXPECT_GT(comunque.quante(EsitoConfronto::Diverso), 40U);
  const std::string proprio = azienda.scrivi(2017);
  EXPECT_EQ(Confronto::conConti(proprio, azienda.profilo, kLibero).estraneita(), "");
  azienda.esegui("DELETE FROM ContoIndividuale WHERE Anno = 2017 AND IDAzienda = 1");
  const Confronto senza = Confronto::conConti(proprio, azienda.profilo, kLibero);
  EXPECT_THAT(senza.estraneita(), HasSubstr("nessun compenso del 2017"));
  EXPECT_FALSE(senza.confrontati());
}

TEST(Comparison, TwoFilesOfDifferentCompaniesAreCompared) {
  const test::Azienda azienda;
  const Confronto confronto = Confronto::diFile(azienda.scrivi(2017), diAltri(azienda), kLibero);
  EXPECT_THAT(confronto.estraneita(), HasSubstr("non sono dello stesso sostituto"));
  EXPECT_GT(confronto.righe().size(), 40U);
}

TEST(Comparison, AFileOfAnotherKindIsASentence) {
  const test::Azienda azienda;
  const std::string pdf = test::scritto(azienda.cartella / "a.pdf", "%PDF-1.7\n");
  try {
    static_cast<void>(Confronto::diFile(pdf, pdf, kLibero));
    FAIL();
  } catch (const Error& errore) {
    EXPECT_THAT(errore.description(), HasSubstr("un documento PDF"));
  }
}

TEST(ComparisonWindow, GoesOnWithAnotherCompanyOnlyWhenAsked) {
  const test::Azienda azienda;
  FinestraConfronto finestra(qs(diAltri(azienda)), azienda.profilo);
  finestra.setAttribute(Qt::WA_DeleteOnClose, false);
  finestra.show();
  ASSERT_TRUE(test::aspetta([&] { return !finestra.lavora(); }));
  EXPECT_TRUE(test::dice(finestra, "di un'altra azienda"));
  EXPECT_FALSE(test::dice(finestra, "diverse"));
  Tabella* righe = nullptr;
  for (auto* una : finestra.findChildren<QTableView*>()) {
    if (una->accessibleName().startsWith(QStringLiteral("Cert"))) righe = dynamic_cast<Tabella*>(una);
  }
  ASSERT_NE(righe, nullptr);
  EXPECT_EQ(righe->mostrate(), 0U);
  ASSERT_TRUE(test::premi(finestra, "Confronta comunque"));
  ASSERT_TRUE(test::aspetta([&] { return !finestra.lavora(); }));
  EXPECT_GT(righe->mostrate(), 40U);
  EXPECT_TRUE(test::dice(finestra, "di un'altra azienda")) << "it stays in sight";
}

TEST(ComparisonWindow, ShowsTheDifferencesFirst) {
  const DueFile file;
  FinestraConfronto finestra(qs(file.vecchio), qs(file.nuovo));
  finestra.setAttribute(Qt::WA_DeleteOnClose, false);
  finestra.show();
  Tabella* righe = nullptr;
  Tabella* caselle = nullptr;
  for (auto* una : finestra.findChildren<QTableView*>()) {
    (una->accessibleName().startsWith(QStringLiteral("Cert")) ? righe : caselle) =
        dynamic_cast<Tabella*>(una);
  }
  ASSERT_TRUE(test::aspetta([&] { return righe->mostrate() == 3; }));
  for (int i = 0; i < 3; ++i) {
    EXPECT_GE(righe->columnWidth(0),
              righe->fontMetrics().horizontalAdvance(righe->model()->index(i, 0).data().toString()) + 8);
  }
  finestra.findChild<QCheckBox*>()->setChecked(false);
  EXPECT_EQ(righe->mostrate(), 4U);
  righe->scegli(1);
  const auto corrente = caselle->corrente();
  ASSERT_TRUE(corrente);
  EXPECT_EQ(caselle->modello().index(static_cast<int>(*corrente), 0).data().toString(), QStringLiteral("≠"));
  EXPECT_TRUE(
      caselle->modello().index(static_cast<int>(*corrente), 0).data(Qt::FontRole).value<QFont>().bold());
}

}  // namespace
}  // namespace cu::strumenti
