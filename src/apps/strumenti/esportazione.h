#pragma once

#include <QString>

class QAbstractItemModel;

namespace cu::strumenti {

// Writes a table as it is shown: UTF-8 with a mark at its beginning, columns separated by ";". Returns what
// went wrong; the file is then as it was before.
QString scriviCsv(const QAbstractItemModel& tabella, const QString& percorso);

}  // namespace cu::strumenti
