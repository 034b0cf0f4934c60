#pragma once

#include <QByteArray>
#include <QString>
#include <string>

#include "base/date.h"
#include "reporting/layout.h"

namespace cu::reporting {

// Of every print.
inline constexpr const char* kDocumentLanguage = "it-IT";

// What a PDF says about itself. A text that is empty, and the moment of day 0, are left out.
struct DocumentInfo {
  QString title;
  QString author;
  QString creator;   // the program
  QString producer;  // the library that has written the PDF
  Date day;
  TimeOfDay time;
};

// The information of a report: what it is, whose, and of which years. Moves the current row.
DocumentInfo documentInfo(const LayoutInput& input, const std::string& creator);

// The same information as the dictionary "Info" of a PDF, and as its metadata in XMP, which also claims the
// conformance to PDF/A-1b. A reader for keeping compares the two.
QByteArray infoDictionary(const DocumentInfo& info);
QByteArray metadataPacket(const DocumentInfo& info);

}  // namespace cu::reporting
