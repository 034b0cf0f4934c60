#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "base/date.h"
#include "data/database.h"
#include "host/print_interrupted.h"
#include "host/progress.h"
#include "modello/modello.h"
#include "reporting/canvas.h"
#include "reporting/company.h"
#include "reporting/definition.h"
#include "reporting/rows.h"

namespace cu::reporting {

// Where a form shows a cell of a file.
struct FormPlace {
  std::string code;      // "AU001004"
  std::size_t page = 0;  // from 0
  Box place;
};

// The input of every layout.
struct LayoutInput {
  const ReportDefinition& definition;
  Rows& rows;
  const Company& company;
  QString selection;  // a description of the rows' selection
  Date today;
  TimeOfDay now;
  Connection& connection;                    // for data other than the rows
  bool fromFile = false;                     // forms: the rows have the cells of a file, by their codes
  std::vector<FormPlace>* places = nullptr;  // forms: is filled as they are drawn
  ProgressSink* progress = nullptr;          // of a report of its own; none within another work
  const modello::Modello& form = modello::kModello;  // of the ministerial form
  // Forms: the further modules of each certificate where they have been read before, null for an annulment.
  const std::vector<std::unique_ptr<Rows>>* modules = nullptr;
  bool interruptible = true;  // what has been drawn can be dropped, or be shown by itself

  // Called where every page begun is complete; raises PrintInterrupted where the user wants no more of them.
  // A report of one row is itself a step of a longer work, which reports its own progress.
  void report(const char* what, std::size_t done, std::size_t total) const {
    if (progress == nullptr || rows.size() <= 1) return;
    progress->progress(what, done, total);
    if (interruptible && progress->interrupted()) throw PrintInterrupted();
  }
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
