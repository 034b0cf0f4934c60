// The forms for own data in their windows, and the way there from the start window.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "apps/avvio/finestra_avvio.h"
#include "apps/avvio/gestione_aperta.h"
#include "controls/grid.h"
#include "desktop/access_support.h"
#include "desktop/form_window.h"
#include "desktop/screen_support.h"
#include "desktop/selector_view.h"

namespace cu::test {
namespace {

CartelleAvvio cartelleIn(const QTemporaryDir& folder) {
  return {folder.filePath(QStringLiteral("dati")),
          folder.filePath(QStringLiteral("config/impostazioni.toml")),
          folder.filePath(QStringLiteral("documenti"))};
}

QWidget& widget(desktop::FormWindow& window, const char* name) {
  auto* const found = window.findChild<QWidget*>(QString::fromLatin1(name));
  EXPECT_NE(found, nullptr) << name;
  return *found;
}

void scrivi(desktop::FormWindow& window, const char* name, const char* text) {
  auto& line = static_cast<QLineEdit&>(widget(window, name));
  line.setFocus();
  line.selectAll();
  typeText(line, QString::fromUtf8(text));
}

QString testo(desktop::FormWindow& window, const char* name) {
  return static_cast<QLabel&>(widget(window, name)).text();
}

// Runs in the next modal window.
void alProssimo(desktop::QtFrontEnd& schermo, const std::function<void(desktop::FormWindow&)>& atti) {
  const desktop::FormWindow* const sotto = schermo.topmost();
  auto* const attesa = new QTimer(qApp);
  QObject::connect(attesa, &QTimer::timeout, attesa, [&schermo, atti, sotto, attesa] {
    if (schermo.busy() || schermo.topmost() == sotto || schermo.topmost() == nullptr) return;
    attesa->stop();
    attesa->deleteLater();
    schermo.topmost()->activateWindow();
    atti(*schermo.topmost());
  });
  attesa->start(5);
}

class GestioneInFinestra : public ::testing::Test {
 protected:
  GestioneInFinestra() {
    const QString file = folder_.filePath(QStringLiteral("mio.db"));
    creaArchivioVuoto(file);
    SceltaAvvio scelta;
    scelta.database = file;
    gestione_ = std::make_unique<GestioneAperta>(profiloDi(scelta, cartelleIn(folder_)), QString());
  }
  ~GestioneInFinestra() override { settle(); }

  // With the demonstration company.
  void conDati() {
    SceltaAvvio scelta;
    const CartelleAvvio cartelle = cartelleIn(folder_);
    preparaDimostrativo(cartelle);
    scelta.database = cartelle.databaseDimostrativo();
    gestione_ = std::make_unique<GestioneAperta>(profiloDi(scelta, cartelle), QString());
  }
  // Presses the button; `atti` runs in the window that opens, which is then closed.
  void inFinestra(desktop::FormWindow& sotto, const char* pulsante,
                  const std::function<void(desktop::FormWindow&)>& atti) {
    bool fatto = false;
    alProssimo(gestione_->schermo(), [&](desktop::FormWindow& modale) {
      atti(modale);
      fatto = true;
      QTimer::singleShot(20, &modale, [&modale] { modale.form().unload(); });
    });
    QTest::mouseClick(&widget(sotto, pulsante), Qt::LeftButton);
    EXPECT_TRUE(fatto) << pulsante;
  }

  desktop::FormWindow& apri() {
    EXPECT_TRUE(gestione_->apri());
    desktop::FormWindow& finestra = *gestione_->schermo().topmost();
    finestra.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&finestra));
    return finestra;
  }

  QTemporaryDir folder_;
  std::unique_ptr<GestioneAperta> gestione_;
};

