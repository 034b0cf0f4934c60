// The status at the foot of the window after the work, and the pointer during it.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>

#include "apps/comune/connessioni.h"
#include "desktop/foot.h"
#include "desktop/preview_dialog.h"
#include "desktop/screen_support.h"
#include "worklist/tabella_lavoro.h"

namespace cu::test {
namespace {

// Replaces the desktop's programs.
class Opener : public QTextBrowser {
 public:
  Opener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "setSource"); }
  ~Opener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
  QStringList opened;

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType) override { opened += url.toLocalFile(); }
};

QString words(Screen& screen) { return screen.window().foot()->words(); }

QToolButton* link(Screen& screen, const char* name) {
  auto* const found = screen.window().foot()->findChild<QToolButton*>(QString::fromLatin1(name));
  return found->isVisible() ? found : nullptr;
}

void printTo(Screen& screen, int output) {
  auto* const outputs = screen.find<QWidget>("WizPrint")->findChildren<QComboBox*>().at(1);
  outputs->setCurrentIndex(output - 1);
  emit outputs->activated(output - 1);
  screen.click("cmdNav(4)");
}

void saveAs(QWidget& modal, const QString& path) {
  auto* const name = modal.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  ASSERT_NE(name, nullptr);
  name->setText(path);
  QTest::keyClick(name, Qt::Key_Return);
}

TEST(StatusLine, RepeatsAtTheGridThatACodeIsNoRowUntilTheNextLoad) {
  Screen screen;
  screen.toTelematicFile();
  screen.type("KrnCDPerc(0)", "ZZZ");
  screen.key(Qt::Key_A, Qt::AltModifier);
  ASSERT_EQ(screen.focus()->name(), "grdCompensi");
  EXPECT_EQ(words(screen),
            QStringLiteral("Da percipiente: il codice \"ZZZ\" non esiste, l'intervallo può non valere come è "
                           "scritto."));
  screen.whenModal([](QWidget& modal) { pressButton(modal, "No"); });
  screen.click("cmdNav(2)");
  screen.type("KrnCDPerc(0)", "P003");
  screen.click("cmdNav(3)");
  ASSERT_EQ(screen.focus()->name(), "grdCompensi");
  EXPECT_EQ(words(screen), "Pronto");
}

TEST(StatusLine, NamesTheFileOfAPrintAndOpensItAndItsFolder) {
  Screen screen(246, Profilo::MotoreStampa::Pdf);
  Opener opener;
  screen.click("cmdNav(3)");
  EXPECT_EQ(words(screen), "Pronto");
  EXPECT_EQ(link(screen, "apriFile"), nullptr);
  const int height = screen.window().foot()->height();
  const QString path = QDir(screen.documents()).filePath(QStringLiteral("conti.pdf"));
  screen.whenModal([&](QWidget& modal) { saveAs(modal, path); });
  printTo(screen, 3);
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_EQ(words(screen), "Creato conti.pdf.");
  settle();
  EXPECT_EQ(screen.window().foot()->height(), height) << "nothing jumps";
  ASSERT_NE(link(screen, "apriFile"), nullptr);
  QTest::mouseClick(link(screen, "apriFile"), Qt::LeftButton);
  link(screen, "apriCartella")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(link(screen, "apriCartella"), Qt::Key_Return);
  EXPECT_EQ(opener.opened, QStringList({path, screen.documents()}));
  EXPECT_TRUE(screen.frontEnd().anyOpen());
  // A preview makes no file.
  screen.whenModal([](QWidget& modal) { modal.close(); });
  printTo(screen, 1);
  EXPECT_EQ(words(screen), "Pronto");
  EXPECT_EQ(link(screen, "apriFile"), nullptr);
}

TEST(SaveDialog, AsksBeforeItReplacesTheFileOfANameTypedWithoutItsEnding) {
  Screen screen(246, Profilo::MotoreStampa::Pdf);
  screen.click("cmdNav(3)");
  for (const auto& [output, ending] :
       {std::pair{3, QStringLiteral(".pdf")}, std::pair{4, QStringLiteral(".xlsx")}}) {
    const QString name = QDir(screen.documents()).filePath(QStringLiteral("altro"));
    QFile before(name + ending);
    ASSERT_TRUE(before.open(QIODevice::WriteOnly));
    before.write("di prima");
    before.close();
    QString question;
    screen.whenModal([&](QWidget& modal) {
      saveAs(modal, name);
      if (modal.isVisible()) modal.close();
    });
    screen.whenModal([&](QWidget& modal) {
      question = boxText(modal);
      QTest::keyClick(&modal, Qt::Key_Escape);
    });
    printTo(screen, output);
    EXPECT_TRUE(screen.allAnswered());
    screen.forgetModals();
    EXPECT_TRUE(question.contains(QStringLiteral("altro") + ending)) << question.toStdString();
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    EXPECT_TRUE(before.readAll() == "di prima");
  }
}

