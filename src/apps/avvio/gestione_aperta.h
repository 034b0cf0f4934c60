#pragma once

#include <QString>

#include "apps/comune/impianto_gestione.h"
#include "desktop/qt_front_end.h"
#include "suite/profilo.h"

namespace cu {

// The forms for own data in their windows, on one database.
class GestioneAperta {
 public:
  GestioneAperta(const Profilo& profilo, const QString& guida)
      : profilo_(profilo), schermo_(guida), impianto_(profilo_, schermo_) {}

  desktop::QtFrontEnd& schermo() { return schermo_; }
  // False where no window could be opened; the reason was shown.
  bool apri() {
    schermo_.runEvent([this] { impianto_.gestione().main(); });
    return schermo_.anyOpen();
  }

 private:
  Profilo profilo_;
  desktop::QtFrontEnd schermo_;
  ImpiantoGestione impianto_;
};

}  // namespace cu
