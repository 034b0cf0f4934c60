// Every text of the windows for telematic files as it is drawn, in both looks.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <memory>

#include "apps/strumenti/finestra_confronto.h"
#include "apps/strumenti/finestra_file.h"
#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/finestra_tabellone.h"
#include "apps/strumenti/tabella_vista.h"
#include "azienda_support.h"
#include "support/drawn_contrast.h"

namespace cu::strumenti {
namespace {

template <class W, class... Argomenti>
std::unique_ptr<W> aperta(Argomenti&&... argomenti) {
  auto finestra = std::make_unique<W>(std::forward<Argomenti>(argomenti)...);
  finestra->setAttribute(Qt::WA_DeleteOnClose, false);
  finestra->show();
  EXPECT_TRUE(test::aspetta([&] { return !finestra->lavora(); }));
  return finestra;
}

// Several rows highlighted, the current one among them, in the order of a column.
void evidenzia(QTableView& tabella) {
  tabella.sortByColumn(0, Qt::DescendingOrder);
  tabella.setCurrentIndex(tabella.model()->index(1, 0));
  tabella.selectAll();
}

// An office in which one company has sent a year, and the others are late.
class QuadroDisegnato : public testing::Test {
 protected:
  QuadroDisegnato() {
    diventaStudio(azienda_);
    azienda_.profilo.sessione.oggi->giorno = Date::fromYmd(2018, 4, 20).value();
  }
  test::Azienda azienda_;
};

TEST_F(QuadroDisegnato, HasHeadingsLateDatesAndNumbersThatCanBeRead) {
  const auto finestra = aperta<FinestraTabellone>(azienda_.profilo);
  auto& tabella = *finestra->findChild<Tabella*>();
  bool inRitardo = false;
  for (int riga = 0; riga < tabella.model()->rowCount(); ++riga) {
    inRitardo = inRitardo || tabella.model()->index(riga, 3).data().toString().contains("in ritardo");
  }
  ASSERT_TRUE(inRitardo);
  test::expectReadable(*finestra, 30);
  evidenzia(tabella);
  test::expectReadable(*finestra, 30);
  finestra->findChild<QLineEdit*>()->setText(QStringLiteral("nessuna così"));
  ASSERT_EQ(tabella.mostrate(), 0U);
  test::expectReadable(*finestra, 15);
}

TEST(DrawnContrast, OfAStateWithItsDifferences) {
  const test::Azienda azienda;
  ASSERT_FALSE(azienda.scrivi(2016).empty());
  const auto finestra = aperta<FinestraStato>(azienda.profilo, 2016);
  test::expectReadable(*finestra, 40);
  evidenzia(*finestra->findChild<QTableView*>());
  test::expectReadable(*finestra, 40);
}

TEST(DrawnContrast, OfAFileAndOfAComparison) {
  const test::Azienda azienda;
  const std::string file = azienda.scrivi(2016);
  ASSERT_FALSE(file.empty());
  const auto finestra = aperta<FinestraFile>(qs(file), azienda.profilo);
  test::expectReadable(*finestra, 40);
  for (auto* const una : finestra->findChildren<Tabella*>()) evidenzia(*una);
  test::expectReadable(*finestra, 40);
  std::string altro = test::letto(file);
  const std::size_t importo = altro.find("AU001009");
  ASSERT_NE(importo, std::string::npos);
  altro.replace(importo + 8, 16, "          123,45");
  const std::string diverso = test::scritto(azienda.cartella / "altro.cur", altro);
  const auto confronto = aperta<FinestraConfronto>(qs(file), qs(diverso));
  test::expectReadable(*confronto, 20);
}

}  // namespace
}  // namespace cu::strumenti
