#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/rowstore.h"
#include "sqlite/handle.h"
#include "sqlite/rewrite.h"
#include "sqlite/statement_cache.h"
#include "sqlite/stored_catalog.h"
#include "sqlite/transactions.h"

namespace cu::sqlite {

// Runs texts in the server's dialect on an open file.
class Engine {
 public:
  explicit Engine(DatabaseHandle database);

  // `rows`, if not null, receives the rows of the first query of the text; a plain table name is such a
  // query.
  void run(std::string_view text, RowStore* rows, int depth = 0);

  // Number of rows inserted, changed or deleted by the last statement of the last text; -1 for any other
  // statement.
  std::int64_t touched() const { return touched_; }

  Transactions& transactions() { return transactions_; }
  sqlite3* handle() const { return database_.get(); }
  std::size_t prepared() const { return prepared_; }

 private:
  struct Text;
  void compile(std::string_view text, RowStore* rows, int depth);
  bool adapt(Text& whole, std::string& kind);
  void readTable(const std::string& table, Text& text);
  void runStatement(Statement& statement, Text& text);
  void runSimple(Statement& statement, Text& text);
  void runIf(IfStatement& statement, Text& text);
  bool holds(Expr& condition, Text& text);
  void keep(std::string_view shape, const Text& text, std::unique_ptr<PreparedStatement> statement,
            const Rewritten& rewritten);
  std::unique_ptr<PreparedStatement> ready(const Rewritten& rewritten, std::string kind);
  bool runPrepared(PreparedStatement& statement, const std::vector<Literal>& literals, RowStore* rows);
  bool runPiece(PreparedStatement& statement, PreparedPiece& piece, const std::vector<Literal>& literals,
                RowStore* rows);
  void bind(const PreparedPiece& piece, const std::vector<Literal>& literals, std::string_view kind) const;
  void forget();

  DatabaseHandle database_;
  StoredCatalog catalog_;
  StatementCache cache_;
  Transactions transactions_;
  std::vector<Literal> literals_;
  std::size_t prepared_ = 0;
  std::int64_t touched_ = -1;
};

}  // namespace cu::sqlite
