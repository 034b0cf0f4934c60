#pragma once

#include <cstdint>
#include <vector>

#include "modello/modello.h"
#include "reporting/definition.h"

namespace cu::reporting {

constexpr modello::Record recordOf(FormPart part) {
  return part == FormPart::Amounts ? modello::Record::H : modello::Record::D;
}

// A box of the definition in the layout of a year.
struct LaidBox {
  const FormBox* box;                       // of the definition
  const modello::Campo* main = nullptr;     // null for a space
  const modello::Campo* further = nullptr;  // in additional modules; null where they leave it blank
};

struct LaidSection {
  const FormSection* section;
  std::vector<std::vector<LaidBox>> rows;
};

// The sections of a part in the layout that a year has; rows and sections without a box are left out. The
// definition and the form outlive the result.
std::vector<LaidSection> layOut(const ReportDefinition& definition, FormPart part, std::int32_t year,
                                const modello::Modello& form = modello::kModello);

}  // namespace cu::reporting
