#include "sqlite/tokenizer.h"

#include <array>

#include "base/ascii.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

class Scanner {
 public:
  Scanner(std::string_view text, Dialect dialect) : text_(text), dialect_(dialect) {}

  TokenList run() {
    for (;;) {
      skipBlanks();
      if (at_ == text_.size()) break;
      list_.tokens.push_back(next());
    }
    Token end;
    end.position = text_.size();
    list_.tokens.push_back(end);
    return std::move(list_);
  }

 private:
  bool startsWith(std::string_view start) const { return text_.substr(at_, start.size()) == start; }

  void skipBlanks() {
    while (at_ < text_.size()) {
      if (isBlank(text_[at_])) {
        ++at_;
      } else if (startsWith("--")) {
        const std::size_t end = text_.find('\n', at_);
        at_ = end == std::string_view::npos ? text_.size() : end + 1;
      } else if (startsWith("/*")) {
        skipComment();
      } else {
        return;
      }
    }
  }

  // Comments nest, as on the server.
  void skipComment() {
    const std::size_t start = at_;
    std::size_t depth = 0;
    while (at_ < text_.size()) {
      if (startsWith("/*")) {
        ++depth;
        at_ += 2;
      } else if (startsWith("*/")) {
        --depth;
        at_ += 2;
        if (depth == 0) return;
      } else {
        ++at_;
      }
    }
    throw SqlError(start, "commento senza fine");
  }

  Token next() {
    const char c = text_[at_];
    if (c == '\'') return literal(scanText(text_.substr(at_)), "testo senza apice di chiusura");
    if ((c == 'N' || c == 'n') && at_ + 1 < text_.size() && text_[at_ + 1] == '\'') {
      ++at_;
      return literal(scanText(text_.substr(at_)), "testo senza apice di chiusura");
    }
    if (isDigit(c) || (c == '.' && !afterName() && at_ + 1 < text_.size() && isDigit(text_[at_ + 1]))) {
      return literal(scanNumber(text_.substr(at_)), "numero scritto male");
    }
    if (c == '[') return quoted(']');
    if (c == '"') return quoted('"');
    if (isWordStart(c)) return word();
    return symbol();
  }

  bool afterName() const { return !list_.tokens.empty() && list_.tokens.back().isName(); }

  Token literal(const LiteralSpan& span, const char* fault) {
    if (span.length == 0)
      throw SqlError(at_, text_.find('\0') == std::string_view::npos ? fault : "carattere nullo");
    Token token;
    token.kind = span.literal.kind == Literal::Kind::Text ? TokenKind::Text : TokenKind::Number;
    token.position = at_;
    token.text = span.literal.text;
    token.ordinal = list_.literals.size();
    list_.literals.push_back(span.literal);
    list_.literalStarts.push_back(at_);
    at_ += span.length;
    list_.literalEnds.push_back(at_);
    return token;
  }

  Token quoted(char mark) {
    const std::size_t start = at_++;
    for (;;) {
      at_ = text_.find(mark, at_);
      if (at_ == std::string_view::npos)
        throw SqlError(start, "nome senza parentesi o virgolette di chiusura");
      ++at_;
      if (at_ == text_.size() || text_[at_] != mark) break;
      ++at_;
    }
    Token token{TokenKind::Quoted, start, text_.substr(start + 1, at_ - start - 2), 0, mark};
    if (token.text.empty() || token.text.find('\0') != std::string_view::npos) {
      throw SqlError(start, "nome vuoto o non valido");
    }
    return token;
  }

  Token word() {
    const std::size_t start = at_;
    while (at_ < text_.size() && isWordPart(text_[at_])) ++at_;
    return {TokenKind::Word, start, text_.substr(start, at_ - start)};
  }

  Token symbol() {
    static constexpr std::array<std::string_view, 7> kOperators = {"<>", "<=", ">=", "!=", "!<", "!>", "||"};
    static constexpr std::string_view kSingle = "=<>+-*/%(),.;";
    std::size_t length = 0;
    for (std::string_view pair : kOperators) {
      if (startsWith(pair) && (pair != "||" || dialect_ == Dialect::Stored)) length = 2;
    }
    if (length == 0 && kSingle.find(text_[at_]) != std::string_view::npos) length = 1;
    if (length == 0) throw SqlError(at_, "carattere non ammesso");
    const Token token{TokenKind::Symbol, at_, text_.substr(at_, length)};
    at_ += length;
    return token;
  }

  std::string_view text_;
  Dialect dialect_;
  std::size_t at_ = 0;
  TokenList list_;
};

}  // namespace

bool Token::isWord(std::string_view upperCase) const {
  if (kind != TokenKind::Word || text.size() != upperCase.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (upperAscii(text[i]) != upperCase[i]) return false;
  }
  return true;
}

std::string Token::name() const {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += text[i];
    if (mark != 0 && text[i] == mark) ++i;  // doubled mark
  }
  return result;
}

TokenList tokenize(std::string_view text, Dialect dialect) { return Scanner(text, dialect).run(); }

}  // namespace cu::sqlite
