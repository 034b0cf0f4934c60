// The start without a profile, and the reading windows.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "apps/avvio/avvio_unico.h"
#include "apps/avvio/finestra_avvio.h"
#include "desktop/foot.h"
#include "desktop/preview_dialog.h"
#include "desktop/qt_front_end.h"
#include "desktop/reading_windows.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

CartelleAvvio startFoldersIn(const QTemporaryDir& folder) {
  return {folder.filePath(QStringLiteral("dati")),
          folder.filePath(QStringLiteral("config/impostazioni.toml")),
          folder.filePath(QStringLiteral("documenti"))};
}

QPushButton* startButton(FinestraAvvio& window) {
  for (auto* button : window.findChildren<QPushButton*>()) {
    if (button->text() == QStringLiteral("A&vvia")) return button;
  }
  return nullptr;
}

TEST(Start, MakesTheDemonstrationDatabaseAtTheFirstStartAndNamesItsCompany) {
  const QTemporaryDir folder;
  const CartelleAvvio folders = startFoldersIn(folder);
  FinestraAvvio window({}, folders);
  EXPECT_TRUE(QFile::exists(folders.databaseDimostrativo()));
  EXPECT_FALSE(QFile::exists(folders.databaseDimostrativo() + QStringLiteral(".nuovo")));
  ASSERT_NE(startButton(window), nullptr);
  EXPECT_TRUE(startButton(window)->isEnabled());
  EXPECT_TRUE(window.findChild<QComboBox*>()->currentText().contains(QStringLiteral("Lessinia"),
                                                                     Qt::CaseInsensitive));
  EXPECT_EQ(window.scelta().azienda, 1);
  EXPECT_EQ(window.scelta().funzione, 247);
}

// A file that is no database.
QString brokenDatabaseIn(const QTemporaryDir& folder) {
  QFile file(folder.filePath(QStringLiteral("rotto.db")));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("nessun database, ma abbastanza lungo da sembrarlo");
  return file.fileName();
}

TEST(Start, ADatabaseThatCannotBeOpenedIsToldAndNothingCanBeStarted) {
  const QTemporaryDir folder;
  const QString broken = brokenDatabaseIn(folder);
  SceltaAvvio choice;
  choice.database = broken;
  FinestraAvvio window(choice, startFoldersIn(folder));
  EXPECT_FALSE(startButton(window)->isEnabled());
  bool told = false;
  for (const auto* label : window.findChildren<QLabel*>())
    told = told || label->text().contains(QStringLiteral("rotto.db"));
  EXPECT_TRUE(told);
}

TEST(Start, RemembersTheChoice) {
  SceltaAvvio choice;
  choice.database = QStringLiteral("/qualche/azienda.db");
  choice.azienda = 3;
  choice.utente = 12;
  choice.funzione = 246;
  choice.ricorda();
  const SceltaAvvio again = SceltaAvvio::ricordata();
  EXPECT_EQ(again.database, choice.database);
  EXPECT_EQ(again.azienda, 3);
  EXPECT_EQ(again.utente, 12);
  EXPECT_EQ(again.funzione, 246);
}

TEST(Start, OffersTheDatabasesOfTheLastStartsThatStillExist) {
  const QTemporaryDir folder;
  QSettings().remove(QStringLiteral("avvio/recenti"));
  const QString first = folder.filePath(QStringLiteral("prima.db"));
  const QString second = folder.filePath(QStringLiteral("seconda.db"));
  for (const QString& file : {first, second}) {
    creaArchivioVuoto(file);
    SceltaAvvio choice;
    choice.database = file;
    choice.ricorda();
  }
  SceltaAvvio gone;
  gone.database = folder.filePath(QStringLiteral("sparita.db"));
  gone.ricorda();
  EXPECT_EQ(databaseRecenti(), QStringList({second, first}));
  FinestraAvvio window({}, startFoldersIn(folder));
  QPushButton* recent = nullptr;
  for (auto* button : window.findChildren<QPushButton*>())
    if (button->text() == QStringLiteral("Rece&nti")) recent = button;
  ASSERT_NE(recent, nullptr);
  EXPECT_TRUE(recent->isEnabled());
  emit recent->menu()->aboutToShow();
  ASSERT_EQ(recent->menu()->actions().size(), 2);
  EXPECT_TRUE(recent->menu()->actions().first()->text().startsWith(QStringLiteral("seconda.db")));
  recent->menu()->actions().at(1)->trigger();
  EXPECT_EQ(window.scelta().database, first);
  QSettings().remove(QStringLiteral("avvio"));
}