TEST(StatusLine, AFormIsShownByTheWindowItselfWhateverItsNameEndsWith) {
  Screen screen(247, Profilo::MotoreStampa::Pdf);
  Opener opener;
  screen.toEnd();
  screen.click("optStampaTracciato(1)");
  screen.whenModal([&](QWidget&) { screen.click("Command1"); });
  screen.click("cmdNav(4)");
  EXPECT_EQ(words(screen), "Creato CUR_04123450233_2016.cur. Creato CUR_04123450233_2016_05032017_1030.cur.");
  int pages = 0;
  screen.whenModal([&](QWidget& modal) {
    const auto* const preview = dynamic_cast<desktop::PreviewDialog*>(&modal);
    pages = preview == nullptr ? -1 : preview->pages();
    modal.close();
  });
  ASSERT_NE(link(screen, "apriFile"), nullptr);
  QTest::mouseClick(link(screen, "apriFile"), Qt::LeftButton);
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_GT(pages, 0);
  EXPECT_TRUE(opener.opened.isEmpty());
}

TEST(StatusLine, OffersWhatTheEventLeftUntilItsFactsAreReplaced) {
  Screen screen;
  screen.toGrid();
  EXPECT_EQ(link(screen, "apriOfferta"), nullptr);
  int opened = 0;
  screen.frontEnd().offer({QStringLiteral("Vedi i rilievi"), QStringLiteral("/a/b.cur"), [&] { ++opened; }});
  screen.frontEnd().toldAfter("Controllo: nessun errore, 8 avvisi.");
  QToolButton* const offered = link(screen, "apriOfferta");
  ASSERT_NE(offered, nullptr);
  EXPECT_EQ(offered->text(), QStringLiteral("Vedi i rilievi"));
  EXPECT_TRUE(offered->toolTip().contains(QStringLiteral("b.cur"))) << offered->toolTip().toStdString();
  QTest::mouseClick(offered, Qt::LeftButton);
  offered->setFocus(Qt::TabFocusReason);
  QTest::keyClick(offered, Qt::Key_Return);
  EXPECT_EQ(opened, 2);
  screen.frontEnd().toldAnew("Altro.");
  EXPECT_EQ(words(screen), "Altro.");
  EXPECT_EQ(link(screen, "apriOfferta"), nullptr);
}

TEST(StatusLine, AFactStaysUntilTheNextWork) {
  Screen screen;
  screen.toGrid();
  screen.whenModal([&](QWidget&) { screen.key(Qt::Key_Escape); });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_EQ(words(screen), "L'editor è stato chiuso senza confermare: la riga è rimasta com'era.");
  screen.key(Qt::Key_Down);
  EXPECT_EQ(words(screen), "L'editor è stato chiuso senza confermare: la riga è rimasta com'era.");
  screen.whenModal([&](QWidget&) { screen.click("cmdOk"); });
  screen.key(Qt::Key_Return);
  EXPECT_EQ(words(screen), "La riga è rimasta com'era: nessuna modifica.");
  screen.click("cmdNav(3)");
  EXPECT_EQ(words(screen), "Pronto") << "not on another step";
  screen.click("cmdNav(2)");
  screen.whenModal([&](QWidget&) { screen.click("cmdAnnulla"); });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_NE(words(screen), "Pronto");
  screen.click("cmdSelect(0)");
  EXPECT_EQ(words(screen), "Pronto");
}

TEST(StatusLine, SaysHowManyAccountsTheRebuildChangedBeforeTheGridWasLoaded) {
  Screen screen;
  screen.toTelematicFile();
  screen.click("chkRicostruzione");
  screen.click("cmdNav(3)");
  EXPECT_TRUE(words(screen).startsWith(QStringLiteral("La ricostruzione "))) << words(screen).toStdString();
}

