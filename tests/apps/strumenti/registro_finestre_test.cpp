// What the log for support has of the windows.

#include "apps/strumenti/registro_finestre.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "apps/strumenti/lavoro.h"
#include "base/error.h"
#include "controls/form.h"
#include "desktop/qt_front_end.h"
#include "suite/support_log.h"

namespace cu::strumenti {
namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;

constexpr int kTempoSentito = 150;  // milliseconds

struct RegistroDelleFinestre : ::testing::Test {
  QTemporaryDir cartella;
  QString file = cartella.filePath(QStringLiteral("registro"));
  RegistroDelleFinestre() {
    SupportLog::activate(std::make_unique<SupportLog>(SupportLog::Settings{.path = file.toStdString()}));
  }
  ~RegistroDelleFinestre() override { SupportLog::activate(nullptr); }

  std::vector<std::string> voci() const {
    SupportLog::active()->flush();
    std::vector<std::string> tutte;
    std::ifstream registro(file.toStdString());
    for (std::string riga; std::getline(registro, riga);) tutte.push_back(riga.substr(riga.find("] ") + 2));
    return tutte;
  }
};

struct FormDiProva : Form {
  Button cmdLento{*this, "cmdLento(3)", nullptr, "Lento"};
  explicit FormDiProva(FrontEnd& schermo) : Form(schermo, "frmProva", "Rossi Mario") {}
};

void chiudiMessaggio() {
  QTimer::singleShot(kTempoSentito, [] { QApplication::activeModalWidget()->close(); });
}

TEST_F(RegistroDelleFinestre, HaGliEventiLentiSenzaLAttesaDellUtente) {
  desktop::QtFrontEnd schermo;
  registraEventi(schermo);
  FormDiProva form(schermo);
  form.show();
  schermo.perform(form.cmdLento, [] {});
  schermo.perform(form.cmdLento, [&] {
    chiudiMessaggio();
    schermo.messageBox({"Rossi Mario", "", BoxIcon::Warning, BoxButtons::Ok, Answer::Ok});
  });
  schermo.perform(form.cmdLento, [] { QTest::qSleep(kTempoSentito); });
  schermo.perform(form, [] { QTest::qSleep(kTempoSentito); });
  EXPECT_THAT(voci(), ElementsAre(MatchesRegex("evento su=frmProva\\.cmdLento\\(3\\) ms=[0-9]+"),
                                  MatchesRegex("evento su=frmProva ms=[0-9]+")));
  form.unload();
}

TEST_F(RegistroDelleFinestre, HaIlNumeroDiUnErroreENonIlTesto) {
  const RegistroFinestre finestre;
  desktop::QtFrontEnd schermo;
  chiudiMessaggio();
  schermo.error(Error(3021, "Rossi Mario"));
  QMessageBox altro(QMessageBox::Question, QStringLiteral("Rossi"), QStringLiteral("Mario?"));
  altro.setObjectName(QStringLiteral("conferma"));
  altro.show();
  EXPECT_THAT(voci(), ElementsAre("finestra di messaggio errore su=errore errore=programma numero=3021",
                                  "finestra di messaggio domanda su=conferma"));
}

TEST_F(RegistroDelleFinestre, HaQuantiMessaggiDelToolkitENonITesti) {
  {
    const RegistroFinestre finestre;
    qWarning("Rossi Mario");
    qWarning("Rossi Mario");
    qCritical("Rossi Mario");
  }
  qWarning("dopo");
  EXPECT_THAT(voci(),
              ElementsAre("messaggi del toolkit warning righe=2", "messaggi del toolkit critical righe=1"));
}

TEST_F(RegistroDelleFinestre, HaILavoriIniziatiDalleFinestre) {
  QWidget finestra;
  const auto esegui = [&](const std::function<void()>& che) {
    Lavoro lavoro(&finestra);
    bool finito = false;
    lavoro.avvia(che, [&finito](const Lavoro::Esito&) { finito = true; });
    EXPECT_TRUE(QTest::qWaitFor([&finito] { return finito; }));
  };
  esegui([] { QTest::qSleep(kTempoSentito); });
  esegui([] { throw DatabaseError(DatabaseErrorKind::Locked, 5, "UPDATE", "Rossi Mario"); });
  esegui([] { throw Interrotto(); });
  EXPECT_THAT(
      voci(),
      ElementsAre(
          MatchesRegex("lavoro su=QWidget ms=[0-9]+"),
          MatchesRegex("lavoro su=QWidget ms=[0-9]+ errore=database/Locked numero=-2147217900 codice=5"),
          MatchesRegex("lavoro interrotto su=QWidget ms=[0-9]+")));
}

TEST_F(RegistroDelleFinestre, NonCostaNullaSenzaRegistro) {
  SupportLog::activate(nullptr);
  desktop::QtFrontEnd schermo;
  registraEventi(schermo);
  EXPECT_FALSE(schermo.onPerformed);
}

}  // namespace
}  // namespace cu::strumenti
