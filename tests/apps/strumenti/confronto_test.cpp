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

const FileEsaminato::Avanza kLibero = [](std::uint64_t, std::uint64_t) {};

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

TEST(Comparison, WithoutAYearThereAreNoAccounts) {
  const test::Azienda azienda;
  FileDiProva prova("XYZ99");
  prova.certificato().fine();
  EXPECT_THROW(
      Confronto::conConti(test::scritto(azienda.cartella / "x.cur", prova.testo()), azienda.profilo, kLibero),
      Error);
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
