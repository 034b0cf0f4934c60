#include "reporting/selection_text.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "reporting/italian.h"

namespace cu::reporting {
namespace {

struct Bounds {
  std::optional<std::string> low;
  std::optional<std::string> high;
  bool plain = true;  // only these limits
};

bool isOf(const FormulaOperand& operand, const SelectionWords& words) {
  return operand.kind != FormulaOperand::Kind::Text && operand.kind != FormulaOperand::Kind::Number &&
         std::any_of(words.fields.begin(), words.fields.end(),
                     [&](const std::string& field) { return equalsNoCase(field, operand.text); });
}

bool isLiteral(const FormulaOperand& operand) {
  return operand.kind == FormulaOperand::Kind::Text || operand.kind == FormulaOperand::Kind::Number;
}

Bounds boundsOf(const SelectionWords& words, const Formula& formula) {
  Bounds bounds;
  const auto set = [&](std::optional<std::string>& bound, const std::string& value) {
    if (bound) bounds.plain = false;
    bound = std::string(trim(value));
  };
  for (const FormulaComparison& comparison : formula) {
    if (isOf(comparison.right, words)) bounds.plain = false;
    if (!isOf(comparison.left, words)) continue;
    const bool low = comparison.op == ">=" || comparison.op == "=";
    const bool high = comparison.op == "<=" || comparison.op == "=";
    if (low) set(bounds.low, comparison.right.text);
    if (high) set(bounds.high, comparison.right.text);
    if (!(low || high) || !isLiteral(comparison.right)) bounds.plain = false;
  }
  return bounds;
}

QString inWords(const SelectionWords& words, const Bounds& bounds) {
  if (!bounds.low && !bounds.high) return fromUtf8(words.all);
  if (!bounds.high) return fromUtf8(words.from).arg(fromUtf8(*bounds.low));
  if (!bounds.low) return fromUtf8(words.to).arg(fromUtf8(*bounds.high));
  if (*bounds.low == *bounds.high) return fromUtf8(words.one).arg(fromUtf8(*bounds.low));
  return fromUtf8(words.range).arg(fromUtf8(*bounds.low), fromUtf8(*bounds.high));
}

}  // namespace

QString selectionText(const ReportDefinition& definition, const Formula& formula) {
  QString text;
  for (const SelectionWords& words : definition.selection) {
    const Bounds bounds = boundsOf(words, formula);
    if (!bounds.plain) continue;
    if (!text.isEmpty()) text += " - ";
    text += inWords(words, bounds);
  }
  return text;
}

}  // namespace cu::reporting
