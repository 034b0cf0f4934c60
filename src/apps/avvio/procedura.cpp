#include "apps/avvio/procedura.h"

#include <QApplication>
#include <iostream>
#include <optional>

#include "apps/avvio/messaggio_avvio.h"
#include "apps/avvio/scelta_avvio.h"
#include "apps/comune/chiavi_righe.h"
#include "apps/comune/codici_uscita.h"
#include "apps/comune/colonne_percipienti.h"
#include "apps/comune/impianto.h"
#include "apps/comune/modello_del_profilo.h"
#include "apps/esame/dopo_scrittura.h"
#include "apps/esame/testo_rilievi.h"
#include "apps/strumenti/copia_archivio.h"
#include "apps/strumenti/registro_finestre.h"
#include "apps/strumenti/strumenti.h"
#include "base/error.h"
#include "desktop/qt_front_end.h"
#include "reporting/pdf_reports.h"
#include "suite/orologio.h"

namespace cu {
namespace {

// A file that was just written is read again and kept on record. One with errors is shown, any other is
// offered.
void controllaFile(const FileCreato& file, Connection& connessione, const Profilo& profilo,
                   desktop::QtFrontEnd& schermo) {
  const DopoScrittura dopo = dopoScrittura(
      connessione, *orologio(profilo),
      {file.percorso, file.tipo, file.anno, profilo.sessione.azienda, &schermo, modelloDi(profilo)});
  if (!dopo.guasto.empty()) schermo.told("Il file non si è potuto controllare: " + dopo.guasto);
  if (dopo.guasto.empty()) schermo.told("Controllo: " + dettoConteggio(dopo.rilievi) + ".");
  const QString percorso = QString::fromStdString(file.percorso);
  const bool rilievi = dopo.rilievi.errori() + dopo.rilievi.avvisi() > 0;
  schermo.offer({rilievi ? QStringLiteral("Vedi i rilievi") : QStringLiteral("Vedi il file telematico"),
                 percorso, [percorso, profilo] { strumenti::apriFile(percorso, profilo); }});
  if (dopo.rilievi.errori() > 0) strumenti::apriFile(percorso, profilo);
}

// Of a start without a profile the year is kept for the start window.
void ricordaAnnoDi(const Profilo& profilo, ModMain& programma) {
  if (profilo.file != kAvvioSenzaProfilo || programma.wizard() == nullptr) return;
  const SceltaAvvio scelta = SceltaAvvio::ricordata();
  ricordaAnno(scelta.server.testo.isEmpty() ? scelta.database : scelta.server.testo, profilo.sessione.azienda,
              QString::fromStdString(programma.wizard()->KRNCboEsCont0.text()));
}

// One start of the wizard. Leaves in `ripristino` the copy for which the user has closed it.
int avviaProcedura(const Profilo& profilo, const QString& guida,
                   std::optional<strumenti::Ripristino>& ripristino) {
  desktop::QtFrontEnd schermo(guida);
  strumenti::registraEventi(schermo);
  Impianto impianto(profilo, schermo, PdfReports::crea, [&](const FileCreato& file, Connection& connessione) {
    controllaFile(file, connessione, profilo, schermo);
  });
  schermo.furtherColumns = [&](const LookupTable& elenco) {
    return colonnePercipienti(profilo.database, elenco);
  };
  schermo.rowKeys = [&](const std::string& istruzione) { return chiaviRighe(profilo.database, istruzione); };
  schermo.onAllClosed = [&] {
    ricordaAnnoDi(profilo, impianto.programma());
    if (ripristino) {
      // quit() would close the other windows first.
      QCoreApplication::exit();
    } else if (strumenti::aperti()) {
      QGuiApplication::setQuitOnLastWindowClosed(true);
    } else {
      QCoreApplication::quit();
    }
  };
  strumenti::offriCopie(schermo, profilo.database, [&](QWidget* finestra) {
    ripristino = strumenti::chiediRipristino(
        finestra, profilo.database,
        QStringLiteral("Per questo la finestra si chiude; poi si riapre dal primo passo."));
    if (!ripristino) return;
    finestra->close();
    // What is not stored yet was not to be lost.
    if (schermo.anyOpen()) ripristino.reset();
  });
  bool avviato = false;
  schermo.runEvent([&] {
    try {
      impianto.programma().main();
      avviato = true;
    } catch (const DatabaseError& errore) {
      mostraErroreAvvio(errore);
    }
  });
  if (!avviato || impianto.avvioRifiutato()) return kRifiutato;
  if (schermo.anyOpen()) return QApplication::exec();
  if (profilo.sessione.processi.empty()) {
    std::cerr << profilo.file << ": session.processes non indica nessun processo: non c'è nulla da fare\n";
  }
  return kRiuscito;
}

}  // namespace

int eseguiProcedura(const Profilo& profilo, const QString& guida) {
  for (;;) {
    std::optional<strumenti::Ripristino> ripristino;
    const int esito = avviaProcedura(profilo, guida, ripristino);
    if (!ripristino) return esito;
    strumenti::ripristina(nullptr, profilo.database, *ripristino);
  }
}

}  // namespace cu
