// The first start without a profile: what it explains, a database on a server, a profile saved from there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "apps/avvio/dialogo_server.h"
#include "apps/avvio/finestra_avvio.h"
#include "apps/avvio/password_finestra.h"
#include "apps/comune/password.h"
#include "desktop/about.h"
#include "desktop/screen_support.h"
#include "suite/testo_profilo.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

CartelleAvvio firstFoldersIn(const QTemporaryDir& folder) {
  return {folder.filePath(QStringLiteral("dati")),
          folder.filePath(QStringLiteral("config/impostazioni.toml")),
          folder.filePath(QStringLiteral("documenti"))};
}

QPushButton* buttonOf(const QWidget& window, const char* caption) {
  for (auto* button : window.findChildren<QPushButton*>()) {
    if (button->text().remove(u'&') == QString::fromUtf8(caption)) return button;
  }
  return nullptr;
}

std::string wordsOf(const QWidget& window) {
  std::string words;
  for (const auto* label : window.findChildren<QLabel*>()) words += label->text().toStdString() + '\n';
  return words;
}

class FirstStart : public ::testing::Test {
 protected:
  FirstStart() { QSettings().remove(QStringLiteral("avvio")); }
  ~FirstStart() override { QSettings().remove(QStringLiteral("avvio")); }
  const QTemporaryDir folder;
  const CartelleAvvio folders = firstFoldersIn(folder);
};

TEST_F(FirstStart, ExplainsItselfUntilSomethingWasStarted) {
  {
    const FinestraAvvio window({}, folders);
    EXPECT_THAT(wordsOf(window),
                AllOf(HasSubstr("Per provare"), HasSubstr("propri dati"), HasSubstr("server")));
    EXPECT_NE(buttonOf(window, "Nuovo archivio…"), nullptr);
  }
  SceltaAvvio().ricorda();
  const FinestraAvvio window({}, folders);
  EXPECT_THAT(wordsOf(window), Not(HasSubstr("Per provare")));
  EXPECT_EQ(buttonOf(window, "Nuovo archivio…"), nullptr);
  EXPECT_NE(buttonOf(window, "Collega server..."), nullptr);
}

// Half of a small screen: with the factor 2 there is no more.
TEST_F(FirstStart, FitsASmallScreenWithoutCuttingItsWidth) {
  FinestraAvvio window({}, folders);
  window.resize(500, 280);
  window.show();
  QApplication::processEvents();
  window.resize(500, 280);
  QApplication::processEvents();
  EXPECT_EQ(window.size(), QSize(500, 280));
  const QPushButton* const start = buttonOf(window, "Avvia");
  EXPECT_TRUE(window.rect().contains(QRect(start->mapTo(&window, QPoint()), start->size())));
  for (const auto* button : window.findChildren<QPushButton*>()) {
    const int right = button->mapTo(&window, QPoint(button->width(), 0)).x();
    EXPECT_LE(right, window.width()) << button->text().toStdString();
  }
}

