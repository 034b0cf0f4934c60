#pragma once

class QTableView;

namespace cu::desktop {

// How the program's tables of rows behave and look: whole rows are highlighted, Tab leaves the table, every
// other row is tinted.
void styleRows(QTableView& table);

}  // namespace cu::desktop
