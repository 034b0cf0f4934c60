#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "suite/profilo.h"

// The windows that bring data in from other programs. Each is independent of the others and destroyed when it
// is closed.
namespace cu::assistente {

// With files that were chosen already, or none; `importate` is called whenever something was written.
void apriImportazione(const Profilo& profilo, const QStringList& file = {},
                      std::function<void()> importate = {});
// The batches of the database, and their undoing.
void apriStorico(const Profilo& profilo);

}  // namespace cu::assistente
