#pragma once

#include "controls/print_control.h"

namespace cu {

// The reports registered for the three object types of the wizard.
class CatalogoStampe : public ReportCatalogue {
 public:
  std::vector<ReportInfo> reports(std::int32_t objectType) const override;
};

}  // namespace cu