TEST(StatusLine, TheRunSaysWhatCameOfIt) {
  Screen screen;
  screen.toEnd();
  screen.type("dtDataFirma", "");
  screen.whenModal([](QWidget& modal) { pressButton(modal, "Chiudi"); });
  screen.click("cmdNav(4)");
  EXPECT_EQ(words(screen), "Il file telematico non è stato creato: mancano dei dati.");
  screen.type("dtDataFirma", "05032017");
  QString meanwhile;
  screen.whenModal([&](QWidget&) {
    meanwhile = words(screen);
    screen.click("Command1");
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(words(screen), "Creato CUR_04123450233_2016.cur. Nessuna stampa è stata scritta.");
  EXPECT_EQ(meanwhile, words(screen)) << "the notice does not wait for its end";
}

// In the editor of the grid's current row.
void correctARow(Screen& screen) {
  screen.whenModal([&](QWidget&) {
    screen.type("curField(19)", "20000");
    screen.key(Qt::Key_Return);
  });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  ASSERT_TRUE(screen.allAnswered());
}

TEST(StatusLine, SaysHowManyAccountsWereStoredOnTheWayBack) {
  Screen screen;
  screen.toGrid();
  correctARow(screen);
  screen.whenModal([](QWidget& modal) { pressButton(modal, "Sì"); });
  screen.click("cmdNav(2)");
  EXPECT_EQ(words(screen), "Le correzioni sono state memorizzate in un conto.");
}

// Another session has deleted the corrected row from the work table.
TEST(StatusLine, SaysThatThereIsNoFileWhenAnErrorCameFirst) {
  Screen screen;
  screen.toGrid();
  correctARow(screen);
  creaConnessione(screen.profile().database)
      ->Execute("DELETE FROM " + fnNomeTabellaLavoro(12) + " WHERE Modificato <> 0");
  screen.click("cmdNav(3)");
  QString box;
  screen.whenModal([&](QWidget& modal) {
    box = modal.objectName();
    QTest::keyClick(&modal, Qt::Key_Escape);
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(box, "errore");
  EXPECT_EQ(words(screen), "Il file telematico non è stato creato.");
}

TEST(StatusLine, IsCutInANarrowWindowAndToldWholeByItsTooltip) {
  Screen screen;
  screen.form().cmdOpzioni.onClick = [&] { screen.frontEnd().told(std::string(300, 'x') + " < & fine."); };
  screen.click("cmdOpzioni");
  auto* const line = screen.window().foot()->findChild<QLabel*>();
  EXPECT_LT(line->text().size(), words(screen).size());
  EXPECT_TRUE(line->toolTip().contains(QStringLiteral("&lt; &amp; fine.")));
  EXPECT_LE(screen.window().foot()->width(), screen.window().width());
}

TEST(FolderNote, TheLastStepNamesTheFileThatWouldBeReplaced) {
  Screen screen;
  screen.toEnd();
  auto* const note = screen.find<QLabel>("txtPercorsoCU.nota");
  ASSERT_NE(note, nullptr);
  EXPECT_FALSE(note->isVisible());
  screen.whenModal([&](QWidget&) { screen.click("Command1"); });
  screen.click("cmdNav(4)");
  screen.click("cmdNav(3)");
  screen.click("cmdNav(3)");
  EXPECT_TRUE(note->isVisible());
  EXPECT_EQ(note->text(), "CUR_04123450233_2016.cur esiste già: Avvia lo sostituisce.");
}

TEST(Hourglass, GoesWhileTheRunAsksAndWhenItEnds) {
  Screen screen;
  screen.toEnd();
  screen.type("dtDataFirma", "06032017");
  std::string pointers;
  screen.whenModal([&](QWidget& modal) {
    pointers += std::to_string(screen.frontEnd().pointer());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    pressButton(modal, "OK");
  });
  screen.whenModal([&](QWidget&) {
    pointers += std::to_string(screen.frontEnd().pointer());
    screen.click("Command1");
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(pointers, "00");
  EXPECT_EQ(screen.frontEnd().pointer(), kPointerDefault);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// A queued call runs while the window is drawn, just before the statements.
TEST(Hourglass, StandsWhileAnEditorsRowIsStored) {
  Screen screen;
  screen.inEditor("2016", [&] {
    screen.type("curField(19)", "20000");
    QString meanwhile;
    std::optional<Qt::CursorShape> shape;
    QTimer::singleShot(0, &screen.window(), [&] {
      meanwhile = words(screen);
      if (QApplication::overrideCursor() != nullptr) shape = QApplication::overrideCursor()->shape();
    });
    screen.click("cmdOk");
    EXPECT_EQ(screen.top(), &screen.window());
    EXPECT_EQ(meanwhile, "Memorizzazione della riga");
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  });
  EXPECT_EQ(words(screen), "Pronto");
}

}  // namespace
}  // namespace cu::test
