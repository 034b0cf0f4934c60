#include "apps/avvio/messaggio_avvio.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <iostream>

#include "apps/comune/parole_database.h"
#include "apps/comune/permessi_database.h"
#include "base/error.h"
#include "desktop/text.h"
#include "suite/profilo.h"
#include "suite/support_log.h"

namespace cu {
namespace {

const char* motivo(DatabaseErrorKind genere) {
  switch (genere) {
    case DatabaseErrorKind::NoSchema:
      return "non contiene i dati della suite";
    case DatabaseErrorKind::Locked:
      return "è occupato da un altro programma";
    case DatabaseErrorKind::Full:
      return "il disco è pieno";
    case DatabaseErrorKind::ReadOnly:
      return "è di sola lettura";
    case DatabaseErrorKind::Corrupt:
      return "è danneggiato";
    case DatabaseErrorKind::Timeout:
      return "non risponde";
    case DatabaseErrorKind::Unavailable:
    case DatabaseErrorKind::Missing:
    case DatabaseErrorKind::Exists:
    case DatabaseErrorKind::Duplicate:
    case DatabaseErrorKind::Constraint:
    case DatabaseErrorKind::Syntax:
    case DatabaseErrorKind::Other:
      break;
  }
  return "non si riesce ad aprirlo";
}

DatabaseErrorKind genereDi(const std::exception& errore) {
  const auto* const database = dynamic_cast<const DatabaseError*>(&errore);
  return database == nullptr ? DatabaseErrorKind::Other : database->kind();
}

bool senzaSchermo() {
  const QString piattaforma = QGuiApplication::platformName();
  return piattaforma == QStringLiteral("offscreen") || piattaforma == QStringLiteral("minimal");
}

}  // namespace

MessaggioAvvio messaggioAvvio(const std::exception& errore) {
  const QString dettaglio = desktop::lines(errore.what());
  if (dynamic_cast<const ErroreProfilo*>(&errore) != nullptr) {
    return {QStringLiteral("La procedura non può partire: il profilo con cui è stata chiamata non è valido.\n"
                           "Mostrare questo messaggio a chi ha installato la procedura."),
            dettaglio};
  }
  if (dynamic_cast<const DatabaseError*>(&errore) != nullptr) {
    return {
        QStringLiteral("La procedura non può partire, perché il database non si può usare: %1.\n"
                       "Riprovare; se non basta, mostrare questo messaggio a chi ha installato la procedura.")
            .arg(QString::fromUtf8(motivo(genereDi(errore)))),
        desktop::lines(dettoInFinestra(errore))};
  }
  return {
      QStringLiteral("La procedura non può partire.\n"
                     "Riprovare; se non basta, mostrare questo messaggio a chi ha installato la procedura."),
      dettaglio};
}

QString avvisoDatabase(const QString& nome, const std::exception& errore) {
  const DatabaseErrorKind genere = genereDi(errore);
  // A message on a file can be more specific than one on a server.
  const char* const perche = genere == DatabaseErrorKind::Unavailable
                                 ? "non c'è, non si può leggere, o non è un database"
                                 : motivo(genere);
  return QStringLiteral("%1 non si può usare: %2. Scegliere un altro database.")
      .arg(nome, QString::fromUtf8(perche));
}

bool proseguiUgualmente(const QString& avviso) {
  if (senzaSchermo()) {
    std::cerr << avviso.toStdString() << '\n';
    return true;
  }
  QMessageBox box(QMessageBox::Warning, desktop::titled({}), avviso);
  box.setTextFormat(Qt::PlainText);
  box.setObjectName(QStringLiteral("giaAperta"));
  const QPushButton* const continua = box.addButton(QStringLiteral("&Continua"), QMessageBox::AcceptRole);
  QPushButton* const annulla = box.addButton(QStringLiteral("Annulla"), QMessageBox::RejectRole);
  box.setDefaultButton(annulla);
  box.setEscapeButton(annulla);
  box.exec();
  return box.clickedButton() == continua;
}

void avvisaPermessi(const Profilo::Database& database) {
  if (senzaSchermo()) {
    ascoltaPermessi([](const std::string& avviso) { std::cerr << avviso << std::endl; });
    segnalaPermessi(database);
    return;
  }
  const PermessiDatabase permessi;
  const auto altri = permessi.daSegnalare(database);
  if (!altri) return;
  permessi.segnalato(database);
  QMessageBox box(QMessageBox::Information, desktop::titled({}),
                  QStringLiteral("Il database «%1» può essere letto %2.")
                      .arg(QFileInfo(QString::fromStdString(database.origine)).fileName(),
                           QString::fromStdString(*altri)));
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(
      QStringLiteral("Contiene dati personali di percipienti e azienda. Si può riservarlo a chi ne è il "
                     "proprietario: gli altri non potranno più aprirlo.\n\nQuesto avviso non si ripete."));
  box.setObjectName(QStringLiteral("permessi"));
  const QPushButton* const riserva = box.addButton(QStringLiteral("&Riserva"), QMessageBox::AcceptRole);
  QPushButton* const lascia = box.addButton(QStringLiteral("&Lascia così"), QMessageBox::RejectRole);
  box.setDefaultButton(lascia);
  box.setEscapeButton(lascia);
  box.exec();
  if (box.clickedButton() != riserva) return;
  try {
    riservaDatabase(database);
  } catch (const FileError& errore) {
    QMessageBox(QMessageBox::Warning, desktop::titled({}),
                QStringLiteral("I permessi non si sono potuti cambiare, e restano com'erano.\n%1")
                    .arg(desktop::lines(errore.description())))
        .exec();
  }
}

void avvisaRegistro(const std::string& avviso) {
  std::cerr << avviso << std::endl;
  const auto mostra = [avviso] {
    auto* const box = new QMessageBox(QMessageBox::Warning, desktop::titled({}), desktop::lines(avviso));
    box->setTextFormat(Qt::PlainText);
    box->setObjectName(QStringLiteral("registro"));
    box->setInformativeText(QStringLiteral("Il lavoro prosegue come sempre, senza il registro."));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::NonModal);
    box->show();
  };
  if (qApp != nullptr && !senzaSchermo()) QMetaObject::invokeMethod(qApp, mostra, Qt::QueuedConnection);
}

void mostraErroreAvvio(const std::exception& errore) {
  logFailure("avvio", errore);
  std::cerr << errore.what() << '\n';
  if (senzaSchermo()) return;
  const MessaggioAvvio messaggio = messaggioAvvio(errore);
  QMessageBox box(QMessageBox::Critical, desktop::titled({}), QString());
  box.setTextFormat(Qt::PlainText);
  box.setText(messaggio.testo);
  box.setInformativeText(messaggio.dettaglio);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  box.exec();
}

}  // namespace cu
