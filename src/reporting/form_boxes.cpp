#include "reporting/form_boxes.h"

#include <algorithm>
#include <utility>

namespace cu::reporting {
namespace {

const modello::Campo* findBox(const modello::Modello& form, modello::Record part, std::string_view field,
                              std::int32_t year) {
  const auto found = std::find_if(form.campi.begin(), form.campi.end(), [&](const modello::Campo& campo) {
    return campo.colonna == field && haCella(campo, part) && vale(campo, year, true);
  });
  return found == form.campi.end() ? nullptr : &*found;
}

const modello::Campo* furtherOf(const modello::Modello& form, const modello::Campo& main, std::int32_t year) {
  const modello::Campo* const found = trovaNumero(form, main.quadro, main.numero, year, false);
  return found != nullptr && haCella(*found, record(main.quadro)) ? found : nullptr;
}

}  // namespace

std::vector<LaidSection> layOut(const ReportDefinition& definition, FormPart part, std::int32_t year,
                                const modello::Modello& form) {
  const std::int32_t layout = modello::annoDisposizione(year, form);
  std::vector<LaidSection> sections;
  for (const FormSection& section : definition.sections) {
    if (section.part != part || !section.years.comprende(layout)) continue;
    LaidSection laid{&section, {}};
    for (const std::vector<FormBox>& row : section.rows) {
      std::vector<LaidBox> boxes;
      for (const FormBox& box : row) {
        if (!box.years.comprende(layout)) continue;
        if (box.field.empty()) {
          boxes.push_back({&box});
          continue;
        }
        const modello::Campo* const main = findBox(form, recordOf(part), box.field, layout);
        if (main != nullptr) boxes.push_back({&box, main, furtherOf(form, *main, layout)});
      }
      const bool filled =
          std::any_of(boxes.begin(), boxes.end(), [](const LaidBox& box) { return box.main != nullptr; });
      if (filled) laid.rows.push_back(std::move(boxes));
    }
    if (!laid.rows.empty()) sections.push_back(std::move(laid));
  }
  return sections;
}

}  // namespace cu::reporting
