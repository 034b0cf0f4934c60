#pragma once

#include <QString>

#include "reporting/definition.h"
#include "reporting/formula.h"

namespace cu::reporting {

// Describes the formula's selection in the definition's words: "Anni dal 2014 al 2016 - ...". A field
// compared otherwise than with one or two limits is omitted.
QString selectionText(const ReportDefinition& definition, const Formula& formula);

}  // namespace cu::reporting
