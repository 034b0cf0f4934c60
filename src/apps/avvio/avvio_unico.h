#pragma once

#include <QLockFile>
#include <QString>
#include <memory>

#include "suite/profilo.h"

namespace cu {

// Marks a user's work on a database for the lifetime of the object, so that a second start of the same user
// on the same database can be announced: both would have the same work table. The mark is a file of the
// desktop's user that names the process; one whose process has ended does not count.
class AvvioUnico {
 public:
  // `cartella` is that of the marks; created where it is missing.
  AvvioUnico(const Profilo& profilo, const QString& cartella);
  static QString cartellaDelSistema();
  // Whether another process works there already.
  bool altro() const { return altro_; }
  // For the user; empty where there is no other.
  QString avviso() const;

 private:
  std::unique_ptr<QLockFile> segno_;
  bool altro_ = false;
  qint64 processo_ = 0;
  std::int32_t utente_;
};

}  // namespace cu
