#include "reporting/formula_tokens.h"

#include "base/text.h"
#include "reporting/report_error.h"

namespace cu::reporting {
namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;
constexpr std::size_t kLongestNumber = 18;  // digits

bool isBlank(char32_t c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool isDigit(char32_t c) { return c >= '0' && c <= '9'; }
bool isLetter(char32_t c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

// nextCodePoint returns U+FFFD for an invalid byte; a written U+FFFD has three bytes.
bool isBroken(char32_t c, std::size_t length) { return c == kReplacementCharacter && length == 1; }

class Splitter {
 public:
  explicit Splitter(std::string_view formula) : formula_(formula) { read(); }

  std::vector<FormulaToken> tokens() {
    std::vector<FormulaToken> result;
    for (;;) {
      while (!ended_ && isBlank(current_)) advance();
      result.push_back(next());
      if (result.back().kind == FormulaTokenKind::End) return result;
    }
  }

 private:
  void read() {
    ended_ = at_ >= formula_.size();
    if (ended_) return;
    std::size_t behind = at_;
    current_ = nextCodePoint(formula_, behind);
    length_ = behind - at_;
    if (isBroken(current_, length_)) throw FormulaError(position_, "il testo non è UTF-8");
  }
  void advance() {
    at_ += length_;
    ++position_;
    read();
  }
  std::string_view here() const { return formula_.substr(at_, length_); }
  FormulaToken start(FormulaTokenKind kind) const { return {kind, position_, {}}; }
  void take(FormulaToken& token) {
    token.text += here();
    advance();
  }
  FormulaToken single(FormulaTokenKind kind) {
    FormulaToken token = start(kind);
    take(token);
    return token;
  }

  FormulaToken next() {
    if (ended_) return start(FormulaTokenKind::End);
    if (isDigit(current_) || current_ == '-') return number();
    if (isLetter(current_)) return word();
    switch (current_) {
      case '{':
        return field();
      case '\'':
      case '"':
        return quoted();
      case '(':
        return single(FormulaTokenKind::Open);
      case ')':
        return single(FormulaTokenKind::Close);
      case '=':
      case '<':
      case '>':
        return comparison();
    }
    throw FormulaError(position_, "carattere non ammesso" + shown());
  }

  std::string shown() const {
    return current_ < 0x20 || current_ == 0x7F ? std::string() : " \"" + std::string(here()) + "\"";
  }

  FormulaToken field() {
    FormulaToken token = start(FormulaTokenKind::Field);
    advance();
    while (!ended_ && current_ != '}') {
      if (current_ == '{' || current_ < 0x20) break;
      take(token);
    }
    if (ended_ || current_ != '}') throw FormulaError(token.position, "parentesi graffa non chiusa");
    advance();
    return token;
  }

  FormulaToken quoted() {
    FormulaToken token = start(FormulaTokenKind::Text);
    const char32_t mark = current_;
    advance();
    for (;;) {
      if (ended_) throw FormulaError(token.position, "testo senza virgolette di chiusura");
      if (current_ == mark) {
        advance();
        if (ended_ || current_ != mark) return token;
      } else if (current_ < 0x20) {
        throw FormulaError(position_, "carattere di controllo dentro un testo");
      }
      take(token);
    }
  }

  FormulaToken number() {
    FormulaToken token = start(FormulaTokenKind::Number);
    if (current_ == '-') take(token);
    std::size_t digits = takeDigits(token);
    if (digits == 0) throw FormulaError(token.position, "attesa una cifra dopo il segno \"-\"");
    if (!ended_ && current_ == '.') {
      take(token);
      const std::size_t decimals = takeDigits(token);
      if (decimals == 0) throw FormulaError(position_, "attesa una cifra dopo il punto decimale");
      digits += decimals;
    }
    if (digits > kLongestNumber) throw FormulaError(token.position, "numero con troppe cifre");
    if (!ended_ && (isLetter(current_) || current_ == '.')) {
      throw FormulaError(position_, "numero seguito da" + shown());
    }
    return token;
  }
  std::size_t takeDigits(FormulaToken& token) {
    std::size_t count = 0;
    for (; !ended_ && isDigit(current_); ++count) take(token);
    return count;
  }

  FormulaToken word() {
    FormulaToken token = start(FormulaTokenKind::Word);
    while (!ended_ && (isLetter(current_) || isDigit(current_))) take(token);
    return token;
  }

  FormulaToken comparison() {
    FormulaToken token = start(FormulaTokenKind::Operator);
    const char32_t first = current_;
    take(token);
    const bool longer =
        (first == '<' && (current_ == '=' || current_ == '>')) || (first == '>' && current_ == '=');
    if (!ended_ && longer) take(token);
    return token;
  }

  std::string_view formula_;
  std::size_t at_ = 0;
  std::size_t position_ = 1;
  char32_t current_ = 0;
  std::size_t length_ = 0;
  bool ended_ = false;
};

}  // namespace

FormulaError::FormulaError(std::size_t position, const std::string& what)
    : Error(kErrorReportFormula, "Formula di selezione della stampa, carattere " +
                                     fromInteger(static_cast<std::int64_t>(position)) + ": " + what + "."),
      position_(position) {}

std::vector<FormulaToken> tokenizeFormula(std::string_view formula) { return Splitter(formula).tokens(); }

}  // namespace cu::reporting
