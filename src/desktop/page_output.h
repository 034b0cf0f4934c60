#pragma once

#include <QByteArray>
#include <QString>

class QPrinter;
class QWidget;

namespace cu::desktop {

// A file name for a title; without the characters that a file system does not permit.
QString pdfNameOf(const QString& title);

// Writes a copy of a document; returns "" or the reason in Italian why it could not be written. A file that
// was there before is kept then.
QString saveDocument(const QByteArray& document, const QString& path);

// Prints a document's pages as the printer's settings demand: range, order and copies, each page as large as
// the paper permits, not enlarged. A progress that can be cancelled is shown over `over`. `current` is the
// page that is shown. Returns "" or the reason in Italian why not all was printed. A print to a file that is
// cancelled or fails makes none, and keeps the one that was there before.
QString printDocument(const QByteArray& document, QPrinter& printer, int current, QWidget* over);

}  // namespace cu::desktop
