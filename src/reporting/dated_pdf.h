#pragma once

#include <QIODevice>
#include <QString>
#include <string>
#include <string_view>

#include "base/date.h"

namespace cu::reporting {

// What goes into a PDF on its way to a device, with a date of creation that the caller gives: the toolkit
// takes the machine's time and zone and cannot be given another one. The same drawing at the same given time
// has the same bytes, whenever and in whatever zone it is written, if the creator's name is set with
// withRoom().
class DatedPdf : public QIODevice {
 public:
  // The device outlives this one; what it reports of an error is left to the caller.
  DatedPdf(QIODevice& target, Date day, TimeOfDay time);
  bool isSequential() const override { return true; }
  // The name and, where the machine's zone takes less room in the date than others do, blanks for the
  // difference.
  static QString withRoom(const QString& creator);

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override;

 private:
  QIODevice& target_;
  std::string date_;
  std::string begun_;  // up to the end of the document's information
  bool dated_ = false;
};

// The beginning of a PDF, up to its information at least, with another date of creation ("20180305103000",
// without a zone) in the same number of bytes: later parts of the file are found by their distance from its
// beginning. Room behind the creator's name goes behind the date. A text without a date of creation stays as
// it is.
std::string withCreationDate(std::string_view beginning, std::string_view date);

// While it lives, the toolkit's hash tables have an order that does not change from one process to the next;
// it embeds the fonts of a PDF in the order of such a table.
class FixedHashOrder {
 public:
  FixedHashOrder();
  ~FixedHashOrder();
  FixedHashOrder(const FixedHashOrder&) = delete;
  FixedHashOrder& operator=(const FixedHashOrder&) = delete;
};

}  // namespace cu::reporting
