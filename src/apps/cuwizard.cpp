// The window program.

#include <poppler-version.h>

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLoggingCategory>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>

#include "apps/assistente/importazione_guidata.h"
#include "apps/avvio/avvio_unico.h"
#include "apps/avvio/finestra_avvio.h"
#include "apps/avvio/messaggio_avvio.h"
#include "apps/avvio/password_finestra.h"
#include "apps/avvio/procedura.h"
#include "apps/avvio/scelta_avvio.h"
#include "apps/comune/codici_uscita.h"
#include "apps/comune/registro_programma.h"
#include "apps/strumenti/registro_finestre.h"
#include "apps/strumenti/strumenti.h"
#include "apps/versione/versione.h"
#include "desktop/about.h"
#include "desktop/file_dialog.h"
#include "desktop/look.h"
#include "desktop/window_memory.h"
#include "sqlite/own_files.h"
#include "standard_streams.h"
#include "suite/profilo.h"
#include "uso.h"
#include "uso_finestra.h"

namespace cu {
namespace {

std::string versione() {
  return testoVersione("cuwizard", {{"Anteprime", "Poppler " + Poppler::Version::string().toStdString()}});
}

// The guide is in the folder named by the profile or next to the program, installed or in its source tree.
QString cartellaGuida(const QString& delProfilo) {
  QString programma = QCoreApplication::applicationDirPath();
  for (const QString& cartella : {delProfilo, programma + QStringLiteral("/" CU_GUIDE_FROM_PROGRAM),
                                  programma + QStringLiteral("/../../docs")}) {
    if (QFileInfo::exists(cartella + QStringLiteral("/guida.md"))) return QDir(cartella).absolutePath();
  }
  return programma;
}

desktop::look::Colours colori(const std::string& nome) {
  if (nome.empty()) return desktop::look::rememberedColours();
  if (nome == "chiari") return desktop::look::Colours::Light;
  if (nome == "scuri") return desktop::look::Colours::Dark;
  return desktop::look::Colours::Desktop;
}

// Returns nullopt when the user has cancelled.
std::optional<Profilo> profiloScelto() {
  CartelleAvvio cartelle = CartelleAvvio::delUtente();
  cartelle.guida = cartellaGuida({});
  SceltaAvvio scelta = SceltaAvvio::ricordata();
  scelta.documentiMinisteriali = cartellaMinisteriale(cartelle);
  FinestraAvvio finestra(scelta, cartelle);
  // Not modal: the windows opened from it can be used.
  QEventLoop attesa;
  QObject::connect(&finestra, &QDialog::finished, &attesa, &QEventLoop::quit);
  finestra.show();
  attesa.exec();
  if (finestra.result() != QDialog::Accepted) return std::nullopt;
  const SceltaAvvio fatta = finestra.scelta();
  fatta.ricorda();
  if (fatta.documentiMinisteriali != scelta.documentiMinisteriali) {
    salvaCartellaMinisteriale(cartelle, fatta.documentiMinisteriali);
  }
  return profiloDi(fatta, cartelle);
}

// Of the last choice in the start window.
Profilo profiloRicordato() {
  const CartelleAvvio cartelle = CartelleAvvio::delUtente();
  const SceltaAvvio scelta = SceltaAvvio::ricordata();
  if (scelta.database.isEmpty() && scelta.server.testo.isEmpty()) preparaDimostrativo(cartelle);
  return profiloDi(scelta, cartelle);
}

// Until the last window for telematic files is closed.
int finoAgliStrumenti() {
  if (!strumenti::aperti()) return kRiuscito;
  QGuiApplication::setQuitOnLastWindowClosed(true);
  return QApplication::exec();
}

int esegui(const OpzioniFinestra& opzioni) {
  chiediPasswordInFinestra();
  desktop::setAbout([] { return testoInformazioni(versione(), CartelleAvvio::delUtente(), nullptr); });
  std::optional<Profilo> profilo;
  if (!opzioni.profilo.empty()) profilo = leggiProfiloConRegistro(opzioni.profilo);
  if (profilo) ricordaDatabase(profilo->database);
  desktop::FileDialog::setObjection([](const QString& file) {
    return belongsToOwnDatabase(file.toStdString())
               ? QStringLiteral(
                     "«%1» è il database in uso, o un suo file di lavoro: scegliere un altro nome.")
                     .arg(QFileInfo(file).fileName())
               : QString();
  });
  const strumenti::RegistroFinestre messaggi;
  strumenti::guida(
      cartellaGuida(profilo ? QString::fromStdString(profilo->sessione.cartellaGuida) : QString()));
  if (opzioni.importa) {
    QStringList tabelle;
    for (const std::string& uno : opzioni.file) tabelle += QString::fromStdString(uno);
    const Profilo suo = profilo ? *profilo : profiloRicordato();
    avvisaPermessi(suo.database);
    assistente::apriImportazione(suo, tabelle);
    return finoAgliStrumenti();
  }
  if (!opzioni.file.empty()) {
    for (const std::string& uno : opzioni.file) strumenti::apriFile(QString::fromStdString(uno), profilo);
    return finoAgliStrumenti();
  }
  const bool daProfilo = profilo.has_value();
  std::optional<AvvioUnico> unico;
  while (!unico) {
    if (!daProfilo) profilo = profiloScelto();
    if (!profilo) return finoAgliStrumenti();
    unico.emplace(*profilo, AvvioUnico::cartellaDelSistema());
    if (!unico->altro() || proseguiUgualmente(unico->avviso())) break;
    // Another user or database can be chosen where these were.
    if (daProfilo) return finoAgliStrumenti();
    unico.reset();
  }
  avvisaPermessi(profilo->database);
  desktop::setAbout(
      [suo = *profilo] { return testoInformazioni(versione(), CartelleAvvio::delUtente(), &suo); });
  return eseguiProcedura(*profilo, cartellaGuida(QString::fromStdString(profilo->sessione.cartellaGuida)));
}

constexpr const char* kSenzaSchermo =
    "cuwizard: non c'è uno schermo su cui aprire la finestra. Senza schermo si usa cuctl.\n";

// While the toolkit starts: it aborts where a screen is named and cannot be reached.
void diceSenzaSchermo(QtMsgType genere, const QMessageLogContext& /*dove*/, const QString& testo) {
  if (genere != QtFatalMsg) return;
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    std::cerr << "cuwizard: la finestra non si apre con la piattaforma indicata in QT_QPA_PLATFORM. "
              << testo.toStdString() << '\n'
              << std::flush;
  } else {
    std::cerr << kSenzaSchermo << std::flush;
  }
  std::_Exit(kRifiutato);
}

// The help, the version, and a machine without a screen are handled before the toolkit starts, which would
// only abort.
std::optional<int> senzaSchermo(int quanti, char** argomenti, CLI::App& programma) {
  bool piattaforma = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
  for (int i = 1; i < quanti; ++i) {
    const std::string_view argomento = argomenti[i];
    if (argomento == "--help" || argomento == "-h") {
      std::cout << programma.help();
      return kRiuscito;
    }
    if (argomento == "--version") {
      std::cout << versione() << '\n';
      return kRiuscito;
    }
    piattaforma = piattaforma || argomento == "-platform" || argomento == "--platform";
  }
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
  const bool schermo =
      !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
  if (!piattaforma && !schermo) {
    std::cerr << kSenzaSchermo;
    return kRifiutato;
  }
#endif
  return std::nullopt;
}

int eseguiFinestra(int quanti, char** argomenti) {
  OpzioniFinestra opzioni;
  CLI::App programma("Autocomposizione: conti individuali, certificazioni, Certificazione Unica", "cuwizard");
  descriviFinestra(programma, opzioni, versione);
  if (const auto esito = senzaSchermo(quanti, argomenti, programma)) return *esito;

  QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false\nqt.*.warning=false"));
  const QtMessageHandler diPrima = qInstallMessageHandler(diceSenzaSchermo);
  QApplication applicazione(quanti, argomenti);
  qInstallMessageHandler(diPrima);
  QCoreApplication::setApplicationName(QStringLiteral("cuwizard"));
  QCoreApplication::setOrganizationName(QStringLiteral("cuwizard"));
  QGuiApplication::setApplicationDisplayName({});
  QGuiApplication::setDesktopFileName(QStringLiteral("cuwizard"));
  QGuiApplication::setQuitOnLastWindowClosed(false);
  riservaMemoria();
  try {
    programma.parse(quanti, argomenti);
  } catch (const CLI::ParseError& errore) {
    std::cerr << "cuwizard: " << erroreUso(programma, errore) << "\nPer l'aiuto: cuwizard --help\n";
    return kUsoSbagliato;
  }
  desktop::look::apply(applicazione, colori(opzioni.colori));
  desktop::look::setLetters(desktop::look::rememberedLetters());
  const desktop::WindowMemory finestre;
  RegistroProgramma registro(std::string("cuwizard ") + versioneBreve(), avvisaRegistro);
  registro.apri(fileRegistro(programma));
  const auto termina = [&registro](int esito) {
    registro.fine(esito);
    return esito;
  };
  try {
    return termina(esegui(opzioni));
  } catch (const ErroreProfilo& errore) {
    mostraErroreAvvio(errore);
    return termina(kUsoSbagliato);
  } catch (const std::exception& errore) {
    mostraErroreAvvio(errore);
    return termina(kRifiutato);
  }
}

}  // namespace
}  // namespace cu

int main(int argc, char** argv) {
  cu::reportInWords();
  cu::StandardStreams flussi;
  return flussi.finished(cu::eseguiFinestra(argc, argv));
}
