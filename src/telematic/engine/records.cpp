#include "telematic/engine/records.h"

#include <limits>
#include <memory>
#include <utility>

namespace cu {

CUField& CUFields::Add(std::string_view name, std::int32_t offset, std::int32_t length) {
  auto field = std::make_unique<CUField>();
  field->setName(name);
  field->setOffset(offset);
  field->setLength(length);
  return members_.add(name, std::move(field));
}

std::int32_t CURecord::Length() const {
  std::int64_t sum = 0;
  for (const IField* field : fields_.NewEnum()) sum += field->Length();
  if (sum > std::numeric_limits<std::int32_t>::max() || sum < std::numeric_limits<std::int32_t>::min()) {
    throw Error(6, "La larghezza del record è fuori dai limiti.");
  }
  return static_cast<std::int32_t>(sum);
}

CURecord& CURecords::Add(std::string_view name) {
  auto record = std::make_unique<CURecord>();
  record->setName(name);
  return members_.add(name, std::move(record));
}

}  // namespace cu
