#include "apps/avvio/avvio_unico.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace cu {
namespace {

// A file by its real name, so that two ways to it are one database. The temporary folder can be that of all
// users of the machine.
QString identita(const Profilo& profilo) {
  const QString origine = QString::fromStdString(profilo.database.origine);
  const QString vera = QFileInfo(origine).canonicalFilePath();
  return (vera.isEmpty() ? origine : vera) + u'\n' + QString::number(profilo.sessione.utente) + u'\n' +
         QDir::homePath();
}

}  // namespace

QString AvvioUnico::cartellaDelSistema() {
  const QString corsa = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return !corsa.isEmpty() && QFileInfo(corsa).isWritable() ? corsa : QDir::tempPath();
}

// Without the folder there is no mark, and no warning.
AvvioUnico::AvvioUnico(const Profilo& profilo, const QString& cartella) : utente_(profilo.sessione.utente) {
  if (!QDir().mkpath(cartella)) return;
  const QByteArray impronta =
      QCryptographicHash::hash(identita(profilo).toUtf8(), QCryptographicHash::Sha256).toHex().left(32);
  segno_ = std::make_unique<QLockFile>(
      QDir(cartella).filePath(QStringLiteral("cuwizard-%1.lock").arg(QString::fromLatin1(impronta))));
  segno_->setStaleLockTime(0);  // the mark of a process that lives counts, however old it is
  if (segno_->tryLock(0) || segno_->error() != QLockFile::LockFailedError) return;
  altro_ = true;
  QString macchina;
  QString programma;
  segno_->getLockInfo(&processo_, &macchina, &programma);
}

QString AvvioUnico::avviso() const {
  if (!altro_) return {};
  return QStringLiteral(
             "La procedura è già aperta su questo database per l'utente %1 (processo %2).\n\n"
             "Le due finestre userebbero la stessa tabella di lavoro: caricando i compensi in una, le "
             "correzioni non memorizzate dell'altra andrebbero perdute.")
      .arg(utente_)
      .arg(processo_);
}

}  // namespace cu
