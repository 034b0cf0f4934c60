#include "sqlite/engine.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/text.h"
#include "sqlite/conversion.h"
#include "sqlite/errors.h"
#include "sqlite/parser.h"
#include "sqlite/row_reader.h"

namespace cu::sqlite {
namespace {

constexpr std::size_t kKeptStatements = 64;
constexpr std::size_t kLongestKept = 1U << 16;
constexpr int kDeepestExec = 4;

// The name in "name", "[name]" or "[dbo].[name]"; empty for any other text.
std::string plainTable(const std::vector<Token>& tokens) {
  const std::size_t count = tokens.size() - 1;
  if (count == 1 && tokens[0].isName()) return tokens[0].name();
  const bool full = count == 3 && tokens[0].isName() && tokens[1].is(".") && tokens[2].isName();
  if (full && equalsNoCase(tokens[0].name(), "dbo")) return tokens[2].name();
  return {};
}

std::string firstWord(const std::vector<Token>& tokens) {
  return tokens.front().kind == TokenKind::Word ? upperAscii(tokens.front().text) : std::string();
}

// The engine has prepared a statement again because another program has changed the tables.
bool changedOutside(const PreparedStatement& statement) {
  return std::any_of(statement.pieces.begin(), statement.pieces.end(), [](const PreparedPiece& piece) {
    return sqlite3_stmt_status(piece.statement.get(), SQLITE_STMTSTATUS_REPREPARE, 0) != 0;
  });
}

// Other programs create and drop their work tables at any time: a text is adapted again when the tables have
// changed since, and only one whose tables change each time is an error.
constexpr int kAdaptations = 100;
struct TablesChanged {};

[[noreturn]] void raiseChanged(const std::string& kind) {
  throw DatabaseError(DatabaseErrorKind::Other, SQLITE_SCHEMA, kind,
                      "Un altro programma ha modificato le tabelle del database. Ripetere l'operazione.");
}

bool writes(const PreparedStatement& statement) {
  return std::any_of(statement.pieces.begin(), statement.pieces.end(), [](const PreparedPiece& piece) {
    return sqlite3_stmt_readonly(piece.statement.get()) == 0;
  });
}

}  // namespace

// A text being run, statement by statement.
struct Engine::Text {
  std::string_view text;
  const TokenList& tokens;
  RowStore* rows;
  int depth;
  bool alone;        // the text consists of one statement
  std::size_t done;  // number of its statements that were run
};

Engine::Engine(DatabaseHandle database)
    : database_(std::move(database)),
      catalog_(database_.get()),
      cache_(kKeptStatements),
      transactions_(database_.get()) {}

void Engine::forget() {
  cache_.clear();
  catalog_.clear();
}

void Engine::run(std::string_view text, RowStore* rows, int depth) {
  if (depth == 0) touched_ = -1;
  if (PreparedStatement* known = cache_.find(text, literals_)) {
    const bool ran = runPrepared(*known, literals_, rows);
    // The cached analysis of statements is valid only for the old tables.
    if (changedOutside(*known)) forget();
    if (ran) return;
  }
  compile(text, rows, depth);
}

void Engine::compile(std::string_view text, RowStore* rows, int depth) {
  std::string kind;
  try {
    const TokenList tokens = tokenize(text);
    kind = firstWord(tokens.tokens);
    Text whole{text, tokens, rows, depth, true, 0};
    for (int adaptation = 1; !adapt(whole, kind); ++adaptation) {
      if (adaptation == kAdaptations) raiseChanged(kind);
    }
  } catch (const SqlError& error) {
    throw refused(error, kind);
  }
}

// Runs what is left of a text; returns false when the tables have changed before a query of it was run.
bool Engine::adapt(Text& whole, std::string& kind) {
  if (catalog_.refresh()) cache_.clear();
  try {
    const std::string table = whole.rows == nullptr ? std::string() : plainTable(whole.tokens.tokens);
    if (!table.empty()) {
      kind = "SELECT";
      readTable(table, whole);
      return true;
    }
    const std::vector<StatementPtr> statements = parseStatements(whole.tokens);
    if (statements.empty()) throw SqlError(0, "testo senza istruzioni");
    whole.alone = statements.size() == 1;
    for (; whole.done < statements.size(); ++whole.done) {
      kind = statements[whole.done]->kind;
      runStatement(*statements[whole.done], whole);
    }
  } catch (const TablesChanged&) {
    return false;
  }
  return true;
}

void Engine::readTable(const std::string& table, Text& text) {
  const Rewritten rewritten = rewriteTable(table, catalog_);
  std::unique_ptr<PreparedStatement> prepared = ready(rewritten, "SELECT");
  if (!runPrepared(*prepared, text.tokens.literals, text.rows)) throw TablesChanged();
  keep(text.text, text, std::move(prepared), rewritten);
}

void Engine::runStatement(Statement& statement, Text& text) {
  if (std::holds_alternative<NothingStatement>(statement.body)) return;
  if (const auto* transaction = std::get_if<TransactionStatement>(&statement.body)) {
    transactions_.statement(transaction->verb);
    return;
  }
  if (const auto* exec = std::get_if<ExecStatement>(&statement.body)) {
    if (text.depth >= kDeepestExec) throw SqlError(statement.position, "EXEC troppo annidata");
    const std::string inner = plainText(text.tokens.literals[exec->literal]);
    run(inner, text.rows, text.depth + 1);
    return;
  }
  if (auto* condition = std::get_if<IfStatement>(&statement.body)) {
    runIf(*condition, text);
    return;
  }
  runSimple(statement, text);
}

void Engine::runIf(IfStatement& statement, Text& text) {
  text.alone = false;
  if (holds(*statement.condition, text)) runStatement(*statement.then, text);
}

bool Engine::holds(Expr& condition, Text& text) {
  const Piece piece = rewriteCondition(condition, text.tokens.literals, catalog_);
  PreparedPiece prepared{piece.role, prepare(handle(), piece.sql, "IF"), piece.parameters};
  ++prepared_;
  bind(prepared, text.tokens.literals, "IF");
  const int code = sqlite3_step(prepared.statement.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) raise(handle(), "IF");
  return code == SQLITE_ROW;
}

void Engine::runSimple(Statement& statement, Text& text) {
  const Rewritten rewritten = rewrite(statement, text.tokens.literals, catalog_, Sorting::WideByCaller);
  // No statement may be running or cached when the tables change.
  if (rewritten.definition) forget();
  std::unique_ptr<PreparedStatement> prepared = ready(rewritten, statement.kind);
  if (!runPrepared(*prepared, text.tokens.literals, text.rows)) throw TablesChanged();
  if (rewritten.query) text.rows = nullptr;
  if (rewritten.definition) {
    forget();
  } else if (text.alone) {
    keep(text.text, text, std::move(prepared), rewritten);
  }
}

void Engine::keep(std::string_view shape, const Text& text, std::unique_ptr<PreparedStatement> statement,
                  const Rewritten& rewritten) {
  if (shape.size() > kLongestKept) return;
  std::vector<bool> bound(text.tokens.literals.size(), false);
  for (const Piece& piece : rewritten.pieces) {
    for (const Parameter& parameter : piece.parameters) bound[parameter.literal] = true;
  }
  cache_.add(Shape(shape, text.tokens, bound), std::move(statement));
}

std::unique_ptr<PreparedStatement> Engine::ready(const Rewritten& rewritten, std::string kind) {
  auto result = std::make_unique<PreparedStatement>();
  result->kind = std::move(kind);
  result->query = rewritten.query;
  result->definition = rewritten.definition;
  result->order = rewritten.order;
  for (const Piece& piece : rewritten.pieces) {
    result->pieces.push_back(
        {piece.role, prepare(handle(), piece.sql, result->kind, !rewritten.definition), piece.parameters});
    ++prepared_;
  }
  result->writes = writes(*result);
  if (!rewritten.query) return result;
  std::vector<ColumnInfo> columns = rewritten.columns;
  sqlite3_stmt* statement = result->pieces.front().statement.get();
  const auto count = static_cast<std::size_t>(sqlite3_column_count(statement));
  for (std::size_t i = columns.size(); i < count; ++i) {
    columns.push_back({sqlite3_column_name(statement, static_cast<int>(i)), ValueKind::Unknown});
  }
  columns.resize(count);
  for (const ColumnInfo& column : columns) result->kinds.push_back(column.kind);
  result->columns = makeColumns(columns);
  return result;
}

// Returns false when the tables have changed under a cached query; nothing has been read then.
bool Engine::runPrepared(PreparedStatement& statement, const std::vector<Literal>& literals, RowStore* rows) {
  if (!statement.writes) {
    for (PreparedPiece& piece : statement.pieces) {
      if (!runPiece(statement, piece, literals, rows)) return false;
    }
    return true;
  }
  Transactions::Writing writing(transactions_, statement.pieces.size() > 1);
  std::int64_t touched = -1;
  for (PreparedPiece& piece : statement.pieces) {
    runPiece(statement, piece, literals, nullptr);
    const bool changes = !statement.definition && sqlite3_stmt_readonly(piece.statement.get()) == 0;
    if (changes) touched = std::max<std::int64_t>(touched, 0) + sqlite3_changes64(handle());
  }
  writing.done();
  touched_ = touched;
  return true;
}

bool Engine::runPiece(PreparedStatement& statement, PreparedPiece& piece,
                      const std::vector<Literal>& literals, RowStore* rows) {
  sqlite3_stmt* handle = piece.statement.get();
  bind(piece, literals, statement.kind);
  const Running running(handle);
  int code = sqlite3_step(handle);
  if (statement.query && sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_REPREPARE, 0) != 0) return false;
  if (piece.role == Piece::Role::Ambiguous && code == SQLITE_ROW) {
    throw DatabaseError(DatabaseErrorKind::Constraint, 0, statement.kind,
                        "MERGE troverebbe più righe per la stessa riga da modificare.");
  }
  if (rows != nullptr && statement.query) {
    rows->setColumns(statement.columns);
    const std::size_t first = rows->size();
    for (; code == SQLITE_ROW; code = sqlite3_step(handle)) readRow(handle, statement.kinds, *rows);
    if (code == SQLITE_DONE) sortRows(*rows, first, statement.order);
  } else {
    while (code == SQLITE_ROW) code = sqlite3_step(handle);
  }
  if (code != SQLITE_DONE) raise(database_.get(), statement.kind);
  return true;
}

