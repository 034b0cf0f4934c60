#pragma once

#include <QString>

#include "suite/profilo.h"

namespace cu {

// Runs the wizard in its window, and the windows for telematic files opened from it, until the last one is
// closed; returns the program's exit code. A copy that the user wants in the place of the database is put
// there while nothing of the wizard is open; then the wizard starts again, whether the copy could be used or
// not. `guida` is the folder of the user's guide. Requires a QApplication whose event loop is not running.
int eseguiProcedura(const Profilo& profilo, const QString& guida);

}  // namespace cu
