#pragma once

#include <QList>
#include <QString>

#include "base/value.h"
#include "tabelle/scrittura.h"

class QAbstractItemModel;

namespace cu::desktop {

// Rows and columns of a model as they are shown, in the order given; what is shown at the right as a number
// is one.
tabelle::TabellaDaScrivere tableAsShown(const QAbstractItemModel& model, const QList<int>& columns);

// The number that "1.234,50" shows; the text itself where it shows none.
Value numberShown(const QString& text);

}  // namespace cu::desktop
