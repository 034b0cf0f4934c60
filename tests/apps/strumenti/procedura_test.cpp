// The wizard in its window from its start to its end, and a copy put back in between.

#include "apps/avvio/procedura.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <deque>

#include "apps/comune/copia_sicurezza.h"
#include "apps/strumenti/dialogo_lavoro.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/strumenti.h"
#include "azienda_support.h"
#include "desktop/form_window.h"
#include "desktop/qt_front_end.h"
#include "support/held_locks.h"

namespace cu::strumenti {
namespace {

using ::testing::HasSubstr;

class ProceduraInFinestra : public ::testing::Test {
 protected:
  ProceduraInFinestra() {
    QSettings().remove(QStringLiteral("copie"));
    azienda_.profilo.sessione.processi = {{"Wizard stampa", 247}};
    copiaDatabase(azienda_.profilo.database, copia(), false);
    azienda_.esegui("UPDATE Anagrafica SET Telefono = 'DOPO LA COPIA'");
  }
  ~ProceduraInFinestra() override { QSettings().remove(QStringLiteral("copie")); }
  std::string copia() const { return azienda_.cartella / "copia.db"; }
  std::int64_t dopoLaCopia() const {
    RowStore righe;
    apriConnessione(azienda_.profilo.database)
        ->Query("SELECT COUNT(*) FROM Anagrafica WHERE Telefono = 'DOPO LA COPIA'", righe);
    CellView quanti;
    righe.read(0, &quanti);
    return quanti.integer();
  }

  // What the user does, in this order, each as soon as the wizard's window or a dialog is in front.
  void nellaFinestra(std::function<void(desktop::FormWindow& finestra)> fa) {
    passi_.emplace_back([fa = std::move(fa)] {
      if (QApplication::activeModalWidget() != nullptr) return false;
      for (QWidget* una : QApplication::topLevelWidgets()) {
        auto* const finestra = dynamic_cast<desktop::FormWindow*>(una);
        if (finestra == nullptr || !finestra->isVisible() || finestra->frontEnd().busy()) continue;
        // What it opens waits for the next step.
        QTimer::singleShot(0, finestra, [fa, finestra] { fa(*finestra); });
        return true;
      }
      return false;
    });
  }
  template <class Dialogo>
  void nelDialogo(std::function<bool(Dialogo& dialogo)> fa) {
    passi_.emplace_back([fa = std::move(fa)] {
      auto* const dialogo = dynamic_cast<Dialogo*>(QApplication::activeModalWidget());
      return dialogo != nullptr && dialogo->isVisible() && fa(*dialogo);
    });
  }
  void chiediRipristino(const std::string& file) {
    nellaFinestra([this](desktop::FormWindow& finestra) {
      finestre_.push_back(&finestra);
      for (const QAction* menu : finestra.findChild<QMenuBar*>()->actions()) {
        if (menu->text().remove(u'&') == QStringLiteral("Strumenti")) menu->menu()->actions()[1]->trigger();
      }
    });
    nelDialogo<QFileDialog>([file](QFileDialog& dialogo) {
      dialogo.findChild<QLineEdit*>()->setText(qs(file));
      return QMetaObject::invokeMethod(&dialogo, "accept", Qt::QueuedConnection);
    });
  }
  void rispondi(const char* testo) {
    nelDialogo<QMessageBox>([this, testo](QMessageBox& domanda) {
      domande_ += domanda.text().toStdString() + '\n' + domanda.informativeText().toStdString() + '\n';
      return test::premi(domanda, testo);
    });
  }
  void leggiEChiudi() {
    nelDialogo<DialogoLavoro>([this](DialogoLavoro& dialogo) {
      if (dialogo.inCorso()) return false;
      detto_ = dialogo.testo().toStdString();
      occupato_ = test::holdsLock(azienda_.profilo.database.origine);
      return test::premi(dialogo, "Chiudi");
    });
  }
  // The copy is wanted and has been put in place, or not; then the wizard, started again, is closed.
  void ripristinaEChiudi() {
    chiediRipristino(copia());
    rispondi("Ripristina");
    leggiEChiudi();
    chiudiFinestra();
  }
  void chiudiFinestra() {
    nellaFinestra([this](desktop::FormWindow& finestra) {
      finestre_.push_back(&finestra);
      finestra.close();
    });
  }
  int esegui() {
    QTimer orologio;
    QObject::connect(&orologio, &QTimer::timeout, [this] {
      if (!passi_.empty() && passi_.front()()) passi_.pop_front();
    });
    constexpr int kOgni = 20;
    orologio.start(kOgni);
    return eseguiProcedura(azienda_.profilo, {});
  }

