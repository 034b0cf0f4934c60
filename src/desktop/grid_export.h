#pragma once

#include <QString>

#include "tabelle/scrittura.h"

namespace cu::desktop {

class GridModel;
class GridView;

// A heading for a table without a window: the flag whose caption is a count has a name.
QString headingText(const GridModel& model, int column);

// The rows and columns as they are seen; numbers and days as such, everything else as it is shown.
tabelle::TabellaDaScrivere tableAsSeen(GridView& view);

// Writes a workbook where the name ends with .xlsx, otherwise a text (CSV). A file of that name is replaced
// when the whole new one is there. Raises an Error.
void writeTable(const tabelle::TabellaDaScrivere& table, const QString& path);

}  // namespace cu::desktop
