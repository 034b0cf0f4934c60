#pragma once

#include <QString>

class QTableView;

namespace cu::desktop {

// How the program's tables of rows look and behave: whole rows are highlighted, Tab leaves the table, every
// other row is tinted, headings wrap and show the order, a zero among numbers is pale, the current row has
// lines around it, and what is cut is shown in a tooltip.
void styleRows(QTableView& table);

// "0", "0,00": digits of a number that is zero.
bool showsZero(const QString& text);
// "1.234,50", "-12,00": an amount with its cents.
bool showsAmount(const QString& text);

}  // namespace cu::desktop
