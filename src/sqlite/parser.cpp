#include "sqlite/parser.h"

#include <algorithm>

#include "base/text.h"
#include "sqlite/parser_state.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

constexpr int kDeepest = 100;

constexpr std::array<std::string_view, 92> kReserved = {
    "ADD",       "ALL",      "ALTER",     "AND",        "ANY",        "AS",      "ASC",      "AUTHORIZATION",
    "BACKUP",    "BEGIN",    "BETWEEN",   "BREAK",      "BY",         "CASCADE", "CASE",     "CHECK",
    "CLUSTERED", "COLLATE",  "COLUMN",    "COMMIT",     "CONSTRAINT", "CREATE",  "CROSS",    "CURSOR",
    "DATABASE",  "DECLARE",  "DEFAULT",   "DELETE",     "DENY",       "DESC",    "DISTINCT", "DROP",
    "ELSE",      "END",      "ESCAPE",    "EXCEPT",     "EXEC",       "EXECUTE", "EXISTS",   "FETCH",
    "FOR",       "FOREIGN",  "FROM",      "FULL",       "FUNCTION",   "GOTO",    "GRANT",    "GROUP",
    "HAVING",    "IDENTITY", "IF",        "IN",         "INDEX",      "INNER",   "INSERT",   "INTERSECT",
    "INTO",      "IS",       "JOIN",      "KEY",        "LEFT",       "LIKE",    "MERGE",    "NOT",
    "NULL",      "OF",       "ON",        "OPTION",     "OR",         "ORDER",   "OUTER",    "OVER",
    "PIVOT",     "PRIMARY",  "PROCEDURE", "REFERENCES", "RETURN",     "REVOKE",  "RIGHT",    "ROLLBACK",
    "SELECT",    "SET",      "SOME",      "TABLE",      "THEN",       "TOP",     "TRUNCATE", "UNION",
    "UNIQUE",    "UNPIVOT",  "UPDATE",    "VALUES"};
// Reserved beyond the list above, because they begin a clause.
constexpr std::array<std::string_view, 9> kReservedToo = {"VIEW", "WHEN",  "WHERE", "WHILE",      "WITH",
                                                          "USE",  "PRINT", "TRAN",  "TRANSACTION"};

}  // namespace

bool isReserved(const Token& token) {
  if (token.kind != TokenKind::Word) return false;
  const auto matches = [&](std::string_view word) { return token.isWord(word); };
  return std::any_of(kReserved.begin(), kReserved.end(), matches) ||
         std::any_of(kReservedToo.begin(), kReservedToo.end(), matches);
}

Parser::Nesting::Nesting(Parser& parser) : parser_(parser) {
  if (++parser_.depth_ > kDeepest) {
    --parser_.depth_;
    throw SqlError(parser_.peek().position, "espressione troppo annidata");
  }
}

const Token& Parser::peek(std::size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

const Token& Parser::take() {
  const Token& token = peek();
  if (token.kind != TokenKind::End) ++at_;
  return token;
}

bool Parser::at(std::string_view symbolOrWord, std::size_t ahead) const {
  const Token& token = peek(ahead);
  return token.is(symbolOrWord) || token.isWord(symbolOrWord);
}

bool Parser::accept(std::string_view symbolOrWord) {
  if (!at(symbolOrWord)) return false;
  take();
  return true;
}

void Parser::expect(std::string_view symbolOrWord) {
  if (accept(symbolOrWord)) return;
  if (isReserved(peek())) unexpected();
  const Token& token = peek();
  std::string found;
  switch (token.kind) {
    case TokenKind::End:
      found = "la fine";
      break;
    case TokenKind::Text:
      found = "un testo";
      break;
    case TokenKind::Number:
      found = "un numero";
      break;
    case TokenKind::Word:
    case TokenKind::Quoted:
    case TokenKind::Symbol:
      found = "«" + std::string(token.text) + "»";
      break;
  }
  throw SqlError(token.position, "atteso «" + std::string(symbolOrWord) + "», trovato " + found);
}

void Parser::unexpected() const {
  const Token& token = peek();
  switch (token.kind) {
    case TokenKind::End:
      throw SqlError(token.position, "l'istruzione è incompleta");
    case TokenKind::Text:
      throw SqlError(token.position, "un testo non è ammesso in questo punto");
    case TokenKind::Number:
      throw SqlError(token.position, "un numero non è ammesso in questo punto");
    case TokenKind::Word:
    case TokenKind::Quoted:
    case TokenKind::Symbol:
      break;
  }
  throw SqlError(token.position, "«" + std::string(token.text) + "» non è ammesso in questo punto");
}

void Parser::refuse(std::string_view construct) const {
  throw SqlError(peek().position,
                 "costruzione non ammessa dal database incorporato: " + std::string(construct));
}

bool Parser::atName() const {
  const Token& token = peek();
  if (token.kind == TokenKind::Quoted) return true;
  return token.kind == TokenKind::Word && !isReserved(token);
}

std::string Parser::name() {
  if (!atName()) unexpected();
  const Token& token = peek();
  if (token.kind == TokenKind::Word && token.text.front() == '@')
    refuse("variabile " + std::string(token.text));
  return take().name();
}

std::string Parser::objectName() {
  if (peek().kind == TokenKind::Word && peek().text.front() == '#') refuse("tabella temporanea");
  std::string first = name();
  if (!at(".")) return first;
  if (!equalsNoCase(first, "dbo")) refuse("nome con schema diverso da dbo");
  take();
  std::string second = name();
  if (at(".")) refuse("nome di oggetto con più di due parti");
  return second;
}

std::vector<std::string> Parser::nameList() {
  std::vector<std::string> names;
  expect("(");
  do {
    names.push_back(name());
  } while (accept(","));
  expect(")");
  return names;
}

std::vector<StatementPtr> parseStatements(const TokenList& tokens) { return Parser(tokens).statements(); }

CreateViewStatement parseStoredView(const TokenList& tokens) {
  Parser parser(tokens, Dialect::Stored);
  parser.expect("CREATE");
  parser.expect("VIEW");
  return parser.createView();
}

}  // namespace cu::sqlite
