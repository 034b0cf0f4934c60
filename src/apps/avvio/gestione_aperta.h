#pragma once

#include <QString>
#include <algorithm>

#include "apps/comune/colonne_percipienti.h"
#include "apps/comune/impianto_gestione.h"
#include "apps/strumenti/registro_finestre.h"
#include "desktop/input_drain.h"
#include "desktop/qt_front_end.h"
#include "suite/profilo.h"

namespace cu {

// The forms for own data in their windows, on one database.
class GestioneAperta {
 public:
  GestioneAperta(const Profilo& profilo, const QString& guida)
      : profilo_(profilo), schermo_(guida), impianto_(profilo_, schermo_, escPremuto) {
    schermo_.furtherColumns = [this](const LookupTable& elenco) {
      return colonnePercipienti(profilo_.database, elenco);
    };
    strumenti::registraEventi(schermo_);
  }

  desktop::QtFrontEnd& schermo() { return schermo_; }
  // False where no window could be opened; the reason was shown.
  bool apri() {
    schermo_.runEvent([this] { impianto_.gestione().main(); });
    return schermo_.anyOpen();
  }

 private:
  // What else was pressed during a work is discarded.
  static bool escPremuto() {
    const desktop::Keys premuti = desktop::drainKeys();
    return std::any_of(premuti.begin(), premuti.end(),
                       [](const auto& tasto) { return tasto->key() == Qt::Key_Escape; });
  }

  Profilo profilo_;
  desktop::QtFrontEnd schermo_;
  ImpiantoGestione impianto_;
};

}  // namespace cu
