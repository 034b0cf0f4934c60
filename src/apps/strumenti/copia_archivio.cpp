#include "apps/strumenti/copia_archivio.h"

#include <QBoxLayout>
#include <QCryptographicHash>
#include <QDateTime>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <utility>

#include "apps/comune/copia_sicurezza.h"
#include "apps/strumenti/dialogo_lavoro.h"
#include "apps/strumenti/frase.h"
#include "base/error.h"
#include "desktop/file_dialog.h"
#include "desktop/qt_front_end.h"
#include "desktop/text.h"
#include "sqlite/database_copy.h"
#include "suite/orologio.h"

namespace cu::strumenti {
namespace {

const QString kUsoCopie = QStringLiteral("copie");
const QString kTitoloRipristino = QStringLiteral("Ripristina una copia");
const QString kFiltroCopie = QStringLiteral("Database (*.db *.sqlite);;Tutti i file (*)");

QString nomeFile(const std::string& percorso) { return QFileInfo(qs(percorso)).fileName(); }

// A path has separators of its own.
QString chiaveUltima(const Profilo::Database& database) {
  const QFileInfo file(qs(database.origine));
  const QString vero = file.canonicalFilePath();
  const QByteArray impronta = QCryptographicHash::hash(
      (vero.isEmpty() ? file.absoluteFilePath() : vero).toUtf8(), QCryptographicHash::Sha256);
  return QStringLiteral("copie/ultime/") + QString::fromLatin1(impronta.toHex().left(16));
}

QString cartellaDelleCopie(const Profilo::Database& database) {
  return cartellaRicordata(kUsoCopie, QFileInfo(qs(database.origine)).absolutePath());
}

CopyObserver avanzamentoDi(Lavoro& lavoro) {
  return [&lavoro](CopyStep passo, std::uint64_t fatto, std::uint64_t totale) {
    // In thousandths of the pages: the bar has a share, not a number of what nobody knows.
    const bool pagine = passo == CopyStep::Pages;
    lavoro.avanza(pagine ? "Copia del database" : "Controllo della copia", pagine ? fatto : 0,
                  pagine ? totale : 0);
  };
}

}  // namespace

bool siCopia(const Profilo::Database& database) { return database.motore == Profilo::Motore::Sqlite; }

bool faiCopia(QWidget* parent, const Profilo::Database& database) {
  const std::string proposta =
      nomeCopia(database.origine, cartellaDelleCopie(database).toStdString(), OrologioSistema());
  const QString scelto =
      desktop::fileToSave(parent, QStringLiteral("Copia di sicurezza"), qs(proposta), kFiltroCopie);
  if (scelto.isEmpty()) return false;
  ricordaCartella(kUsoCopie, QFileInfo(scelto).absolutePath());
  return copiaIn(parent, database, scelto);
}

bool copiaIn(QWidget* parent, const Profilo::Database& database, const QString& file) {
  DialogoLavoro dialogo(
      parent, QStringLiteral("copia"), QStringLiteral("Copia di sicurezza"),
      {.che = QStringLiteral("Copia del database…"),
       .fai =
           [database, file](Lavoro& lavoro) {
             const DatabaseCopy copia =
                 copiaDatabase(database, file.toStdString(), true, avanzamentoDi(lavoro));
             return QStringLiteral("Copia fatta e controllata: %1\n\n%2.").arg(file, qs(dettaCopia(copia)));
           },
       .interrotto = QStringLiteral("Interrotto: non è stata fatta nessuna copia.")});
  dialogo.exec();
  if (dialogo.riuscito()) QSettings().setValue(chiaveUltima(database), QDateTime::currentDateTime());
  return dialogo.riuscito();
}

std::optional<Ripristino> chiediRipristino(QWidget* parent, const Profilo::Database& database,
                                           const QString& inoltre) {
  const QString scelto =
      desktop::fileToOpen(parent, kTitoloRipristino, cartellaDelleCopie(database), kFiltroCopie);
  if (scelto.isEmpty()) return std::nullopt;
  ricordaCartella(kUsoCopie, QFileInfo(scelto).absolutePath());
  return chiediRipristinoDa(parent, database, scelto, inoltre);
}

std::optional<Ripristino> chiediRipristinoDa(QWidget* parent, const Profilo::Database& database,
                                             const QString& copia, const QString& inoltre) {
  try {
    requireCopy(copia.toStdString(), database.origine);
  } catch (const DatabaseError& rifiuto) {
    QMessageBox::warning(parent, kTitoloRipristino, desktop::lines(rifiuto.what()));
    return std::nullopt;
  }
  Ripristino scelto{copia, nomeTenuto(database.origine, OrologioSistema())};
  const bool presente = QFileInfo::exists(qs(database.origine));
  QMessageBox domanda(QMessageBox::Question, kTitoloRipristino, {}, QMessageBox::NoButton, parent);
  domanda.setTextFormat(Qt::PlainText);
  domanda.setText(
      presente
          ? QStringLiteral("Il database «%1» torna com'era nella copia «%2», del %3: ciò che è stato scritto "
                           "dopo non vi sarà più.\n\nIl database di adesso resta nella stessa cartella, con "
                           "il nome «%4».")
                .arg(nomeFile(database.origine), QFileInfo(copia).fileName(),
                     QFileInfo(copia).lastModified().toString(QStringLiteral("dd/MM/yyyy, hh:mm")),
                     nomeFile(scelto.tenuto))
          : QStringLiteral("Il database «%1» viene creato dalla copia «%2».")
                .arg(nomeFile(database.origine), QFileInfo(copia).fileName()));
  domanda.setInformativeText(inoltre);
  const QPushButton* const si = domanda.addButton(QStringLiteral("&Ripristina"), QMessageBox::AcceptRole);
  QPushButton* const no = domanda.addButton(QStringLiteral("Annulla"), QMessageBox::RejectRole);
  domanda.setDefaultButton(no);
  domanda.setEscapeButton(no);
  domanda.exec();
  if (domanda.clickedButton() != si) return std::nullopt;
  return scelto;
}

bool ripristina(QWidget* parent, const Profilo::Database& database, const Ripristino& scelto) {
  DialogoLavoro dialogo(
      parent, QStringLiteral("ripristino"), kTitoloRipristino,
      {.che = QStringLiteral("Copia del database…"),
       .fai =
           [database, scelto](Lavoro& lavoro) {
             const bool sostituito = ripristinaDatabase(database, scelto.copia.toStdString(), scelto.tenuto,
                                                        avanzamentoDi(lavoro));
             return sostituito ? QStringLiteral(
                                     "Il database è tornato com'era nella copia. Quello di prima è qui: %1")
                                     .arg(qs(scelto.tenuto))
                               : QStringLiteral("Il database è stato creato dalla copia.");
           },
       .interrotto = QStringLiteral("Interrotto: non è cambiato nulla.")});
  dialogo.exec();
  return dialogo.riuscito();
}

QString dettaUltimaCopia(const Profilo::Database& database) {
  const QDateTime ultima = QSettings().value(chiaveUltima(database)).toDateTime();
  if (!ultima.isValid()) return {};
  const QString ora = ultima.toString(QStringLiteral("hh:mm"));
  return ultima.date() == QDate::currentDate()
             ? QStringLiteral("oggi alle %1").arg(ora)
             : QStringLiteral("il %1 alle %2").arg(ultima.toString(QStringLiteral("dd/MM/yyyy")), ora);
}

RigaCopia::RigaCopia(QWidget* parent, Profilo::Database database, bool stretto)
    : QWidget(parent),
      database_(std::move(database)),
      frase_(new Frase(this)),
      copia_(nuovoPulsante(this, "Copia di sicure&zza…", [this] {
        azione ? azione() : static_cast<void>(faiCopia(window(), database_));
        aggiorna();
      })) {
  auto* const riga = new QBoxLayout(stretto ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
  riga->setContentsMargins(0, 0, 0, 0);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  riga->addWidget(frase_, 1);
  riga->addWidget(copia_);
  aggiorna();
  setVisible(siCopia(database_));
}

void RigaCopia::aggiorna() {
  const QString ultima = dettaUltimaCopia(database_);
  frase_->dici(ultima.isEmpty()
                   ? QStringLiteral("Da qui non è ancora stata fatta una copia di sicurezza del database.")
                   : QStringLiteral("Ultima copia di sicurezza fatta da qui: %1.").arg(ultima));
}

void offriCopie(desktop::QtFrontEnd& schermo, const Profilo::Database& database,
                const std::function<void(QWidget* finestra)>& ripristina) {
  if (!siCopia(database)) return;
  const auto copia = [database](QWidget* finestra) { faiCopia(finestra, database); };
  schermo.ownTools.push_back({QStringLiteral("Copia di sicure&zza…"), copia});
  schermo.ownTools.push_back({QStringLiteral("&Ripristina una copia…"), ripristina});
  schermo.belowOutlook = [&schermo, database, copia](QWidget* parent) {
    auto* const riga = new RigaCopia(parent, database, true);
    riga->azione = [&schermo, copia] { schermo.use({{}, copia}); };
    // The focus stays on the form's controls; the key of the button works, and the menu has the same.
    riga->pulsante()->setFocusPolicy(Qt::NoFocus);
    return riga;
  };
}

// Another window may have made one meanwhile.
void RigaCopia::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  aggiorna();
}

}  // namespace cu::strumenti