TEST_F(GestioneInFinestra, AnEmptyArchiveBeginsAtTheButtonForANewCompany) {
  desktop::FormWindow& finestra = apri();
  EXPECT_EQ(finestra.windowTitle(), QStringLiteral("Dati propri"));
  EXPECT_TRUE(widget(finestra, "cmdNuova").hasFocus());
  EXPECT_FALSE(widget(finestra, "cmdPercipienti").isEnabled());
  EXPECT_GE(finestra.width(), 800);
}

TEST_F(GestioneInFinestra, TheFiscalCodeIsReadWhileItIsTyped) {
  desktop::FormWindow& finestra = apri();
  bool fatto = false;
  alProssimo(gestione_->schermo(), [&](desktop::FormWindow& modale) {
    scrivi(modale, "txtCodiceFiscale", "1234567001");
    EXPECT_EQ(testo(modale, "lblCodiceFiscale"), QStringLiteral("Codice di una ditta: manca un carattere."));
    scrivi(modale, "txtCodiceFiscale", "12345670017");
    EXPECT_EQ(testo(modale, "lblCodiceFiscale"), QStringLiteral("Codice di una ditta o di un ente."));
    EXPECT_TRUE(modale.form().unsavedWork() != "");
    fatto = true;
    QTimer::singleShot(20, &modale, [&modale] { modale.form().unload(); });
  });
  QTest::mouseClick(&widget(finestra, "cmdNuova"), Qt::LeftButton);
  EXPECT_TRUE(fatto);
  EXPECT_EQ(gestione_->schermo().topmost(), &finestra);
}

TEST_F(GestioneInFinestra, ThePlaceOfTheSentenceOnTheCodeIsThereBeforeTheCodeIs) {
  desktop::FormWindow& finestra = apri();
  bool fatto = false;
  alProssimo(gestione_->schermo(), [&](desktop::FormWindow& modale) {
    const int prima = widget(modale, "txtIndirizzo").mapTo(&modale, QPoint()).y();
    scrivi(modale, "txtCodiceFiscale", "12345670017");
    QTest::qWait(30);
    EXPECT_EQ(widget(modale, "txtIndirizzo").mapTo(&modale, QPoint()).y(), prima);
    fatto = true;
    QTimer::singleShot(20, &modale, [&modale] { modale.form().unload(); });
  });
  QTest::mouseClick(&widget(finestra, "cmdNuova"), Qt::LeftButton);
  EXPECT_TRUE(fatto);
}

TEST_F(GestioneInFinestra, TheCloseBoxAsksBeforeACodeThatIsHalfTypedIsLost) {
  desktop::FormWindow& finestra = apri();
  QString chiesto;
  alProssimo(gestione_->schermo(), [&](desktop::FormWindow& modale) {
    auto& scelta = static_cast<desktop::SelectorView&>(*modale.view(*modale.form().find("KrnCDCarica")));
    scelta.codeBox()->setFocus();
    scelta.codeBox()->selectAll();
    typeText(*scelta.codeBox(), QStringLiteral("99"));
    QTimer::singleShot(20, [&chiesto] {
      auto* const domanda = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (domanda == nullptr) return;
      chiesto = domanda->text();
      domanda->reject();
    });
    modale.close();
    QTimer::singleShot(20, &modale, [&modale] { modale.form().unload(); });
  });
  QTest::mouseClick(&widget(finestra, "cmdNuova"), Qt::LeftButton);
  EXPECT_EQ(chiesto, QStringLiteral("Quello che è stato scritto non è ancora registrato."));
}

TEST_F(GestioneInFinestra, ClosingTheListEndsTheForms) {
  desktop::FormWindow& finestra = apri();
  bool chiuse = false;
  gestione_->schermo().onAllClosed = [&] { chiuse = true; };
  QTest::mouseClick(&widget(finestra, "cmdChiudi"), Qt::LeftButton);
  EXPECT_TRUE(chiuse);
  EXPECT_FALSE(gestione_->schermo().anyOpen());
}

