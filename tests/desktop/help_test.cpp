// The guide at the chapter of the present screen, tooltips, and texts that are shown unchanged.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolTip>

#include "apps/avvio/finestra_avvio.h"
#include "apps/avvio/messaggio_avvio.h"
#include "base/error.h"
#include "desktop/list_views.h"
#include "desktop/screen_support.h"
#include "desktop/text.h"
#include "liste/liste.h"

namespace cu::test {
namespace {

// The chapter at which the guide is open, which is then closed; "" when it is not open.
std::string chapter() {
  settle();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->windowTitle() != QStringLiteral("Guida") || !window->isVisible()) continue;
    const auto* const text = window->findChild<QTextBrowser*>();
    const QTextBlock block = text->textCursor().block();
    const bool atTop = text->cursorRect().top() < text->viewport()->height() / 2;
    std::string heading = (atTop ? "" : "below: ") + block.text().toStdString();
    if (block.blockFormat().headingLevel() == 0) heading = "no heading: " + heading;
    window->close();
    settle();
    return heading;
  }
  return "";
}

std::string chapterByF1(Screen& screen) {
  screen.key(Qt::Key_F1);
  return chapter();
}

TEST(Guide, OpensAtTheChapterOfTheStep) {
  Screen screen;
  EXPECT_EQ(chapterByF1(screen), "Stampare le certificazioni in forma libera");
  screen.toTelematicFile();
  EXPECT_EQ(chapterByF1(screen), "Scegliere l'anno");
  screen.click("cmdNav(0)");
  EXPECT_EQ(chapter(), "Scegliere l'anno");
  screen.click("cmdNav(3)");
  screen.find<QWidget>("grdCompensi")->setFocus();
  EXPECT_EQ(chapterByF1(screen), "Scegliere i compensi");
  screen.click("cmdNav(3)");
  EXPECT_EQ(chapterByF1(screen), "Firma, intermediario, cartella");
}

TEST(Guide, OpensInTheIndividualAccountsAndInTheirOptions) {
  Screen screen(246);
  EXPECT_EQ(chapterByF1(screen), "Stampare i conti individuali");
  std::string options;
  screen.whenModal([&](QWidget&) {
    options = chapterByF1(screen);
    screen.click("cmdCancel");
  });
  screen.click("cmdOpzioni");
  EXPECT_EQ(options, "Opzioni di stampa");
}

TEST(Guide, OpensInTheEditorsOfEveryYear) {
  for (const char* year : {"2014", "2015", "2016"}) {
    Screen screen;
    screen.inEditor(year, [&] {
      EXPECT_EQ(chapterByF1(screen), "Correggere un compenso") << year;
      if (screen.find<QWidget>("cmdAltriModuli") == nullptr) return;
      screen.click("cmdAltriModuli");
      EXPECT_EQ(chapterByF1(screen), "Altri moduli") << year;
      std::string data;
      screen.whenModal([&](QWidget&) {
        data = chapterByF1(screen);
        screen.click("cmdAnnulla");
      });
      screen.click("cmdDatiAggiuntivi");
      EXPECT_EQ(data, "Dati aggiuntivi") << year;
    });
  }
}

