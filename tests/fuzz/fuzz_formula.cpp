// Any bytes as a selection formula: a condition in which the database's tokenizer finds as many literals as
// the formula has, or one line with a position in the formula.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/text.h"
#include "data/rowstore.h"
#include "reporting/formula.h"
#include "reporting/formula_tokens.h"
#include "sqlite/tokenizer.h"

namespace {

using cu::reporting::FormulaOperand;

std::size_t literals(const FormulaOperand& operand) {
  switch (operand.kind) {
    case FormulaOperand::Kind::Text:
    case FormulaOperand::Kind::Number:
      return 1;
    case FormulaOperand::Kind::Field:
    case FormulaOperand::Kind::YearOf:
      return 0;
  }
  return 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const cu::Columns columns({{"Anno"}, {"Codice"}, {"Anagrafica"}, {"DataPagamento"}, {"IDAzienda"}});
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    const cu::reporting::Formula formula = cu::reporting::parseFormula(text);
    const std::string condition = cu::reporting::conditionOf(formula, "RepCompenso", columns);
    std::size_t expected = 0;
    for (const auto& comparison : formula) expected += literals(comparison.left) + literals(comparison.right);
    if (cu::sqlite::tokenize(condition).literals.size() != expected) std::abort();
  } catch (const cu::reporting::FormulaError& error) {
    if (error.position() < 1 || error.position() > cu::codePoints(text) + 1) std::abort();
    if (error.description().find('\n') != std::string::npos) std::abort();
  }
  return 0;
}
