#include "sqlite/stored_catalog.h"

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/errors.h"
#include "sqlite/parser.h"
#include "sqlite/types.h"

namespace cu::sqlite {
namespace {

constexpr int kDeepestView = 20;

void bindText(sqlite3_stmt* statement, const std::string& text) {
  sqlite3_bind_text(statement, 1, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

}  // namespace

bool StoredCatalog::refresh() {
  if (version_ == nullptr) version_ = prepare(database_, "PRAGMA schema_version", "");
  const Running running(version_.get());
  if (sqlite3_step(version_.get()) != SQLITE_ROW) raise(database_, "");
  const std::int64_t version = sqlite3_column_int64(version_.get(), 0);
  if (version == seen_) return false;
  seen_ = version;
  clear();
  return true;
}

std::shared_ptr<const TableInfo> StoredCatalog::find(std::string_view name) const {
  const std::string key = lowerAscii(name);
  const auto known = known_.find(key);
  if (known != known_.end()) return known->second;
  // A view that refers to itself has no columns.
  if (depth_ >= kDeepestView) return nullptr;
  ++depth_;
  std::shared_ptr<const TableInfo> found = read(std::string(name));
  --depth_;
  if (found != nullptr) known_.emplace(key, found);
  return found;
}

std::shared_ptr<const TableInfo> StoredCatalog::read(const std::string& name) const {
  const StatementHandle query =
      prepare(database_,
              "SELECT name, type, sql FROM sqlite_schema WHERE type IN ('table', 'view') AND "
              "lower(name) = lower(?1)",
              "");
  bindText(query.get(), name);
  const int code = sqlite3_step(query.get());
  if (code == SQLITE_DONE) return nullptr;
  if (code != SQLITE_ROW) raise(database_, "");
  auto table = std::make_shared<TableInfo>();
  table->name = columnText(query.get(), 0);
  table->view = columnText(query.get(), 1) == "view";
  if (table->view) {
    readView(*table, std::string(columnText(query.get(), 2)));
  } else {
    readTable(*table);
  }
  return table;
}

void StoredCatalog::readTable(TableInfo& table) const {
  const StatementHandle columns = preparePragma(database_, "table_xinfo", table.name);
  bool integerKey = false;
  std::vector<std::string> key;
  while (sqlite3_step(columns.get()) == SQLITE_ROW) {
    ColumnInfo column;
    column.name = columnText(columns.get(), 1);
    const std::string type(columnText(columns.get(), 2));
    const char* collation = nullptr;
    sqlite3_table_column_metadata(database_, "main", table.name.c_str(), column.name.c_str(), nullptr,
                                  &collation, nullptr, nullptr, nullptr);
    column.collated = collation != nullptr && equalsNoCase(collation, "NOCASE");
    column.kind = kindOfStored(type, column.collated);
    column.notNull = sqlite3_column_int(columns.get(), 3) != 0;
    const int part = sqlite3_column_int(columns.get(), 5);
    if (part > 0) {
      if (key.size() < static_cast<std::size_t>(part)) key.resize(static_cast<std::size_t>(part));
      key[static_cast<std::size_t>(part) - 1] = column.name;
      integerKey = equalsNoCase(type, "INTEGER");
    }
    table.columns.push_back(std::move(column));
  }
  table.primaryKey = std::move(key);
  if (integerKey && table.primaryKey.size() == 1 && !keyHasIndex(table.name)) {
    table.rowNumber = table.find(table.primaryKey.front());
  }
}

// A key that is the row's number has no index. The list of tables would say of a table whether it has
// numbers, but only after the engine has resolved every view of the database.
bool StoredCatalog::keyHasIndex(const std::string& table) const {
  const StatementHandle indexes = preparePragma(database_, "index_list", table);
  constexpr int kOrigin = 3;
  while (sqlite3_step(indexes.get()) == SQLITE_ROW) {
    if (columnText(indexes.get(), kOrigin) == "pk") return true;
  }
  return false;
}

void StoredCatalog::readView(TableInfo& view, const std::string& sql) const {
  try {
    const TokenList tokens = tokenize(sql, Dialect::Stored);
    CreateViewStatement statement = parseStoredView(tokens);
    Analysis(*this, Dialect::Stored).view(*statement.select);
    view.columns = statement.select->output;
    return;
  } catch (const SqlError&) {
    // Another program's view: its column names are known, their kinds only from the values.
    view.columns.clear();
  }
  const StatementHandle columns =
      prepare(database_, "SELECT name FROM pragma_table_xinfo(?1) ORDER BY cid", "");
  bindText(columns.get(), view.name);
  while (sqlite3_step(columns.get()) == SQLITE_ROW) {
    view.columns.push_back({std::string(columnText(columns.get(), 0)), ValueKind::Unknown, false, false});
  }
}

}  // namespace cu::sqlite
