#pragma once

#include <QString>

#include "reporting/definition.h"
#include "reporting/formula.h"

namespace cu::reporting {

// What the formula selects by, in the words that the definition has for it: "Anni dal 2014 al 2016 - ...". A
// field that the formula compares otherwise than with a bound or two is left out.
QString selectionText(const ReportDefinition& definition, const Formula& formula);

}  // namespace cu::reporting
