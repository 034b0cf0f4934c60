// The board of all companies in its window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QLineEdit>
#include <QTest>

#include <QApplication>
#include <QComboBox>
#include <memory>
#include <string>
#include <vector>

#include "apps/strumenti/casella_cerca.h"
#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/finestra_tabellone.h"
#include "apps/strumenti/tabella_vista.h"
#include "azienda_support.h"

namespace cu::strumenti {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class Board : public testing::Test {
 protected:
  Board() {
    diventaStudio(azienda_);
    azienda_.profilo.sessione.azienda = 1;
    azienda_.profilo.sessione.filiale = 1;
    apri();
  }
  void apri() {
    finestra_ = std::make_unique<FinestraTabellone>(azienda_.profilo);
    finestra_->show();
    EXPECT_TRUE(test::aspetta([this] { return !finestra_->lavora(); }));
    tabella_ = finestra_->findChild<Tabella*>();
  }
  QString cella(int riga, const char* titolo) const {
    const QAbstractItemModel& modello = *tabella_->model();
    for (int i = 0; i < modello.columnCount(); ++i) {
      if (modello.headerData(i, Qt::Horizontal).toString() == QString::fromUtf8(titolo)) {
        return modello.index(riga, i).data().toString();
      }
    }
    ADD_FAILURE() << "no column " << titolo;
    return {};
  }
  std::vector<std::string> aziende() const {
    std::vector<std::string> nomi;
    for (int i = 0; i < tabella_->model()->rowCount(); ++i) {
      nomi.push_back(
          (cella(i, "Azienda").remove(QStringLiteral("Azienda Sintetica ")) + u' ' + cella(i, "Anno"))
              .toStdString());
    }
    return nomi;
  }
  void scegliAnno(const QString& anno) {
    auto* const anni = finestra_->findChild<QComboBox*>();
    anni->setCurrentText(anno);
    emit anni->activated(anni->currentIndex());
  }

  test::Azienda azienda_;
  std::unique_ptr<FinestraTabellone> finestra_;
  Tabella* tabella_ = nullptr;
};

TEST_F(Board, ShowsTheNewestYearFirstAndCountsWhatWasDone) {
  EXPECT_THAT(aziende(), ElementsAre("0002 S.p.A. 2017", "0003 S.p.A. 2017", "S.p.A. 2017"));
  EXPECT_EQ(cella(0, "Scritte"), cella(0, "Conti"));
  EXPECT_EQ(cella(0, "Inviate"), cella(0, "Conti"));
  EXPECT_EQ(cella(0, "Da inviare"), QStringLiteral("0"));
  EXPECT_EQ(cella(1, "Scritte"), QStringLiteral("0"));
  EXPECT_EQ(cella(1, "Da inviare"), cella(1, "Conti"));
  EXPECT_EQ(cella(1, "Scadenza"), QStringLiteral("entro il 07/03/2018"));
  scegliAnno(QStringLiteral("Tutti"));
  EXPECT_EQ(aziende().size(), 6U);
}

TEST_F(Board, SaysWhatIsDueAndWhatIsLateWithItsSource) {
  scegliAnno(QStringLiteral("2016"));
  EXPECT_THAT(cella(0, "Scadenza").toStdString(), HasSubstr("⚠ in ritardo"));
  EXPECT_TRUE(test::dice(*finestra_, "era entro il 07/03/2017"));
  EXPECT_TRUE(test::dice(*finestra_, "fonte: studiocla.it"));
}

TEST_F(Board, IsFilteredBySearchAndByItsButtonsAndSortedByItsColumns) {
  ASSERT_TRUE(test::premi(*finestra_, "Da inviare"));
  EXPECT_THAT(aziende(), ElementsAre("0003 S.p.A. 2017", "S.p.A. 2017"));
  ASSERT_TRUE(test::premi(*finestra_, "Dati mancanti"));
  EXPECT_TRUE(aziende().empty());
  EXPECT_TRUE(test::dice(*finestra_, "Nessuna azienda corrisponde alla scelta."));
  ASSERT_TRUE(test::premi(*finestra_, "Tutte"));
  finestra_->findChild<CasellaCerca*>()->setText(QStringLiteral("00000030247"));
  EXPECT_TRUE(test::aspetta([this] { return aziende() == std::vector<std::string>{"0003 S.p.A. 2017"}; }));
  finestra_->findChild<CasellaCerca*>()->clear();
  EXPECT_TRUE(test::aspetta([this] { return aziende().size() == 3; }));
  tabella_->sortByColumn(0, Qt::DescendingOrder);
  EXPECT_EQ(aziende().front(), "S.p.A. 2017");
}

TEST_F(Board, OpensTheStateOfTheCompanysYear) {
  scegliAnno(QStringLiteral("2016"));
  tabella_->setFocus();
  tabella_->selectRow(1);
  QTest::keyClick(tabella_, Qt::Key_Return);
  FinestraStato* stato = nullptr;
  for (QWidget* finestra : QApplication::topLevelWidgets()) {
    if (auto* const suo = dynamic_cast<FinestraStato*>(finestra)) stato = suo;
  }
  ASSERT_NE(stato, nullptr);
  EXPECT_TRUE(test::aspetta([stato] { return !stato->lavora(); }));
  EXPECT_EQ(stato->windowTitle(), QStringLiteral("Stato degli invii - Azienda Sintetica 0003 S.p.A."));
  EXPECT_EQ(stato->findChild<QComboBox*>()->currentText(), QStringLiteral("2016"));
  delete stato;
}

TEST_F(Board, CountsMissingDataAndReadsThemAgain) {
  azienda_.esegui(
      "UPDATE ConfigurazioneGenerale SET IDCodiceCaricaRappresentante = NULL WHERE IDAzienda = 3");
  ASSERT_TRUE(test::premi(*finestra_, "Ricarica"));
  EXPECT_TRUE(test::aspetta([this] { return !finestra_->lavora(); }));
  EXPECT_EQ(cella(1, "Mancanti"), QStringLiteral("1"));
  ASSERT_TRUE(test::premi(*finestra_, "Dati mancanti"));
  EXPECT_THAT(aziende(), ElementsAre("0003 S.p.A. 2017"));
}

TEST_F(Board, SaysThatADatabaseKeepsNoRecord) {
  finestra_.reset();
  for (const char* tabella : {"CuInvio", "CuCertificazione", "CuModulo"}) {
    azienda_.esegui(std::string("DROP TABLE ") + tabella);
  }
  apri();
  EXPECT_TRUE(test::dice(*finestra_, "non ha ancora le tabelle per seguire gli invii"));
  EXPECT_EQ(aziende().size(), 3U);
}

}  // namespace
}  // namespace cu::strumenti
