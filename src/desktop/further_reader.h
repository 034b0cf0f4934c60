#pragma once

#include <QStringList>
#include <cstdint>
#include <unordered_map>

#include "controls/further_columns.h"
#include "desktop/background_reading.h"

namespace cu::desktop {

// Further texts of a row, as read and as they are compared.
struct FurtherRow {
  QStringList texts;
  QStringList keys;
};
using FurtherRows = std::unordered_map<std::int64_t, FurtherRow>;

// Reads further columns in a thread.
class FurtherReader : public BackgroundReading<FurtherRows> {
 public:
  using BackgroundReading::BackgroundReading;
  void read(const FurtherColumns& columns);
};

}  // namespace cu::desktop