TEST(Guide, OpensOverDialogsAndBoxes) {
  Screen screen;
  screen.toEnd();
  screen.type("dtDataFirma", "");
  std::string log;
  screen.whenModal([&](QWidget& modal) {
    QTest::keyClick(&modal, Qt::Key_F1);
    log = chapter();
    pressButton(modal, "Chiudi");
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(log, "Se manca qualche dato");
  screen.type("dtDataFirma", "06032017");
  std::string box;
  screen.whenModal([&](QWidget& modal) {
    QTest::keyClick(&modal, Qt::Key_F1);
    box = chapter();
    pressButton(modal, "Annulla");
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(box, "Firma, intermediario, cartella");
  screen.type("dtDataFirma", "05032017");
  std::string notice;
  screen.whenModal([&](QWidget&) {
    notice = chapterByF1(screen);
    screen.click("Command1");
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(notice, "Il file è pronto");
}

TEST(Guide, OpensForReferencesOfAnAnnulment) {
  Screen screen;
  screen.toTelematicFile();
  screen.click("optTipoComunicazione(1)");
  screen.click("cmdNav(3)");
  EXPECT_EQ(chapterByF1(screen), "Annullare e sostituire");
  std::string references;
  screen.whenModal([&](QWidget&) {
    references = chapterByF1(screen);
    screen.click("cmdAnnulla");
  });
  screen.click("cmdProtocollo");
  EXPECT_EQ(references, "Annullare e sostituire");
}

CartelleAvvio foldersIn(const QTemporaryDir& folder) {
  return {folder.filePath(QStringLiteral("dati")), folder.filePath(QStringLiteral("impostazioni.toml")),
          folder.filePath(QStringLiteral("documenti")), QStringLiteral(CU_GUIDA)};
}

TEST(Guide, OpensInTheStartDialog) {
  const QTemporaryDir folder;
  FinestraAvvio window({}, foldersIn(folder));
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(&window, Qt::Key_F1);
  EXPECT_EQ(chapter(), "Avviare la procedura");
}

TEST(StartDialog, ReadsAPathThatIsCutWholeInItsTooltip) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QString(120, u'a') + QStringLiteral(".db"));
  SceltaAvvio choice;
  choice.database = path;
  FinestraAvvio window(choice, foldersIn(folder));
  window.resize(560, 400);
  window.show();
  settle();
  const auto boxes = window.findChildren<QLineEdit*>();
  const auto shown =
      std::find_if(boxes.begin(), boxes.end(), [&](const QLineEdit* box) { return box->text() == path; });
  ASSERT_NE(shown, boxes.end());
  EXPECT_EQ((*shown)->toolTip(), path);
}

// A text for users contains none of a developer's words.
void expectForAPerson(const QString& text) {
  for (const char* word : {"cuctl", "profile", ".toml", "Errore -", "url", "SQL"}) {
    EXPECT_FALSE(text.contains(QString::fromLatin1(word))) << text.toStdString();
  }
}

TEST(StartMessage, SpeaksToAPersonAndKeepsTheDetailForWhoeverInstalledIt) {
  const ErroreProfilo profile("profilo.toml: database.url manca, atteso un indirizzo");
  const MessaggioAvvio wrong = messaggioAvvio(profile);
  expectForAPerson(wrong.testo);
  EXPECT_TRUE(wrong.testo.contains(QStringLiteral("chi ha installato")));
  EXPECT_EQ(wrong.dettaglio.toStdString(), profile.what());
  const DatabaseError missing(DatabaseErrorKind::Unavailable, 14, "",
                              "Il database «x» non esiste. ... «cuctl create --database sqlite:x».");
  const MessaggioAvvio database = messaggioAvvio(missing);
  expectForAPerson(database.testo);
  EXPECT_TRUE(
      database.testo.contains(QStringLiteral("il database non si può usare: non si riesce ad aprirlo.")));
  EXPECT_TRUE(database.dettaglio.contains(QStringLiteral("cuctl create")));
  const MessaggioAvvio other = messaggioAvvio(std::runtime_error("boh"));
  EXPECT_TRUE(other.testo.startsWith(QStringLiteral("La procedura non può partire.")));
}

TEST(StartMessage, InTheStartDialogTellsWhatToDoThere) {
  const QTemporaryDir folder;
  SceltaAvvio choice;
  choice.database = folder.filePath(QStringLiteral("manca.db"));
  const FinestraAvvio window(choice, foldersIn(folder));
  QLabel* told = nullptr;
  for (auto* label : window.findChildren<QLabel*>()) {
    if (label->text().contains(QStringLiteral("manca.db"))) told = label;
  }
  ASSERT_NE(told, nullptr);
  expectForAPerson(told->text());
  EXPECT_EQ(told->text(),
            "manca.db non si può usare: non c'è, non si può leggere, o non è un database. Scegliere un altro "
            "database.");
  EXPECT_TRUE(told->toolTip().contains(QStringLiteral("non c'è: è stato spostato"))) << "the detail";
}

// The tooltip shown by the mouse over a cell.
QString tipOver(QTableView& table, const QModelIndex& cell) {
  QToolTip::hideText();
  settle();
  const QPoint at = table.visualRect(cell).center();
  QHelpEvent help(QEvent::ToolTip, at, table.viewport()->mapToGlobal(at));
  QApplication::sendEvent(table.viewport(), &help);
  return QToolTip::isVisible() ? QToolTip::text() : QString();
}

int columnCalled(const QAbstractItemModel& model, const QString& caption) {
  for (int column = 0; column < model.columnCount(); ++column) {
    if (model.headerData(column, Qt::Horizontal).toString() == caption) return column;
  }
  return -1;
}

TEST(Tooltips, TellANameThatIsCutInTheGrid) {
  Screen screen;
  screen.toGrid();
  auto& table = *screen.find<QTableView>("grdCompensi");
  const QModelIndex name = table.model()->index(0, 2);
  table.setColumnWidth(2, 400);
  EXPECT_EQ(tipOver(table, name), QString());
  table.setColumnWidth(2, 30);
  EXPECT_EQ(tipOver(table, name), name.data().toString());
  EXPECT_EQ(tipOver(table, table.model()->index(0, 1)), "Menu della riga");
  QToolTip::hideText();
}

TEST(Tooltips, TellWhatAReasonsLetterStandsFor) {
  Screen screen;
  screen.toGrid();
  auto& table = *screen.find<QTableView>("grdCompensi");
  const int reason = columnCalled(*table.model(), QStringLiteral("Codice pagamento"));
  ASSERT_GE(reason, 0);
  const QModelIndex cell = table.model()->index(0, reason);
  const std::string letter = cell.data().toString().toStdString();
  ASSERT_FALSE(descrizioneCausale(letter).empty()) << letter;
  table.setColumnHidden(reason, false);
  table.scrollTo(cell);
  EXPECT_EQ(tipOver(table, cell), desktop::sentenceTip(desktop::shown(descrizioneCausale(letter))));
  QToolTip::hideText();
}

TEST(Tooltips, OfTheStepsAndOfTheRebuildAreSentences) {
  Screen screen;
  EXPECT_EQ(
      screen.find<QWidget>("ctlWizardSideBand")->toolTip(),
      "Passo iniziale, Filtri di selezione (passo corrente)\nPasso finale, Completamento delle operazioni");
  auto* const rebuild = screen.find<QWidget>("chkRicostruzione");
  EXPECT_TRUE(rebuild->toolTip().contains(QStringLiteral("vanno perse")));
  EXPECT_TRUE(rebuild->accessibleDescription().contains(QStringLiteral("vanno perse")));
  EXPECT_TRUE(screen.find<QWidget>("cmdOpzioni")->toolTip().contains(QStringLiteral("nessuna stampa")));
}

TEST(Tooltips, ShowDataThatLookLikeMarkedUpText) {
  EXPECT_EQ(desktop::dataTip(QStringLiteral("Rossi & C.")), "Rossi & C.");
  EXPECT_EQ(desktop::dataTip(QStringLiteral("<b>Rossi</b>")), "<p>&lt;b&gt;Rossi&lt;/b&gt;</p>");
}

TEST(Texts, AnAmpersandInANameIsDrawnOnce) {
  Screen screen;
  screen.form().lblName0.setCaption("Anna & Figli");
  const auto* const label = screen.find<QLabel>("lblName(0)");
  EXPECT_EQ(label->buddy(), nullptr) << "without one the toolkit draws the text as it stands";
  EXPECT_EQ(label->text(), "Anna & Figli");
}

TEST(Texts, AFolderWithAnAmpersandIsALinkWithIt) {
  Screen screen;
  screen.toEnd();
  QString text;
  QString spoken;
  screen.whenModal([&](QWidget&) {
    dynamic_cast<Link&>(*screen.top()->form().find("lblLink")).setCaption("/home/R&D");
    text = screen.find<QAbstractButton>("lblLink")->text();
    spoken = screen.find<QAbstractButton>("lblLink")->accessibleName();
    screen.click("Command1");
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(text, "/home/R&&D") << "a button's text has mnemonics";
  EXPECT_EQ(spoken, "/home/R&D");
}

TEST(Texts, TheCountOfRowsIsOneLineInItsHeading) {
  Screen screen;
  screen.toGrid();
  auto& table = *screen.find<QTableView>("grdCompensi");
  for (int column = 1; column < table.model()->columnCount(); ++column) table.hideColumn(column);
  screen.form().grdCompensi.setColumnCaption("Selezionato", "[ 20797 ]");
  table.setColumnWidth(0, 47);
  const QFontMetrics letters = table.horizontalHeader()->fontMetrics();
  EXPECT_LT(table.horizontalHeader()->sizeHint().height(), 2 * letters.height());
}

TEST(Texts, TheCountOfAllRowsFitsItsColumn) {
  Screen screen;
  screen.toGrid();
  const auto& table = *screen.find<QTableView>("grdCompensi");
  const QString all = QStringLiteral("[ %1 ]").arg(table.model()->rowCount());
  EXPECT_GE(table.columnWidth(0), table.horizontalHeader()->fontMetrics().horizontalAdvance(all));
}

TEST(Texts, TheNoteOfTheFormsPrintIsNotThereWhereAReportIsChosen) {
  Screen screen;
  const auto note = [&] {
    for (const QLabel* label : screen.find<QWidget>("WizPrint")->findChildren<QLabel*>()) {
      if (label->text() == QStringLiteral("Una sola stampa per tutti i percipienti."))
        return label->isVisible();
    }
    return false;
  };
  screen.toEnd();
  EXPECT_FALSE(note());
  screen.click("optStampaTracciato(1)");
  EXPECT_TRUE(note());
  screen.click("cmdNav(2)");
  screen.whenModal([](QWidget& modal) { pressButton(modal, "No"); });
  screen.click("cmdNav(2)");
  screen.click("optstType(0)");
  screen.click("cmdNav(3)");
  EXPECT_FALSE(note());
}

TEST(Texts, AWindowWithoutATitleBearsTheProgramsName) {
  Screen screen;
  QString title;
  screen.form().cmdOpzioni.onClick = [&] { screen.frontEnd().messageBox({.text = "Testo", .title = ""}); };
  screen.whenModal([&](QWidget& modal) {
    title = modal.windowTitle();
    pressButton(modal, "OK");
  });
  screen.click("cmdOpzioni");
  EXPECT_EQ(title, "Autocomposizione");
}

}  // namespace
}  // namespace cu::test
