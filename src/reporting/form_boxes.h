#pragma once

#include <cstdint>
#include <vector>

#include "modello/modello.h"
#include "reporting/definition.h"

namespace cu::reporting {

constexpr modello::Record recordOf(FormPart part) {
  return part == FormPart::Amounts ? modello::Record::H : modello::Record::D;
}

// A box of the definition in a year's layout.
struct LaidBox {
  const FormBox* box;                       // of the definition
  const modello::Campo* main = nullptr;     // null for a gap
  const modello::Campo* further = nullptr;  // in additional modules; null for a box blank there
};

struct LaidSection {
  const FormSection* section;
  std::vector<std::vector<LaidBox>> rows;
};

// The sections of a part in a year's layout; rows and sections without a box are omitted. The definition and
// the form outlive the result.
std::vector<LaidSection> layOut(const ReportDefinition& definition, FormPart part, std::int32_t year,
                                const modello::Modello& form = modello::kModello);

}  // namespace cu::reporting
