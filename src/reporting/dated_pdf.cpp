#include "reporting/dated_pdf.h"

#include <QDateTime>
#include <QHashFunctions>

#include "base/text.h"

namespace cu::reporting {
namespace {

// A creation date is "(D:20180305103000+01'00')"; in a time zone without offset "(D:20180305103000Z)".
constexpr std::string_view kDate = "/CreationDate (D:";
constexpr qsizetype kRoom = 3;  // characters of two bytes, for the six bytes that "Z" is shorter
constexpr std::string_view kBlank{"\0 ", 2};
constexpr std::string_view kBehindCreator = ")\n/Producer ";
constexpr std::string_view kEndOfObject = "endobj";

std::string compact(Date day, TimeOfDay time) {
  return day.toCompact() + time.toHhmm() + (time.second < 10 ? "0" : "") + fromInteger(time.second);
}

}  // namespace

DatedPdf::DatedPdf(QIODevice& target, Date day, TimeOfDay time) : target_(target), date_(compact(day, time)) {
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

QString DatedPdf::withRoom(const QString& creator) {
  const bool shortZone = QDateTime::currentDateTime().offsetFromUtc() == 0;
  return shortZone ? creator + QString(kRoom, u' ') : creator;
}

qint64 DatedPdf::writeData(const char* data, qint64 size) {
  if (dated_) return target_.write(data, size);
  begun_.append(data, static_cast<std::size_t>(size));
  // The document information is the first object of the file.
  if (begun_.find(kEndOfObject) == std::string::npos) return size;
  dated_ = true;
  const std::string dated = withCreationDate(begun_, date_);
  begun_.clear();
  return target_.write(dated.data(), static_cast<qint64>(dated.size())) < 0 ? -1 : size;
}

std::string withCreationDate(std::string_view beginning, std::string_view date) {
  std::string result(beginning);
  const std::size_t name = result.find(kDate);
  if (name == std::string::npos) return result;
  const std::size_t digits = name + kDate.size();
  const std::size_t end = result.find(')', digits);
  if (end == std::string::npos || end - digits < date.size()) return result;
  std::string dated = std::string(date) + ')';
  dated.resize(end + 1 - digits, ' ');
  result.replace(digits, end + 1 - digits, dated);
  const std::size_t creatorEnd = result.rfind(kBehindCreator, name);
  if (creatorEnd == std::string::npos) return result;
  std::size_t creator = creatorEnd;
  while (std::string_view(result).substr(0, creator).ends_with(kBlank)) creator -= kBlank.size();
  result.insert(end + 1, creatorEnd - creator, ' ');
  result.erase(creator, creatorEnd - creator);
  return result;
}

FixedHashOrder::FixedHashOrder() { QHashSeed::setDeterministicGlobalSeed(); }
FixedHashOrder::~FixedHashOrder() { QHashSeed::resetRandomGlobalSeed(); }

}  // namespace cu::reporting
