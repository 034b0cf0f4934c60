#include "desktop/status.h"

#include <QFileInfo>
#include <utility>

#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kPreview = 1;
constexpr int kPrinter = 2;

}  // namespace

void Status::forget() {
  if (!begun_) return;
  begun_ = false;
  facts_.clear();
  files_.clear();
  asked_ = 0;
  printer_.clear();
  offer_ = {};
}

void Status::tell(const QString& fact) {
  forget();
  ++told_;
  facts_ += fact;
}

void Status::offer(Offer offer) {
  forget();
  ++told_;
  offer_ = std::move(offer);
}

void Status::print(const PrintNote& note) {
  if (note.kind == kPreview) return;
  forget();
  ++told_;
  if (note.interrupted) {
    const QFileInfo file(shown(note.file));
    facts_ += (file.exists() ? QStringLiteral("Stampa interrotta: %1 resta com'era.")
                             : QStringLiteral("Stampa interrotta: %1 non è stato creato."))
                  .arg(file.fileName());
    return;
  }
  if (note.kind == kPrinter) {
    if (!note.written) return;
    printer_ = shown(note.printer);
    copies_ = note.copies;
    return;
  }
  ++asked_;
  if (!note.written) return;
  if (files_.isEmpty()) first_ = shown(note.file);
  files_ += shown(note.file);
}

QString Status::words() const {
  QStringList all = facts_;
  if (!printer_.isEmpty()) {
    all += copies_ > 1 ? QStringLiteral("Inviate %L1 copie alla stampante %2.").arg(copies_).arg(printer_)
                       : QStringLiteral("Inviata alla stampante %1.").arg(printer_);
  }
  if (asked_ == 1 && files_.size() == 1) {
    all += QStringLiteral("Creato %1.").arg(QFileInfo(first_).fileName());
  } else if (asked_ > 0 && files_.isEmpty()) {
    all += QStringLiteral("Nessuna stampa è stata scritta.");
  } else if (asked_ == files_.size() && asked_ > 0) {
    all += QStringLiteral("File di stampa creati: %L1.").arg(asked_);
  } else if (asked_ > 0) {
    all += QStringLiteral("File di stampa creati: %L1 su %L2.").arg(files_.size()).arg(asked_);
  }
  return all.isEmpty() ? QStringLiteral("Pronto") : all.join(u' ');
}

QString Status::file() const { return files_.size() == 1 ? first_ : QString(); }
QString Status::folder() const { return files_.isEmpty() ? QString() : QFileInfo(first_).absolutePath(); }

}  // namespace cu::desktop
