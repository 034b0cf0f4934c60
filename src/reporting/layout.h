#pragma once

#include "base/date.h"
#include "data/database.h"
#include "reporting/canvas.h"
#include "reporting/company.h"
#include "reporting/definition.h"
#include "reporting/rows.h"

namespace cu::reporting {

// The input of every layout.
struct LayoutInput {
  const ReportDefinition& definition;
  Rows& rows;
  const Company& company;
  QString selection;  // a description of the rows' selection
  Date today;
  TimeOfDay now;
  Connection& connection;  // for data other than the rows
  bool fromFile = false;   // forms: the rows have the cells of a file, by their codes
};

// The two statements for the forms of a file.
inline constexpr const char* kFileCertificate = "certificate";
inline constexpr const char* kFileModules = "modules";

// Each draws the whole report; a report without rows is one page with a message.
void drawList(Canvas& canvas, const LayoutInput& input);
void drawCertificates(Canvas& canvas, const LayoutInput& input);
void drawForms(Canvas& canvas, const LayoutInput& input);

bool isLandscape(LayoutKind layout);

// Their common parts.
void drawNothing(Canvas& canvas, const LayoutInput& input);
// The last line of a page.
void drawFooter(Canvas& canvas, double margin, const QString& left, int page, int pages);

}  // namespace cu::reporting