TEST(Start, EnterNeverLeavesWhereTheChosenDatabaseCannotBeOpened) {
  const QTemporaryDir folder;
  QSettings().remove(QStringLiteral("avvio/recenti"));
  const QString broken = brokenDatabaseIn(folder);
  SceltaAvvio choice;
  choice.database = broken;
  choice.ricorda();
  FinestraAvvio window({}, startFoldersIn(folder));
  window.show();
  settle();
  ASSERT_EQ(window.focusWidget(), startButton(window));
  for (auto* button : window.findChildren<QPushButton*>()) {
    if (button->text() != QStringLiteral("Rece&nti")) continue;
    emit button->menu()->aboutToShow();
    button->menu()->actions().first()->trigger();
  }
  ASSERT_EQ(window.scelta().database, broken);
  ASSERT_FALSE(startButton(window)->isEnabled());
  ASSERT_NE(window.focusWidget(), nullptr);
  EXPECT_EQ(window.focusWidget()->accessibleName(), QStringLiteral("Sfoglia il database"));
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(window.isVisible());
  QSettings().remove(QStringLiteral("avvio"));
}

TEST(Start, NamesTheFiscalCodeOfACompanyAndTheYearUsedLast) {
  const QTemporaryDir folder;
  const CartelleAvvio folders = startFoldersIn(folder);
  QSettings().remove(QStringLiteral("avvio/anni"));
  EXPECT_EQ(FinestraAvvio({}, folders).findChild<QComboBox*>()->currentText(),
            QStringLiteral("Bottega Lessinia Servizi S.r.l. - 04123450233 - anno 2017"))
      << "the last one with accounts";
  ricordaAnno({}, 1, QStringLiteral("2015"));
  EXPECT_EQ(FinestraAvvio({}, folders).findChild<QComboBox*>()->currentText(),
            QStringLiteral("Bottega Lessinia Servizi S.r.l. - 04123450233 - anno 2015"));
  ricordaAnno(QStringLiteral("/altro.db"), 1, QStringLiteral("2014"));
  EXPECT_EQ(annoRicordato({}, 1), QStringLiteral("2015")) << "of each database its own";
  QSettings().remove(QStringLiteral("avvio"));
}

QCheckBox* formsOf(const FinestraAvvio& window) { return window.findChild<QCheckBox*>(); }

TEST(Start, OffersThePublishedFormsAndChoosesThemForAnArchiveOfItsOwn) {
  const QTemporaryDir folder;
  const CartelleAvvio folders = startFoldersIn(folder);
  QSettings().remove(QStringLiteral("avvio"));
  EXPECT_FALSE(formsOf(FinestraAvvio({}, folders))->isChecked()) << "of the demonstration database";
  SceltaAvvio choice;
  choice.database = folder.filePath(QStringLiteral("mio.db"));
  creaArchivioVuoto(choice.database);
  {
    FinestraAvvio window(choice, folders);
    ASSERT_TRUE(formsOf(window)->isChecked());
    EXPECT_TRUE(window.scelta().moduliPubblicati);
    EXPECT_TRUE(profiloDi(window.scelta(), folders).moduliPubblicati);
    formsOf(window)->click();
    EXPECT_FALSE(profiloDi(window.scelta(), folders).moduliPubblicati);
  }
  EXPECT_FALSE(formsOf(FinestraAvvio(choice, folders))->isChecked()) << "as it was chosen";
  EXPECT_FALSE(formsOf(FinestraAvvio({}, folders))->isChecked());
  QSettings().remove(QStringLiteral("avvio"));
}

TEST(Start, GivesAnEarlierArchiveTheCodesOfThePublishedForms) {
  const QTemporaryDir folder;
  QSettings().remove(QStringLiteral("avvio"));
  FinestraAvvio window({}, startFoldersIn(folder));
  const auto told = [&window] {
    QString all;
    for (const auto* label : window.findChildren<QLabel*>()) all += label->text();
    return all;
  };
  formsOf(window)->click();
  EXPECT_TRUE(told().contains(QStringLiteral("aggiunti all'archivio: 18")));
  formsOf(window)->click();
  formsOf(window)->click();
  EXPECT_FALSE(told().contains(QStringLiteral("aggiunti all'archivio"))) << "only once";
  EXPECT_TRUE(formsOf(window)->isChecked());
  QSettings().remove(QStringLiteral("avvio"));
}

Profilo profileOf(const QString& database, std::int32_t user) {
  Profilo profile;
  profile.database.origine = database.toStdString();
  profile.sessione.utente = user;
  return profile;
}

TEST(SecondStart, IsAnnouncedForTheSameUserAndDatabaseAlone) {
  const QTemporaryDir folder;
  const QString database = folder.filePath(QStringLiteral("una.db"));
  creaArchivioVuoto(database);
  {
    const AvvioUnico first(profileOf(database, 12), folder.path());
    EXPECT_FALSE(first.altro());
    EXPECT_EQ(first.avviso(), QString());
    const AvvioUnico second(profileOf(folder.path() + QStringLiteral("/./una.db"), 12), folder.path());
    EXPECT_TRUE(second.altro()) << "the same file by another path";
    EXPECT_TRUE(second.avviso().contains(QString::number(QCoreApplication::applicationPid())));
    EXPECT_FALSE(AvvioUnico(profileOf(database, 13), folder.path()).altro());
    EXPECT_FALSE(AvvioUnico(profileOf(QStringLiteral("/altra.db"), 12), folder.path()).altro());
  }
  EXPECT_FALSE(AvvioUnico(profileOf(database, 12), folder.path()).altro()) << "the first one has ended";
}