void Engine::bind(const PreparedPiece& piece, const std::vector<Literal>& literals,
                  std::string_view kind) const {
  sqlite3_stmt* statement = piece.statement.get();
  for (const Parameter& parameter : piece.parameters) {
    const Literal& literal = literals[parameter.literal];
    const int index = static_cast<int>(parameter.literal) + 1;
    int code = SQLITE_OK;
    if (literal.kind == Literal::Kind::Text && parameter.conversion == Conversion::AsIs && !literal.doubled) {
      // Points into the statement's text, which outlives the run.
      code = sqlite3_bind_text64(statement, index, literal.text.data(), literal.text.size(), SQLITE_STATIC,
                                 SQLITE_UTF8);
    } else {
      try {
        const StoredValue value = convert(literal, parameter.conversion);
        if (const auto* integer = std::get_if<std::int64_t>(&value)) {
          code = sqlite3_bind_int64(statement, index, *integer);
        } else if (const auto* real = std::get_if<double>(&value)) {
          code = sqlite3_bind_double(statement, index, *real);
        } else {
          const auto& text = std::get<std::string>(value);
          code =
              sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
        }
      } catch (const SqlError& error) {
        throw unfit(error, kind);
      }
    }
    if (code != SQLITE_OK) raise(database_.get(), kind);
  }
}

}  // namespace cu::sqlite
