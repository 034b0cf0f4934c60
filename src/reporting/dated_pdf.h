#pragma once

#include <QIODevice>
#include <QString>
#include <string>
#include <string_view>

#include "base/date.h"

namespace cu::reporting {

// Passes a PDF on to a device, with the caller's creation date: the toolkit uses the machine's time and zone
// and has no setting for another. The same drawing with the same date and time then has the same bytes,
// whenever and in whatever zone it is written, if the creator's name is set with withRoom().
class DatedPdf : public QIODevice {
 public:
  // The target outlives this device; the caller handles its errors.
  DatedPdf(QIODevice& target, Date day, TimeOfDay time);
  bool isSequential() const override { return true; }
  // The name and, where the machine's zone makes the date shorter than others, blanks for the difference.
  static QString withRoom(const QString& creator);

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override;

 private:
  QIODevice& target_;
  std::string date_;
  std::string begun_;  // up to the end of the document information
  bool dated_ = false;
};

// Replaces the creation date ("20180305103000", without a zone) in the beginning of a PDF, which includes its
// information, without changing the number of bytes: later parts of the file are addressed by offset. Blanks
// after the creator's name move after the date. A text without a creation date is returned unchanged.
std::string withCreationDate(std::string_view beginning, std::string_view date);

// During its lifetime the order of the toolkit's hash tables is the same in every process; a PDF's fonts are
// embedded in the order of such a table.
class FixedHashOrder {
 public:
  FixedHashOrder();
  ~FixedHashOrder();
  FixedHashOrder(const FixedHashOrder&) = delete;
  FixedHashOrder& operator=(const FixedHashOrder&) = delete;
};

}  // namespace cu::reporting
