#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/literal.h"

namespace cu::sqlite {

// The server's dialect, or the texts that the file itself holds (views as SQLite keeps them).
enum class Dialect { Server, Stored };

enum class TokenKind { End, Word, Quoted, Text, Number, Symbol };

struct Token {
  TokenKind kind = TokenKind::End;
  std::size_t position = 0;
  std::string_view text;    // as it stands; of a quoted name and of a text what stands between the marks
  std::size_t ordinal = 0;  // of a text or number: which literal of the statement it is, from 0
  char mark = 0;            // of a quoted name: what closes it

  bool is(std::string_view symbol) const { return kind == TokenKind::Symbol && text == symbol; }
  bool isWord(std::string_view upperCase) const;  // regardless of case
  bool isName() const { return kind == TokenKind::Word || kind == TokenKind::Quoted; }
  std::string name() const;  // of a word or a quoted name, marks resolved
};

struct TokenList {
  std::vector<Token> tokens;  // the last one is End
  std::vector<Literal> literals;
  std::vector<std::size_t> literalEnds;    // behind each literal
  std::vector<std::size_t> literalStarts;  // at its first byte, the quote of a text
};

// Splits a text; blanks and comments are passed over. Views point into the text. SqlError for a byte that
// begins nothing, for an open quote or comment, for a number that runs into a word.
TokenList tokenize(std::string_view text, Dialect dialect = Dialect::Server);

}  // namespace cu::sqlite
