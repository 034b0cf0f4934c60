#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/literal.h"

namespace cu::sqlite {

// The server's dialect, or the texts stored in the file itself (views in SQLite's form).
enum class Dialect { Server, Stored };

enum class TokenKind { End, Word, Quoted, Text, Number, Symbol };

struct Token {
  TokenKind kind = TokenKind::End;
  std::size_t position = 0;
  std::string_view text;    // as written; of a quoted name and of a text the part between the marks
  std::size_t ordinal = 0;  // of a text or number: index among the literals of the statement, from 0
  char mark = 0;            // of a quoted name: its closing mark

  bool is(std::string_view symbol) const { return kind == TokenKind::Symbol && text == symbol; }
  bool isWord(std::string_view upperCase) const;  // compares without case
  bool isName() const { return kind == TokenKind::Word || kind == TokenKind::Quoted; }
  std::string name() const;  // of a word or a quoted name, marks undoubled
};

struct TokenList {
  std::vector<Token> tokens;  // the last one is End
  std::vector<Literal> literals;
  std::vector<std::size_t> literalEnds;    // after each literal
  std::vector<std::size_t> literalStarts;  // first byte of each literal, the quote of a text
};

// Splits a text; blanks and comments are skipped. Views point into the text. Raises SqlError for a byte that
// begins no token, for an unclosed quote or comment, for a number directly followed by a word.
TokenList tokenize(std::string_view text, Dialect dialect = Dialect::Server);

}  // namespace cu::sqlite