TEST_F(FirstStart, SavesAProfileForItsOwnerAloneThatSaysWhatTheStartWould) {
  SceltaAvvio choice;
  choice.utente = 12;
  choice.funzione = 246;
  const QString file = folder.filePath(QStringLiteral("mio profilo.toml"));
  salvaProfilo(choice, folders, file);
  EXPECT_EQ(QFile::permissions(file) &
                (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
            QFile::Permissions());
  const Profilo saved = leggiProfilo(file.toStdString());
  const Profilo started = profiloDi(choice, folders);
  EXPECT_EQ(saved.sessione.utente, 12);
  EXPECT_EQ(saved.sessione.azienda, started.sessione.azienda);
  EXPECT_EQ(saved.sessione.titolo, started.sessione.titolo);
  EXPECT_EQ(saved.sessione.processi.at(0).idFunzione, 246);
  EXPECT_EQ(saved.database.origine, started.database.origine);
  EXPECT_EQ(saved.documenti, started.documenti);
  EXPECT_EQ(saved.impostazioni, started.impostazioni);
  // A file that others could read becomes the owner's as well.
  ASSERT_TRUE(QFile::setPermissions(
      file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
  salvaProfilo(choice, folders, file);
  EXPECT_FALSE(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther));
  EXPECT_THROW(salvaProfilo(choice, folders, folder.filePath(QStringLiteral("manca/p.toml"))),
               std::exception);
}

TEST_F(FirstStart, ASavedProfileOfAServerHasNoPassword) {
  SceltaAvvio choice;
  choice.server = {QStringLiteral("Driver=FreeTDS;Server=srv;Database=Suite;UID=cu;"), true};
  tieniPassword(choice.server.testo.toStdString(), "segretissima");
  const QString file = folder.filePath(QStringLiteral("p.toml"));
  salvaProfilo(choice, folders, file);
  choice.ricorda();
  dimenticaPassword(choice.server.testo.toStdString());
  QFile saved(file);
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  EXPECT_THAT(saved.readAll().toStdString(), AllOf(HasSubstr("Server=srv"), Not(HasSubstr("segretissima"))));
  EXPECT_EQ(leggiProfilo(file.toStdString()).database.motore, Profilo::Motore::Odbc);
  QSettings settings;
  settings.sync();
  QFile kept(settings.fileName());
  ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
  EXPECT_THAT(kept.readAll().toStdString(), AllOf(HasSubstr("srv"), Not(HasSubstr("segretissima"))));
}

TEST_F(FirstStart, ARememberedServerIsShownAndWaitsForItsPassword) {
  SceltaAvvio choice;
  choice.server = {QStringLiteral("Driver=FreeTDS;Server=srv;Database=Suite;UID=cu;"), false};
  choice.ricorda();
  EXPECT_EQ(SceltaAvvio::ricordata().server.testo, choice.server.testo);
  EXPECT_FALSE(SceltaAvvio::ricordata().server.cifrata);
  EXPECT_EQ(databaseRecenti(), QStringList(kRecenteServer + choice.server.testo));
  const FinestraAvvio window(SceltaAvvio::ricordata(), folders);
  EXPECT_FALSE(buttonOf(window, "Avvia")->isEnabled());
  EXPECT_FALSE(buttonOf(window, "Salva come profilo…")->isEnabled());
  EXPECT_THAT(wordsOf(window), HasSubstr("Collega server..."));
  EXPECT_EQ(window.scelta().server.testo, choice.server.testo);
  bool named = false;
  for (const auto* line : window.findChildren<QLineEdit*>())
    named = named || line->text() == QStringLiteral("srv, database Suite, utente cu");
  EXPECT_TRUE(named);
}

QLineEdit& fieldOf(const QDialog& dialog, const char* caption) {
  for (const auto* label : dialog.findChildren<QLabel*>()) {
    if (label->text().remove(u'&') == QString::fromUtf8(caption))
      return dynamic_cast<QLineEdit&>(*label->buddy());
  }
  throw std::runtime_error(caption);
}

TEST_F(FirstStart, AServersAddressIsComposedForItsDriver) {
  DialogoServer dialog({}, nullptr);
  fieldOf(dialog, "Server").setText(QStringLiteral("srv"));
  fieldOf(dialog, "Database").setText(QStringLiteral("La suite"));
  fieldOf(dialog, "Utente").setText(QStringLiteral("cu;PWD=x"));
  EXPECT_EQ(dialog.scritto().testo,
            QStringLiteral("Driver=FreeTDS;Server=srv;Database={La suite};UID={cu;PWD=x};"));
  EXPECT_TRUE(dialog.scritto().cifrata);
  fieldOf(dialog, "Porta").setText(QStringLiteral("1444"));
  EXPECT_THAT(dialog.scritto().testo.toStdString(), HasSubstr("Server=srv;Port=1444;"));
  dialog.findChild<QComboBox*>()->setEditText(QStringLiteral("ODBC Driver 18 for SQL Server"));
  EXPECT_THAT(dialog.scritto().testo.toStdString(), HasSubstr("Server=tcp:srv,1444;"));
  const DialogoServer again(dialog.scritto(), nullptr);
  EXPECT_EQ(again.scritto().testo, dialog.scritto().testo);
  EXPECT_EQ(fieldOf(again, "Password").text(), QString());
  EXPECT_EQ(fieldOf(again, "Password").echoMode(), QLineEdit::Password);
  for (auto* box : dialog.findChildren<QCheckBox*>()) box->toggle();
  EXPECT_THAT(dialog.scritto().testo.toStdString(),
              AllOf(HasSubstr("Trusted_Connection=yes"), Not(HasSubstr("UID"))));
  EXPECT_FALSE(dialog.scritto().cifrata);
  EXPECT_FALSE(fieldOf(dialog, "Password").isEnabled());
}

TEST_F(FirstStart, AServerThatDoesNotAnswerIsSaidInTheDialogAndNothingIsKept) {
  DialogoServer dialog({}, nullptr);
  QPushButton& connect = *buttonOf(dialog, "Collega");
  connect.click();
  EXPECT_THAT(wordsOf(dialog), HasSubstr("Manca il server."));
  fieldOf(dialog, "Server").setText(QStringLiteral("127.0.0.1"));
  fieldOf(dialog, "Porta").setText(QStringLiteral("1"));
  connect.click();
  EXPECT_THAT(wordsOf(dialog), HasSubstr("Manca il nome del database."));
  fieldOf(dialog, "Database").setText(QStringLiteral("Suite"));
  connect.click();
  EXPECT_THAT(wordsOf(dialog), HasSubstr("Manca l'utente."));
  fieldOf(dialog, "Utente").setText(QStringLiteral("cu"));
  fieldOf(dialog, "Password").setText(QStringLiteral("segretissima"));
  connect.click();
  EXPECT_EQ(dialog.result(), 0);
  EXPECT_TRUE(dialog.isEnabled());
  EXPECT_THAT(wordsOf(dialog),
              AllOf(Not(HasSubstr("Collegamento in corso")), Not(HasSubstr("segretissima"))));
  EXPECT_FALSE(passwordTenuta(dialog.scritto().testo.toStdString()));
}

TEST_F(FirstStart, AGivenPasswordServesTheConnectionsOfTheSameAddress) {
  chiediPasswordInFinestra();
  Profilo::Database database;
  database.motore = Profilo::Motore::Odbc;
  database.origine = "Driver=x;Server=y;UID=z;";
  tieniPassword(database.origine, "data");
  EXPECT_EQ(passwordDi(database), "data");
  qputenv("CU_PROVA_PASSWORD", "variabile");
  database.variabilePassword = "CU_PROVA_PASSWORD";
  EXPECT_EQ(passwordDi(database), "variabile");
  qunsetenv("CU_PROVA_PASSWORD");
  dimenticaPassword(database.origine);
  usaFontePassword({});
}

TEST(About, SaysTheVersionAndWhereTheDataAreAndCanBeCopied) {
  const QTemporaryDir folder;
  const CartelleAvvio folders = firstFoldersIn(folder);
  const QString text = testoInformazioni("cuwizard 9.9 del 2026-01-01\nDatabase: x", folders, nullptr);
  EXPECT_TRUE(text.startsWith(QStringLiteral("cuwizard 9.9 del 2026-01-01\n")));
  EXPECT_TRUE(text.contains(folders.databaseDimostrativo()));
  EXPECT_TRUE(text.contains(folders.impostazioni));
  Profilo profile;
  profile.file = "/da/profilo.toml";
  profile.database.motore = Profilo::Motore::Odbc;
  profile.database.origine = "Driver=x;Server=srv;Database=Suite;UID=cu";
  EXPECT_THAT(testoInformazioni("v", folders, &profile).toStdString(),
              AllOf(HasSubstr("/da/profilo.toml"), HasSubstr("srv, database Suite, utente cu")));

  desktop::setAbout([text] { return text; });
  QWidget window;
  QMenuBar bar(&window);
  desktop::addAboutMenu(bar);
  ASSERT_EQ(bar.actions().size(), 1);
  bar.actions().first()->menu()->actions().first()->trigger();
  auto* const dialog = window.findChild<QDialog*>();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->findChild<QPlainTextEdit*>()->toPlainText(), text);
  EXPECT_TRUE(dialog->findChild<QPlainTextEdit*>()->isReadOnly());
  buttonOf(*dialog, "Copia")->click();
  EXPECT_EQ(QApplication::clipboard()->text(), text);
  buttonOf(*dialog, "Chiudi")->click();
  desktop::setAbout({});
  QMenuBar without;
  desktop::addAboutMenu(without);
  EXPECT_TRUE(without.actions().isEmpty());
}

}  // namespace
}  // namespace cu::test
