#pragma once

#include <QString>

namespace cu::desktop {

class GridModel;

// A row in view that a person looks for.
struct RowFound {
  int row = -1;  // -1 for none
  QString by;    // what it was found by, where that is no column: the field's name and text
};

// Returns the first row from `from`, cyclically, whose text in the column begins with `what`, otherwise the
// first that contains it, otherwise the first that has a further field, which the grid names, beginning with
// it. Case and accents are ignored.
RowFound findRow(const GridModel& model, const QString& what, int column, int from);
// Returns the match after `row`: all rows whose text begins with `what`, then all others that contain it,
// then those with such a field, cyclically.
RowFound findNextRow(const GridModel& model, const QString& what, int column, int row);

}  // namespace cu::desktop
