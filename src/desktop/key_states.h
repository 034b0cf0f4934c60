#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "desktop/background_reading.h"

class QTimer;

namespace cu::desktop {

// Reads the keys of a grid's states that other tables determine, in a thread: for new rows, and again where
// they may have changed.
class KeyStates : public QObject {
 public:
  KeyStates(Grid& grid, QObject* parent);

  RowKeysOf readingOf;  // may be empty
  // Whether a form over the grid has narrowed its rows: they must not be looked at. What has been read
  // meanwhile is dropped, because the keys are read again when the form closes.
  std::function<bool()> held;
  // Called when a state has been read; `anew` for the first time for these rows.
  std::function<void(bool anew)> onRead;
  std::function<void(const std::string& state, const QString& error)> onFailed;

  // Reads, once the running event has ended, where the grid has other rows than at the last call.
  void follow();
  void again();
  void detach();

 private:
  void read();
  void readState(std::size_t state, const RowKeysReading& reading);

  Grid* grid_;
  std::size_t binding_ = 0;
  QTimer* soon_;
  std::vector<std::unique_ptr<BackgroundReading<RowKeys>>> readings_;  // by the grid's states
};

}  // namespace cu::desktop
