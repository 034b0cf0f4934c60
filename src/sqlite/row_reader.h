#pragma once

#include <sqlite3.h>

#include <memory>
#include <vector>

#include "data/rowstore.h"
#include "sqlite/catalog.h"

namespace cu::sqlite {

std::shared_ptr<const Columns> makeColumns(const std::vector<ColumnInfo>& columns);

// Appends the statement's current row.
void readRow(sqlite3_stmt* statement, const std::vector<ValueKind>& kinds, RowStore& rows);

}  // namespace cu::sqlite
