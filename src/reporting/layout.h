#pragma once

#include "base/date.h"
#include "data/database.h"
#include "reporting/canvas.h"
#include "reporting/company.h"
#include "reporting/definition.h"
#include "reporting/rows.h"

namespace cu::reporting {

// What every layout draws from.
struct LayoutInput {
  const ReportDefinition& definition;
  Rows& rows;
  const Company& company;
  QString selection;  // what the rows were selected by, in words
  Date today;
  TimeOfDay now;
  Connection& connection;  // for what is read beside the rows
};

// Each draws the whole report; a report without rows is one page that says so.
void drawList(Canvas& canvas, const LayoutInput& input);
void drawCertificates(Canvas& canvas, const LayoutInput& input);
void drawForms(Canvas& canvas, const LayoutInput& input);

bool isLandscape(LayoutKind layout);

// Their common parts.
void drawNothing(Canvas& canvas, const LayoutInput& input);
// The last line of a page.
void drawFooter(Canvas& canvas, double margin, const QString& left, int page, int pages);

}  // namespace cu::reporting
