#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <unordered_map>

#include "sqlite/catalog.h"
#include "sqlite/handle.h"

namespace cu::sqlite {

// The tables and views of an open file, each read at first use.
class StoredCatalog : public Catalog {
 public:
  explicit StoredCatalog(sqlite3* database) : database_(database) {}
  std::shared_ptr<const TableInfo> find(std::string_view name) const override;

  // Clears the cache after the tables have changed.
  void clear() { known_.clear(); }
  // Clears the cache when another program has changed the tables; returns whether it has.
  bool refresh();

 private:
  std::shared_ptr<const TableInfo> read(const std::string& name) const;
  void readTable(TableInfo& table) const;
  bool keyHasIndex(const std::string& table) const;
  void readView(TableInfo& view, const std::string& sql) const;

  sqlite3* database_;
  StatementHandle version_;
  std::int64_t seen_ = -1;
  mutable std::unordered_map<std::string, std::shared_ptr<const TableInfo>> known_;
  mutable int depth_ = 0;
};

}  // namespace cu::sqlite
