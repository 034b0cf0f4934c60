#include "desktop/further_reader.h"

#include "desktop/text.h"

namespace cu::desktop {
namespace {

FurtherRows compared(const FurtherColumns::Texts& read) {
  FurtherRows rows;
  rows.reserve(read.size());
  for (const auto& [record, texts] : read) {
    FurtherRow& row = rows[record];
    for (const std::string& text : texts) {
      row.texts += shown(text);
      row.keys += folded(row.texts.back());
    }
  }
  return rows;
}

}  // namespace

void FurtherReader::read(const FurtherColumns& columns) {
  start([read = columns.read] { return compared(read()); });
}

}  // namespace cu::desktop
