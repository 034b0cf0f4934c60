#pragma once

#include <string>
#include <string_view>

#include "sqlite/parser.h"
#include "sqlite/rewrite.h"
#include "sqlite/sql_error.h"
#include "support.h"

namespace cu::sqlite::test {

inline Rewritten rewritten(std::string_view text) {
  const TestCatalog catalog;
  const TokenList tokens = tokenize(text);
  const auto statements = parseStatements(tokens);
  if (statements.size() != 1) throw SqlError(0, "not one statement");
  return rewrite(*statements.front(), tokens.literals, catalog);
}

// The pieces, separated by " | ".
inline std::string adapted(std::string_view text) {
  std::string result;
  for (const Piece& piece : rewritten(text).pieces) {
    if (!result.empty()) result += " | ";
    result += piece.sql;
  }
  return result;
}

inline std::string refusal(std::string_view text) {
  try {
    return "accepted: " + adapted(text);
  } catch (const SqlError& error) {
    return error.what();
  }
}

}  // namespace cu::sqlite::test