TEST_F(GestioneInFinestra, TheArrowsMoveInAListOfPayeesAndEnterOpensTheRow) {
  conDati();
  inFinestra(apri(), "cmdPercipienti", [&](desktop::FormWindow& elenco) {
    auto& tabella = static_cast<QTableView&>(widget(elenco, "grdPercipienti"));
    tabella.setFocus();
    QTest::keyClick(&tabella, Qt::Key_Down);
    const auto& griglia = static_cast<Grid&>(*elenco.form().find("grdPercipienti"));
    EXPECT_EQ(griglia.row(), 2U);
    const QString codice = QString::fromStdString(griglia.rows()->Get("Codice").toText());
    alProssimo(gestione_->schermo(), [&](desktop::FormWindow& scheda) {
      EXPECT_EQ(static_cast<QLineEdit&>(widget(scheda, "txtCodice")).text(), codice);
      QTimer::singleShot(20, &scheda, [&scheda] { scheda.form().unload(); });
    });
    QTest::keyClick(&tabella, Qt::Key_Return);
  });
}

TEST_F(GestioneInFinestra, EveryFieldHasANameAndNoTextIsCut) {
  conDati();
  const auto guarda = [](const desktop::FormWindow& finestra) {
    EXPECT_EQ(nameless(finestra), "") << finestra.form().name();
    EXPECT_EQ(cutTexts(finestra), "") << finestra.form().name();
  };
  desktop::FormWindow& prima = apri();
  guarda(prima);
  inFinestra(prima, "cmdModifica", guarda);
  inFinestra(prima, "cmdPercipienti", [&](desktop::FormWindow& elenco) {
    guarda(elenco);
    inFinestra(elenco, "cmdNuovo", guarda);
  });
  inFinestra(prima, "cmdCompensi", [&](desktop::FormWindow& elenco) {
    guarda(elenco);
    inFinestra(elenco, "cmdModifica", guarda);
  });
}

TEST(NuovoArchivio, IsWholeAndReplacesNothing) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("mio.db"));
  creaArchivioVuoto(file);
  Profilo::Database written;
  written.origine = file.toStdString();
  EXPECT_TRUE(aziendeDi(written).empty());
  EXPECT_FALSE(QFile::exists(file + QStringLiteral(".nuovo")));
  EXPECT_THROW(creaArchivioVuoto(file), Error);
  EXPECT_THROW(creaArchivioVuoto(folder.filePath(QStringLiteral("non/esiste/mio.db"))), std::exception);
}

TEST(StartWindow, OffersOwnDataOfADatabaseThatOpens) {
  const QTemporaryDir folder;
  SceltaAvvio scelta;
  scelta.database = folder.filePath(QStringLiteral("mio.db"));
  creaArchivioVuoto(scelta.database);
  FinestraAvvio finestra(scelta, cartelleIn(folder));
  QAction* gestisci = nullptr;
  for (QPushButton* const pulsante : finestra.findChildren<QPushButton*>()) {
    if (pulsante->text() != QStringLiteral("Dati &propri")) continue;
    for (QAction* const voce : pulsante->menu()->actions()) {
      if (voce->text().contains(QStringLiteral("Aziende"))) gestisci = voce;
    }
  }
  ASSERT_NE(gestisci, nullptr);
  EXPECT_TRUE(gestisci->isEnabled());
  finestra.show();
  gestisci->trigger();
  EXPECT_FALSE(finestra.isVisible());
  desktop::FormWindow* dati = nullptr;
  for (QWidget* const aperta : QApplication::topLevelWidgets()) {
    if (aperta->isVisible() && aperta->objectName() == QStringLiteral("frmArchivi")) {
      dati = static_cast<desktop::FormWindow*>(aperta);
    }
  }
  ASSERT_NE(dati, nullptr);
  QTest::mouseClick(&widget(*dati, "cmdChiudi"), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&] { return finestra.isVisible(); }));
}

}  // namespace
}  // namespace cu::test
