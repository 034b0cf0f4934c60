#pragma once

#include <QString>

class QAbstractItemModel;

namespace cu::strumenti {

// Writes a table as it is shown: a workbook where the name ends with .xlsx, else a text (CSV). Returns what
// went wrong, in Italian; "" for success.
QString scriviTabella(const QAbstractItemModel& modello, const QString& percorso);

}  // namespace cu::strumenti
