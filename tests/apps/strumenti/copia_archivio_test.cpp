// Copies of a database in windows.

#include "apps/strumenti/copia_archivio.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTimer>

#include "apps/avvio/finestra_avvio.h"
#include "apps/strumenti/dialogo_lavoro.h"
#include "azienda_support.h"
#include "data/recordset.h"

namespace cu::strumenti {
namespace {

using ::testing::HasSubstr;

class CopiaInFinestra : public ::testing::Test {
 protected:
  CopiaInFinestra() { QSettings().remove(QStringLiteral("copie")); }
  ~CopiaInFinestra() override { QSettings().remove(QStringLiteral("copie")); }
  std::string copia() const { return azienda_.cartella / "copia.db"; }
  std::int64_t pagamenti() const {
    Recordset righe;
    const auto connessione = apriConnessione(azienda_.profilo.database);
    righe.Open(*connessione, "SELECT COUNT(*) FROM Compenso");
    return righe.Get(0).integer();
  }
  // Reads the dialog of a work once it has ended, and closes it.
  void leggiEChiudi() {
    QTimer::singleShot(20, [this] {
      auto* const dialogo = dynamic_cast<DialogoLavoro*>(QApplication::activeModalWidget());
      if (dialogo == nullptr || dialogo->inCorso()) return leggiEChiudi();
      detto_ = dialogo->testo().toStdString();
      dialogo->findChild<QPushButton*>(QStringLiteral("chiudi"))->click();
    });
  }
  // Answers a question with the button of that caption.
  void rispondi(const char* testo) {
    QTimer::singleShot(20, [this, testo] {
      auto* const domanda = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (domanda == nullptr) return rispondi(testo);
      domanda_ = domanda->text().toStdString();
      for (QAbstractButton* uno : domanda->buttons()) {
        if (uno->text().remove(u'&') == QString::fromUtf8(testo)) return uno->click();
      }
    });
  }

  bool ripristinaDa(const std::string& file) {
    const auto scelto = chiediRipristinoDa(nullptr, azienda_.profilo.database, qs(file));
    return scelto && ripristina(nullptr, azienda_.profilo.database, *scelto);
  }

  test::Azienda azienda_;
  std::string detto_;
  std::string domanda_;
};

TEST_F(CopiaInFinestra, ACopyIsMadeAndTold) {
  EXPECT_EQ(dettaUltimaCopia(azienda_.profilo.database), QString());
  leggiEChiudi();
  EXPECT_TRUE(copiaIn(nullptr, azienda_.profilo.database, qs(copia())));
  EXPECT_THAT(detto_, HasSubstr("✓ Copia fatta e controllata: " + copia()));
  EXPECT_TRUE(std::filesystem::exists(copia()));
  EXPECT_TRUE(dettaUltimaCopia(azienda_.profilo.database).startsWith(QStringLiteral("oggi alle ")));
}

TEST_F(CopiaInFinestra, ACopyThatFailsSaysWhyAndIsNotRemembered) {
  leggiEChiudi();
  EXPECT_FALSE(copiaIn(nullptr, azienda_.profilo.database, qs(azienda_.cartella / "manca/copia.db")));
  EXPECT_THAT(detto_, HasSubstr("manca» non esiste."));
  EXPECT_EQ(dettaUltimaCopia(azienda_.profilo.database), QString());
}

TEST_F(CopiaInFinestra, ACopyComesBackAfterAQuestion) {
  const std::int64_t prima = pagamenti();
  leggiEChiudi();
  ASSERT_TRUE(copiaIn(nullptr, azienda_.profilo.database, qs(copia())));
  azienda_.esegui("DELETE FROM Compenso");
  rispondi("Annulla");
  EXPECT_FALSE(ripristinaDa(copia()));
  EXPECT_THAT(domanda_, HasSubstr("torna com'era nella copia «copia.db»"));
  EXPECT_THAT(domanda_, HasSubstr("demo-prima-del-ripristino-"));
  EXPECT_EQ(pagamenti(), 0);
  rispondi("Ripristina");
  leggiEChiudi();
  EXPECT_TRUE(ripristinaDa(copia()));
  EXPECT_THAT(detto_, HasSubstr("Quello di prima è qui: "));
  EXPECT_EQ(pagamenti(), prima);
}

TEST_F(CopiaInFinestra, ADatabaseInUseIsNotReplaced) {
  leggiEChiudi();
  ASSERT_TRUE(copiaIn(nullptr, azienda_.profilo.database, qs(copia())));
  const auto aperta = apriConnessione(azienda_.profilo.database);
  rispondi("Ripristina");
  leggiEChiudi();
  EXPECT_FALSE(ripristinaDa(copia()));
  EXPECT_THAT(detto_, HasSubstr("è aperto in un'altra finestra"));
}

TEST_F(CopiaInFinestra, WhatCannotBeACopyIsRefusedBeforeTheQuestion) {
  const std::string lettera = test::scritto(azienda_.cartella / "lettera.txt", std::string(4096, 'x'));
  rispondi("OK");
  EXPECT_FALSE(ripristinaDa(lettera));
  EXPECT_THAT(domanda_, HasSubstr("lettera.txt» non è un database."));
  rispondi("OK");
  EXPECT_FALSE(ripristinaDa(azienda_.profilo.database.origine));
  EXPECT_THAT(domanda_, HasSubstr("è il database stesso"));
  EXPECT_GT(pagamenti(), 0);
}

// Esc ends the work; what it leaves is told before the dialog closes.
TEST_F(CopiaInFinestra, AWorkIsInterruptedByItsButton) {
  DialogoLavoro dialogo(nullptr, QStringLiteral("prova"), QStringLiteral("Prova"),
                        {.che = QStringLiteral("Attende…"),
                         .fai = [](Lavoro& lavoro) -> QString {
                           for (;;) {
                             lavoro.avanza("Attende", 0, 0);
                             QThread::msleep(2);
                           }
                         },
                         .interrotto = QStringLiteral("Non è rimasto nulla.")});
  dialogo.show();
  EXPECT_TRUE(dialogo.inCorso());
  dialogo.reject();
  EXPECT_TRUE(dialogo.isVisible());
  EXPECT_TRUE(test::aspetta([&] { return !dialogo.inCorso(); }));
  EXPECT_EQ(dialogo.testo(), QStringLiteral("Non è rimasto nulla."));
  EXPECT_FALSE(dialogo.riuscito());
  dialogo.reject();
  EXPECT_FALSE(dialogo.isVisible());
}

TEST_F(CopiaInFinestra, TheOfferSaysWhenTheLastOneWasMade) {
  RigaCopia riga(nullptr, azienda_.profilo.database);
  riga.show();
  const auto* const frase = riga.findChild<QLabel*>();
  EXPECT_TRUE(frase->text().contains(QStringLiteral("non è ancora stata fatta")));
  leggiEChiudi();
  ASSERT_TRUE(copiaIn(nullptr, azienda_.profilo.database, qs(copia())));
  riga.aggiorna();
  EXPECT_TRUE(frase->text().startsWith(QStringLiteral("Ultima copia di sicurezza fatta da qui: oggi alle ")));
  Profilo::Database server;
  server.motore = Profilo::Motore::Odbc;
  const RigaCopia altra(nullptr, server);
  EXPECT_TRUE(altra.isHidden());
}

}  // namespace
}  // namespace cu::strumenti