  test::Azienda azienda_;
  std::deque<std::function<bool()>> passi_;
  std::vector<QPointer<desktop::FormWindow>> finestre_;
  std::string domande_;
  std::string detto_;
  bool occupato_ = true;
};

TEST_F(ProceduraInFinestra, ACopyTakesThePlaceWhileNothingIsOpenAndTheWizardStartsAgain) {
  ASSERT_GT(dopoLaCopia(), 0);
  ripristinaEChiudi();
  EXPECT_EQ(esegui(), 0);
  EXPECT_TRUE(passi_.empty());
  EXPECT_THAT(domande_, HasSubstr("torna com'era nella copia «copia.db»"));
  EXPECT_THAT(domande_, HasSubstr("la finestra si chiude; poi si riapre dal primo passo"));
  EXPECT_THAT(detto_, HasSubstr("Quello di prima è qui: "));
  EXPECT_FALSE(occupato_);
  EXPECT_EQ(dopoLaCopia(), 0);
  ASSERT_EQ(finestre_.size(), 2U);
  EXPECT_TRUE(finestre_.front().isNull()) << "the first window is gone";
}

// Somebody else has the database open.
TEST_F(ProceduraInFinestra, ACopyThatCannotTakeThePlaceIsToldAndTheWizardStartsAgain) {
  const auto altra = apriConnessione(azienda_.profilo.database);
  const std::int64_t prima = dopoLaCopia();
  ripristinaEChiudi();
  EXPECT_EQ(esegui(), 0);
  EXPECT_TRUE(passi_.empty());
  EXPECT_THAT(detto_, HasSubstr("è aperto in un'altra finestra"));
  EXPECT_EQ(dopoLaCopia(), prima);
  EXPECT_EQ(finestre_.size(), 2U);
}

TEST_F(ProceduraInFinestra, ARefusalAndAFileThatIsNoCopyLeaveTheWindowOpen) {
  chiediRipristino(copia());
  rispondi("Annulla");
  chiediRipristino(test::scritto(azienda_.cartella / "lettera.txt", std::string(4096, 'x')));
  rispondi("OK");
  chiudiFinestra();
  EXPECT_EQ(esegui(), 0);
  EXPECT_TRUE(passi_.empty());
  EXPECT_THAT(domande_, HasSubstr("lettera.txt» non è un database."));
  EXPECT_EQ(detto_, "");
  EXPECT_GT(dopoLaCopia(), 0);
  ASSERT_EQ(finestre_.size(), 3U);
  EXPECT_TRUE(finestre_[0] == finestre_[1] && finestre_[1] == finestre_[2]);
}

// The window asks before it loses a correction.
TEST_F(ProceduraInFinestra, CorrectionsThatAreNotStoredYetAreAskedAbout) {
  nellaFinestra([](desktop::FormWindow& finestra) {
    const auto suo = [&](const char* nome) {
      return finestra.findChild<QWidget*>(QString::fromLatin1(nome));
    };
    constexpr QPoint kSegno(8, 8);
    QTest::mouseClick(suo("optstType(1)"), Qt::LeftButton, {}, kSegno);
    auto* const anni = finestra.findChild<QComboBox*>(QStringLiteral("KRNCboEsCont(0)"));
    anni->setCurrentIndex(anni->findText(QStringLiteral("2016")));
    emit anni->activated(anni->currentIndex());
    QTest::mouseClick(suo("cmdNav(3)"), Qt::LeftButton);
    suo("grdCompensi")->setFocus();
    QTest::keyClick(finestra.windowHandle(), Qt::Key_Return);
  });
  nelDialogo<desktop::FormWindow>([](desktop::FormWindow& editor) {
    auto* const casella = editor.findChild<QLineEdit*>(QStringLiteral("curField(19)"));
    if (casella == nullptr || editor.frontEnd().busy()) return false;
    casella->setFocus();
    casella->selectAll();
    QTest::keyClicks(casella, QStringLiteral("1000,50"));
    QTest::mouseClick(editor.findChild<QWidget*>(QStringLiteral("cmdOk")), Qt::LeftButton);
    return true;
  });
  chiediRipristino(copia());
  rispondi("Ripristina");
  rispondi("Resta");
  chiediRipristino(copia());
  rispondi("Ripristina");
  rispondi("Chiudi senza memorizzare");
  leggiEChiudi();
  chiudiFinestra();
  EXPECT_EQ(esegui(), 0);
  EXPECT_TRUE(passi_.empty());
  EXPECT_THAT(domande_, HasSubstr("Un compenso corretto non è ancora stato memorizzato nei conti."));
  EXPECT_EQ(dopoLaCopia(), 0);
  ASSERT_EQ(finestre_.size(), 3U);
  EXPECT_TRUE(finestre_[0] == finestre_[1]);
}

// The windows for telematic files do not belong to the wizard.
TEST_F(ProceduraInFinestra, OtherWindowsStayOpen) {
  const std::string file = azienda_.scrivi(2017);
  ASSERT_NE(file, "");
  nellaFinestra([&](desktop::FormWindow&) { apriFile(qs(file), azienda_.profilo); });
  ripristinaEChiudi();
  passi_.emplace_back([] {
    for (QWidget* una : QApplication::topLevelWidgets()) {
      if (dynamic_cast<Finestra*>(una) != nullptr && una->isVisible()) return una->close();
    }
    return false;
  });
  EXPECT_EQ(esegui(), 0);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  EXPECT_TRUE(passi_.empty());
  EXPECT_THAT(detto_, HasSubstr("Quello di prima è qui: "));
}

}  // namespace
}  // namespace cu::strumenti