TEST(SecondStart, IsNotAnnouncedAfterAProcessThatEndedWithoutCleaningUp) {
  const QTemporaryDir folder;
  const Profilo profile = profileOf(QStringLiteral("una.db"), 12);
  QString mark;
  QByteArray content;
  {
    const AvvioUnico first(profile, folder.path());
    mark = QDir(folder.path()).entryList({QStringLiteral("*.lock")}).value(0);
    ASSERT_FALSE(mark.isEmpty());
    QFile file(folder.filePath(mark));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    content = file.readAll();
  }
  // No process has this number.
  const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
  ASSERT_TRUE(content.startsWith(own));
  QFile left(folder.filePath(mark));
  ASSERT_TRUE(left.open(QIODevice::WriteOnly));
  left.write("999999999" + content.mid(own.size()));
  left.close();
  EXPECT_FALSE(AvvioUnico(profile, folder.path()).altro());
}

TEST(Start, KeepsTheFolderOfTheMinisterialDocumentsWhereTheEditorsLook) {
  const QTemporaryDir folder;
  const CartelleAvvio folders = startFoldersIn(folder);
  EXPECT_EQ(cartellaMinisteriale(folders), QString());
  salvaCartellaMinisteriale(folders, QStringLiteral("/documenti/ministero"));
  EXPECT_EQ(cartellaMinisteriale(folders), QStringLiteral("/documenti/ministero"));
  QFile file(folders.impostazioni);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray text = file.readAll();
  EXPECT_TRUE(text.contains("MenuSettings")) << text.toStdString();
  EXPECT_TRUE(text.contains("Path")) << text.toStdString();
}

TEST(Start, HandsOverWhatTheLauncherWould) {
  const QTemporaryDir folder;
  SceltaAvvio choice;
  choice.utente = 12;
  choice.funzione = 246;
  const Profilo profile = profiloDi(choice, startFoldersIn(folder));
  EXPECT_EQ(profile.sessione.utente, 12);
  ASSERT_EQ(profile.sessione.processi.size(), 1U);
  EXPECT_EQ(profile.sessione.processi[0].nome, "Wizard stampa");
  EXPECT_EQ(profile.sessione.processi[0].idFunzione, 246);
  EXPECT_EQ(profile.valuta.separatoreDecimale, ",");
}

TEST(Reading, ThePreviewShowsItsPagesAsTextWhereThereIsNoFile) {
  Preview preview;
  preview.title = "Conto individuale";
  preview.pages = {"prima pagina", "seconda pagina"};
  desktop::PreviewDialog dialog(nullptr, preview);
  auto* const text = dialog.findChild<QPlainTextEdit*>();
  EXPECT_EQ(dialog.pages(), 2);
  EXPECT_EQ(text->toPlainText(), QStringLiteral("prima pagina"));
  QTest::keyClick(&dialog, Qt::Key_PageDown);
  EXPECT_EQ(dialog.page(), 1);
  EXPECT_EQ(text->toPlainText(), QStringLiteral("seconda pagina"));
  QTest::keyClick(&dialog, Qt::Key_PageDown);
  EXPECT_EQ(dialog.page(), 1) << "there is no third one";
}

TEST(Reading, TheLinesOfAFileAreShownWhateverTheirEncoding) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("righe.cur"));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("prima\r\nperch\xe9\r\nterza");
  file.close();
  const desktop::FileLines lines(path);
  ASSERT_EQ(lines.rowCount(), 3);
  EXPECT_EQ(lines.data(lines.index(1), Qt::DisplayRole).toString(), QStringLiteral("perché"));
  EXPECT_EQ(lines.data(lines.index(2), Qt::DisplayRole).toString(), QStringLiteral("terza"));
}

TEST(LongWork, TellsWhatAndHowFarInTheFootAndLetsNothingElseIn) {
  Screen screen;
  desktop::Foot& foot = *screen.window().foot();
  QProgressBar& bar = *foot.findChild<QProgressBar*>();
  QString words;
  int percent = 0;
  bool pressedMeanwhile = false;
  screen.form().cmdNav[0].onClick = [&] { pressedMeanwhile = true; };
  screen.form().cmdOpzioni.onClick = [&] {
    screen.frontEnd().setPointer(kPointerHourglass);
    // A click during the work.
    QTest::mouseClick(screen.find<QWidget>("cmdNav(0)"), Qt::LeftButton);
    screen.frontEnd().progress("Prova", 1000, 1000);
    words = foot.words();
    percent = bar.isVisible() ? bar.value() : -1;
    screen.frontEnd().setPointer(kPointerDefault);
  };
  screen.click("cmdOpzioni");
  EXPECT_EQ(words, QStringLiteral("Prova: 1.000 di 1.000"));
  EXPECT_EQ(percent, 100);
  EXPECT_FALSE(pressedMeanwhile);
  EXPECT_EQ(foot.words(), QStringLiteral("Pronto"));
  EXPECT_FALSE(bar.isVisible());
}

}  // namespace
}  // namespace cu::test
