// The tokenizer, the parser and the rewriting accept any bytes, and the engine can prepare every text that
// they produce.
#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include "sqlite/handle.h"
#include "sqlite/own_functions.h"
#include "sqlite/parser.h"
#include "sqlite/rewrite.h"
#include "sqlite/shape.h"
#include "sqlite/sql_error.h"
#include "sqlite/stored_catalog.h"

namespace {

using namespace cu::sqlite;

[[noreturn]] void fault(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

struct Database {
  Database() {
    sqlite3* raw = nullptr;
    if (sqlite3_open(":memory:", &raw) != SQLITE_OK) fault("no database");
    handle.reset(raw);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    installFunctions(raw);
    execute(raw,
            "CREATE TABLE t (id INTEGER NOT NULL, nome TEXT COLLATE NOCASE, importo NUMERIC, giorno TEXT, "
            "PRIMARY KEY (id)); CREATE TABLE u (id INTEGER NOT NULL, anno INTEGER NOT NULL, nome TEXT "
            "COLLATE NOCASE, "
            "importo NUMERIC, PRIMARY KEY (id, anno)) WITHOUT ROWID; "
            "CREATE VIEW v AS SELECT id, rtrim(nome) COLLATE NOCASE AS n, round(importo + 1, 4) AS i FROM t");
    catalog = std::make_unique<StoredCatalog>(raw);
  }
  DatabaseHandle handle;
  std::unique_ptr<StoredCatalog> catalog;
};

// Limits of the engine, and errors found at preparing: no fault of the adapted text.
bool allowed(std::string_view message) {
  for (const std::string_view known :
       {"too many", "misuse of aggregate", "at most", "expression tree is too large", "already exists",
        "variable number", "GROUP BY", "ORDER BY", "HAVING", "RIGHT and FULL", "circularly", "aggregate"}) {
    if (message.find(known) != std::string_view::npos) return true;
  }
  return false;
}

// A parsed text matches its own shape.
void checkShape(std::string_view text, const TokenList& tokens) {
  const Shape shape(text, tokens, std::vector<bool>(tokens.literals.size(), true));
  std::vector<Literal> literals;
  if (!shape.matches(text, literals)) fault("a text is not of its own shape");
  if (literals.size() != tokens.literals.size()) fault("literals are lost");
  for (std::size_t i = 0; i < literals.size(); ++i) {
    if (literals[i].text != tokens.literals[i].text) fault("a literal is cut differently");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Database database;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    const TokenList tokens = tokenize(text);
    checkShape(text, tokens);
    for (const StatementPtr& statement : parseStatements(tokens)) {
      const Rewritten rewritten = rewrite(*statement, tokens.literals, *database.catalog);
      for (const Piece& piece : rewritten.pieces) {
        sqlite3_stmt* prepared = nullptr;
        const int code = sqlite3_prepare_v2(database.handle.get(), piece.sql.c_str(),
                                            static_cast<int>(piece.sql.size()), &prepared, nullptr);
        const StatementHandle owned(prepared);
        if (code != SQLITE_OK && !allowed(sqlite3_errmsg(database.handle.get()))) {
          std::fprintf(stderr, "%s\n%s\n", piece.sql.c_str(), sqlite3_errmsg(database.handle.get()));
          fault("the engine does not take what was made of the text");
        }
        if (prepared != nullptr && rewritten.query &&
            static_cast<std::size_t>(sqlite3_column_count(prepared)) != rewritten.columns.size()) {
          fault("the columns are counted differently");
        }
      }
    }
  } catch (const SqlError& error) {
    if (error.position() > size) fault("a position outside the text");
  }
  try {
    parseStoredView(tokenize(text, Dialect::Stored));
  } catch (const SqlError&) {
    return 0;
  }
  return 0;
}
