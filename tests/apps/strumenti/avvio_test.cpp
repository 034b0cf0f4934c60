// The start dialog's way to the windows for telematic files.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QUrl>

#include "apps/avvio/finestra_avvio.h"
#include "apps/comune/sessione_comando.h"
#include "apps/strumenti/finestra_file.h"
#include "apps/strumenti/strumenti.h"
#include "azienda_support.h"
#include "fornitura/corsa.h"
#include "host/testi_programma.h"
#include "lettura/lettura_prova.h"

namespace cu::strumenti {
namespace {

CartelleAvvio cartelleIn(const QTemporaryDir& cartella) {
  return {cartella.filePath(QStringLiteral("dati")),
          cartella.filePath(QStringLiteral("config/impostazioni.toml")),
          cartella.filePath(QStringLiteral("documenti"))};
}

QMenu* menuDi(const FinestraAvvio& finestra) {
  for (auto* uno : finestra.findChildren<QPushButton*>()) {
    if (uno->text().remove(u'&') == QStringLiteral("Strumenti")) return uno->menu();
  }
  return nullptr;
}

TEST(NewArchive, ProposesANameThatIsFree) {
  const QTemporaryDir cartella;
  const QString primo = nomeNuovoArchivio(cartella.path());
  EXPECT_EQ(primo, cartella.path() + QStringLiteral("/archivio.db"));
  creaArchivioVuoto(primo);
  EXPECT_EQ(nomeNuovoArchivio(cartella.path()), cartella.path() + QStringLiteral("/archivio-2.db"));
}

TEST(StartTools, TheStateNeedsADatabaseAndFilesDoNot) {
  const QTemporaryDir cartella;
  const FinestraAvvio buona({}, cartelleIn(cartella));
  ASSERT_NE(menuDi(buona), nullptr);
  ASSERT_EQ(menuDi(buona)->actions().size(), 7);
  EXPECT_TRUE(menuDi(buona)->actions()[2]->isEnabled());
  EXPECT_TRUE(menuDi(buona)->actions()[5]->isEnabled());
  SceltaAvvio senza;
  senza.database = cartella.filePath(QStringLiteral("manca.db"));
  const FinestraAvvio rotta(senza, cartelleIn(cartella));
  EXPECT_TRUE(menuDi(rotta)->actions()[0]->isEnabled());
  EXPECT_FALSE(menuDi(rotta)->actions()[2]->isEnabled());
  EXPECT_FALSE(menuDi(rotta)->actions()[5]->isEnabled()) << "there is nothing to copy";
  EXPECT_TRUE(menuDi(rotta)->actions()[6]->isEnabled()) << "a copy brings it back";
}

// The same file as the start window's own run, by the program without windows.
TEST(SavedProfile, RunsTheCommandWithTheResultOfTheWindow) {
  const QTemporaryDir cartella;
  const CartelleAvvio cartelle = cartelleIn(cartella);
  preparaDimostrativo(cartelle);
  const SceltaAvvio scelta;
  Profilo profilo = profiloDi(scelta, cartelle);
  profilo.stampa = Profilo::MotoreStampa::Registro;
  const auto dove = [&](const char* nome) {
    QDir(cartella.path()).mkdir(QString::fromLatin1(nome));
    return cartella.filePath(QString::fromLatin1(nome)).toStdString();
  };
  std::string suo;
  Terminale terminale;
  Surroundings surroundings(profilo, terminale);
  SessioneComando sessione(surroundings, terminale);
  sessione.esegui([&] {
    Compensi compensi(surroundings.utilita(), terminale);
    fornitura::RichiestaCU richiesta;
    richiesta.anno = "2017";
    richiesta.cartella = dove("finestra");
    richiesta.cartellaDocumenti = sessione.testi().text(1264);
    richiesta.modulo = surroundings.stampe().reports(fnModoCU()).front();
    richiesta.firma = Date::fromYmd(2018, 3, 5);
    richiesta.prosegue = [](const Finding&) { return true; };
    const auto esito = fornitura::creaCU(sessione.intorno(), compensi, richiesta);
    if (esito->file) suo = esito->file->percorso;
  });
  ASSERT_FALSE(suo.empty());

  const QString salvato = cartella.filePath(QStringLiteral("profilo.toml"));
  salvaProfilo(scelta, cartelle, salvato);
  const std::string dellAltro = dove("cuctl");
  const QStringList argomenti = {QStringLiteral("make"),
                                 QStringLiteral("--profile"),
                                 salvato,
                                 QStringLiteral("--year"),
                                 QStringLiteral("2017"),
                                 QStringLiteral("--folder"),
                                 QString::fromStdString(dellAltro),
                                 QStringLiteral("--signature-date"),
                                 QStringLiteral("2018-03-05"),
                                 QStringLiteral("--cumulative"),
                                 QStringLiteral("--yes")};
  QProcess cuctl;
  cuctl.start(QStringLiteral(CU_CUCTL), argomenti);
  ASSERT_TRUE(cuctl.waitForFinished(60000));
  EXPECT_EQ(cuctl.exitCode(), 0) << cuctl.readAllStandardError().toStdString();
  const std::string nome = QFileInfo(QString::fromStdString(suo)).fileName().toStdString();
  EXPECT_GT(test::letto(suo).size(), 10000U);
  EXPECT_EQ(test::letto(dellAltro + '/' + nome), test::letto(suo));
}

TEST(StartTools, ImportsNeedADatabase) {
  const QTemporaryDir cartella;
  const auto importa = [](const FinestraAvvio& finestra) -> const QAction* {
    for (const QAction* uno : finestra.findChildren<QAction*>()) {
      if (uno->text().contains(QStringLiteral("Importa da tabelle"))) return uno;
    }
    return nullptr;
  };
  const FinestraAvvio buona({}, cartelleIn(cartella));
  ASSERT_NE(importa(buona), nullptr);
  EXPECT_TRUE(importa(buona)->isEnabled());
  SceltaAvvio senza;
  senza.database = cartella.filePath(QStringLiteral("manca.db"));
  const FinestraAvvio rotta(senza, cartelleIn(cartella));
  EXPECT_FALSE(importa(rotta)->isEnabled());
}

TEST(StartTools, AFileThatIsDroppedOpens) {
  const QTemporaryDir cartella;
  const test::TempFolder altra;
  lettura::prova::FileDiProva prova;
  prova.certificato().fine();
  const QString percorso = QString::fromStdString(test::scritto(altra / "lasciato.cur", prova.testo()));
  FinestraAvvio finestra({}, cartelleIn(cartella));
  EXPECT_FALSE(aperti());
  QMimeData dati;
  dati.setUrls({QUrl::fromLocalFile(percorso)});
  QDragEnterEvent entrato(QPoint(5, 5), Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&finestra, &entrato);
  EXPECT_TRUE(entrato.isAccepted());
  QDropEvent lasciato(QPointF(5, 5), Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&finestra, &lasciato);
  ASSERT_TRUE(aperti());
  for (QWidget* una : QApplication::topLevelWidgets()) {
    auto* const aperta = dynamic_cast<FinestraFile*>(una);
    if (aperta == nullptr) continue;
    EXPECT_TRUE(test::aspetta([aperta] { return !aperta->lavora(); }));
    EXPECT_EQ(aperta->windowTitle(), QStringLiteral("lasciato.cur"));
    aperta->close();
  }
  EXPECT_TRUE(test::aspetta([] { return !aperti(); }));
}

}  // namespace
}  // namespace cu::strumenti
