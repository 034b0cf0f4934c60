#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

#include "controls/further_columns.h"

namespace cu::desktop {

// Further texts of a row, as read and as they are compared.
struct FurtherRow {
  QStringList texts;
  QStringList keys;
};
using FurtherRows = std::unordered_map<std::int64_t, FurtherRow>;

// Reads further columns in a thread. It can be destroyed meanwhile: what is read then is dropped, and only
// the end of the program waits for it.
class FurtherReader : public QObject {
 public:
  explicit FurtherReader(QObject* parent) : QObject(parent) {}
  ~FurtherReader() override;
  // One of the two is called when reading has ended, in the thread of this object.
  std::function<void(FurtherRows rows)> onRead;
  std::function<void(const QString& error)> onFailed;
  void read(const FurtherColumns& columns);
  bool reading() const { return link_ != nullptr; }

 private:
  struct Link;
  std::shared_ptr<Link> link_;  // with the thread, while it reads
};

}  // namespace cu::desktop
