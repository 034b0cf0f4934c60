// Where the user is, and what the main action will do, beside the form's controls.

#include "desktop/overview.h"
#include "desktop/look.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "apps/comune/connessioni.h"
#include "data/recordset.h"
#include "desktop/screen_support.h"
#include "fornitura/riepilogo.h"
#include "worklist/tabella_lavoro.h"

namespace cu::test {
namespace {

desktop::WhereLine& whereLine(Screen& screen) {
  return static_cast<desktop::WhereLine&>(*screen.window().findChild<QWidget*>(QStringLiteral("dove")));
}

QString whereAmI(Screen& screen) { return whereLine(screen).words(); }

desktop::OutlookPanel& outlookOf(Screen& screen) {
  return static_cast<desktop::OutlookPanel&>(
      *screen.window().findChild<QWidget*>(QStringLiteral("previsione")));
}

QString predicted(Screen& screen, const char* fact) {
  return outlookOf(screen).text(QString::fromUtf8(fact));
}

TEST(WhereAmI, NamesCompanyYearAndKindOnEveryStep) {
  Screen screen;
  EXPECT_EQ(
      whereAmI(screen),
      QStringLiteral("Azienda: Bottega Lessinia Servizi S.r.l. (04123450233); Stampa: Certificazione in "
                     "forma libera"));
  screen.toTelematicFile("2016");
  const QString expected = QStringLiteral(
      "Azienda: Bottega Lessinia Servizi S.r.l. (04123450233); Anno: 2016; Comunicazione: Certificazione "
      "Unica, ordinaria");
  EXPECT_EQ(whereAmI(screen), expected);
  screen.click("cmdNav(3)");
  EXPECT_EQ(whereAmI(screen), expected);
  screen.click("cmdNav(3)");
  EXPECT_EQ(whereAmI(screen), expected);
  EXPECT_TRUE(whereLine(screen).isVisible());
  EXPECT_EQ(whereLine(screen).accessibleDescription(), expected);
}

TEST(WhereAmI, FollowsTheKindOfCommunication) {
  Screen screen;
  screen.toTelematicFile("2016");
  screen.click("optTipoComunicazione(1)");
  EXPECT_TRUE(whereAmI(screen).endsWith(QStringLiteral("annullamento"))) << whereAmI(screen).toStdString();
  screen.choose("KRNCboEsCont(0)", "2017");
  EXPECT_TRUE(whereAmI(screen).contains(QStringLiteral("Anno: 2017")));
}

TEST(WhereAmI, NamesThePrintOfTheAccountsWithItsYears) {
  Screen screen(246);
  EXPECT_TRUE(whereAmI(screen).endsWith(QStringLiteral("(04123450233); Stampa: Conti individuali")))
      << whereAmI(screen).toStdString();
  const auto years = [&] {
    return whereAmI(screen).section(QStringLiteral("Anno: "), 1).section(u';', 0, 0);
  };
  screen.choose("KRNCboEsCont(0)", "2017");
  EXPECT_EQ(years(), QStringLiteral("dal 2017")) << "without a last year all that follow are printed";
  screen.choose("KRNCboEsCont(1)", "2015");
  EXPECT_EQ(years(), QStringLiteral("2015 - 2017")) << "in whichever order they are chosen";
  screen.choose("KRNCboEsCont(1)", "2017");
  EXPECT_EQ(years(), QStringLiteral("2017"));
}

// Computed by the database from the same lines.
TEST(Outlook, SumsUpWhatStartWillDo) {
  Screen screen;
  screen.toGrid();
  EXPECT_FALSE(outlookOf(screen).isVisible());
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Space);  // one line less
  screen.click("cmdNav(3)");
  ASSERT_TRUE(outlookOf(screen).isVisible());
  const auto connection = creaConnessione(screen.profile().database);
  Recordset sums;
  sums.Open(*connection,
            "SELECT COUNT(*) AS Righe, SUM(AmmontareLordo) AS "
            "Lordo, SUM(ISNULL(RitenuteAcconto, 0) + ISNULL(RitenuteImposta, 0)) AS Ritenute FROM " +
                fnNomeTabellaLavoro(12) + " WHERE Selezionato <> 0");
  Recordset payees;
  payees.Open(*connection,
              "SELECT DISTINCT IDAnagrafica FROM " + fnNomeTabellaLavoro(12) + " WHERE Selezionato <> 0");
  const std::int64_t lines = sums.Get("Righe").integer();
  EXPECT_EQ(predicted(screen, "Righe"), QStringLiteral("%1 righe scelte su %2").arg(lines).arg(lines + 1));
  EXPECT_EQ(predicted(screen, "Percipienti"), QString::number(payees.RecordCount()));
  EXPECT_EQ(predicted(screen, "Ammontare lordo"),
            QString::fromStdString(fornitura::importoItaliano(sums.Get("Lordo").decimal())));
  EXPECT_EQ(predicted(screen, "Ritenute"),
            QString::fromStdString(fornitura::importoItaliano(sums.Get("Ritenute").decimal())));
  EXPECT_EQ(predicted(screen, "File"), QStringLiteral("CUR_04123450233_2016.cur"));
  EXPECT_EQ(predicted(screen, "Cartella"), screen.documents());
  EXPECT_EQ(predicted(screen, "Attenzione"), QString());
  EXPECT_EQ(predicted(screen, "Correzioni"), QStringLiteral("nessuna da memorizzare"));
  EXPECT_EQ(predicted(screen, "Controllo dei dati"), QStringLiteral("nessun dato manca"));
  EXPECT_EQ(predicted(screen, "Moduli"), QStringLiteral("%1 file PDF").arg(lines));
}

TEST(Outlook, FollowsTheInputsOfTheStep) {
  Screen screen;
  screen.toEnd();
  screen.click("optStampaTracciato(1)");
  EXPECT_EQ(predicted(screen, "Moduli"), QStringLiteral("un file PDF per tutte le righe"));
  screen.type("dtDataFirma", "");
  screen.click("optStampaTracciato(0)");
  EXPECT_TRUE(predicted(screen, "Controllo dei dati")
                  .startsWith(QStringLiteral("1 dato manca: Avvia lo segnala e non crea il file. ")))
      << predicted(screen, "Controllo dei dati").toStdString();
  screen.type("dtDataFirma", "06032017");
  screen.click("optStampaTracciato(1)");
  EXPECT_EQ(predicted(screen, "Controllo dei dati"),
            QStringLiteral("La data della firma è futura: Avvia chiede conferma."));
}

TEST(Outlook, WarnsOfAFileThatExistsAndCountsTheCorrections) {
  Screen screen;
  QFile(QDir(screen.documents()).filePath(QStringLiteral("CUR_04123450233_2016.cur")))
      .open(QIODevice::WriteOnly);
  screen.toGrid();
  screen.whenModal([&](QWidget&) {
    screen.type("curField(19)", "20000");
    screen.key(Qt::Key_Return);
  });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  screen.click("cmdNav(3)");
  EXPECT_EQ(predicted(screen, "Attenzione"),
            QStringLiteral("CUR_04123450233_2016.cur esiste già: Avvia lo sostituisce."));
  EXPECT_EQ(predicted(screen, "Correzioni"), QStringLiteral("1 da memorizzare nel suo conto"));
  const auto* const row = screen.window().findChild<QLabel*>(QStringLiteral("previsione.Attenzione"));
  ASSERT_NE(row, nullptr);
  EXPECT_TRUE(row->text().startsWith(QStringLiteral("⚠"))) << "not by colour alone";
}

TEST(Outlook, LeavesTheControlsTheirWidthOnASmallScreen) {
  Screen screen;
  screen.toEnd();
  screen.window().resize(1024, 568);
  settle();
  EXPECT_TRUE(outlookOf(screen).isVisible());
  for (const auto* area : screen.window().findChildren<QScrollArea*>()) {
    if (!area->isVisible()) continue;
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
  }
}

TEST(Outlook, IsBelowTheControlsWhereTheLettersLeaveNoRoomBeside) {
  Screen screen;
  screen.toEnd();
  const auto& panel = outlookOf(screen);
  const auto& date = *screen.find<QWidget>("dtDataFirma");
  const auto at = [&screen](const QWidget& widget) { return widget.mapTo(&screen.window(), QPoint()); };
  for (const int letters : {100, 160, 130}) {
    desktop::look::setLetters(letters);
    screen.window().resize(1024, 568);
    settle();
    EXPECT_TRUE(panel.isVisibleTo(&screen.window())) << letters;
    const bool below = at(panel).y() > at(date).y();
    EXPECT_EQ(at(panel).x() < at(date).x() + 100, below) << letters;
    EXPECT_TRUE(letters == 130 || below == (letters == 160)) << letters;
    EXPECT_EQ(predicted(screen, "Righe"), QStringLiteral("49 righe scelte su 49")) << letters;
    for (const auto* area : screen.window().findChildren<QScrollArea*>()) {
      if (!area->isVisible()) continue;
      EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << letters;
    }
  }
  desktop::look::setLetters(desktop::look::kNormalLetters);
}

TEST(Outlook, OfAPrintNamesItsRowsAndWhereItGoes) {
  Screen screen(246);
  screen.click("cmdNav(3)");
  EXPECT_EQ(predicted(screen, "Percipienti"), QStringLiteral("tutti"));
  EXPECT_EQ(predicted(screen, "Uscita"), QStringLiteral("in anteprima, sullo schermo"));
  EXPECT_EQ(predicted(screen, "Stampa"), QStringLiteral("Conto individuale")) << "not a file's name";
}

}  // namespace
}  // namespace cu::test
