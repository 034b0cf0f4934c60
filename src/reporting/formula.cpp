#include "reporting/formula.h"

#include "base/text.h"
#include "data/rowstore.h"
#include "reporting/formula_tokens.h"

namespace cu::reporting {
namespace {

constexpr std::string_view kAnyView = "__ViewName";
constexpr std::size_t kLongestShown = 40;

std::string described(const FormulaToken& token) {
  if (token.kind == FormulaTokenKind::End) return "la fine della formula";
  const std::string_view shown = leftCodePoints(token.text, kLongestShown);
  std::string text(shown);
  if (shown.size() < token.text.size()) text += "...";
  if (token.kind == FormulaTokenKind::Field) return "{" + text + "}";
  return "\"" + text + "\"";
}

class Parser {
 public:
  explicit Parser(std::vector<FormulaToken> tokens) : tokens_(std::move(tokens)) {}

  Formula formula() {
    Formula result;
    if (now().kind == FormulaTokenKind::End) return result;
    for (;;) {
      result.push_back(comparison());
      if (now().kind == FormulaTokenKind::End) return result;
      if (!isWord("AND")) expected("AND");
      ++at_;
    }
  }

 private:
  const FormulaToken& now() const { return tokens_[at_]; }
  bool isWord(std::string_view word) const {
    return now().kind == FormulaTokenKind::Word && equalsNoCase(now().text, word);
  }
  [[noreturn]] void expected(std::string_view what) const {
    throw FormulaError(now().position, "atteso " + std::string(what) + ", trovato " + described(now()));
  }
  void skip(FormulaTokenKind kind, std::string_view what) {
    if (now().kind != kind) expected(what);
    ++at_;
  }

  FormulaComparison comparison() {
    FormulaComparison result;
    result.left = operand();
    if (now().kind != FormulaTokenKind::Operator) expected("uno dei confronti = <> < <= > >=");
    result.op = now().text;
    ++at_;
    result.right = operand();
    return result;
  }

  FormulaOperand operand() {
    const FormulaToken& token = now();
    if (token.kind == FormulaTokenKind::Field) return field(FormulaOperand::Kind::Field);
    if (token.kind == FormulaTokenKind::Text || token.kind == FormulaTokenKind::Number) {
      ++at_;
      const bool text = token.kind == FormulaTokenKind::Text;
      return {
          text ? FormulaOperand::Kind::Text : FormulaOperand::Kind::Number, token.position, {}, token.text};
    }
    if (!isWord("Year")) expected("un campo tra graffe, Year(), un testo o un numero");
    ++at_;
    skip(FormulaTokenKind::Open, "\"(\" dopo Year");
    FormulaOperand year = field(FormulaOperand::Kind::YearOf);
    skip(FormulaTokenKind::Close, "\")\"");
    return year;
  }

  FormulaOperand field(FormulaOperand::Kind kind) {
    const FormulaToken token = now();
    skip(FormulaTokenKind::Field, "un campo tra graffe");
    const std::size_t point = token.text.find('.');
    const bool whole = point != std::string::npos && point > 0 && point + 1 < token.text.size();
    if (!whole) {
      throw FormulaError(token.position, "il campo " + described(token) + " non ha la forma {Vista.Campo}");
    }
    return {kind, token.position, token.text.substr(0, point), token.text.substr(point + 1)};
  }

  std::vector<FormulaToken> tokens_;
  std::size_t at_ = 0;
};

std::string inQuotes(std::string_view text) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'') result += c;
    result += c;
  }
  return result += '\'';
}

std::string columnOf(const FormulaOperand& field, std::string_view view, const Columns& columns) {
  if (!equalsNoCase(field.view, kAnyView) && !equalsNoCase(field.view, view)) {
    throw FormulaError(field.position, "la stampa non usa la vista \"" + field.view + "\"");
  }
  const std::size_t column = columns.find(field.text);
  if (column == Columns::kNone) {
    throw FormulaError(field.position,
                       "la vista " + std::string(view) + " non ha il campo \"" + field.text + "\"");
  }
  return std::string(view) + "." + columns[column].name;
}

std::string textOf(const FormulaOperand& operand, std::string_view view, const Columns& columns) {
  switch (operand.kind) {
    case FormulaOperand::Kind::Field:
      return columnOf(operand, view, columns);
    case FormulaOperand::Kind::YearOf:
      return "Year(" + columnOf(operand, view, columns) + ")";
    case FormulaOperand::Kind::Text:
      return inQuotes(operand.text);
    case FormulaOperand::Kind::Number:
      return operand.text;
  }
  return {};
}

}  // namespace

Formula parseFormula(std::string_view formula) { return Parser(tokenizeFormula(formula)).formula(); }

std::string conditionOf(const Formula& formula, std::string_view view, const Columns& columns) {
  std::string text;
  for (const FormulaComparison& comparison : formula) {
    if (!text.empty()) text += " AND ";
    text += textOf(comparison.left, view, columns) + " " + comparison.op + " " +
            textOf(comparison.right, view, columns);
  }
  return text;
}

}  // namespace cu::reporting
