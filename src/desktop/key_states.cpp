#include "desktop/key_states.h"

#include <QTimer>
#include <utility>

namespace cu::desktop {

KeyStates::KeyStates(Grid& grid, QObject* parent) : QObject(parent), grid_(&grid), soon_(new QTimer(this)) {
  soon_->setSingleShot(true);
  soon_->setInterval(0);
  connect(soon_, &QTimer::timeout, this, [this] { read(); });
}

void KeyStates::detach() {
  grid_ = nullptr;
  soon_->stop();
  readings_.clear();
}

// The keys of other rows mean nothing for these.
void KeyStates::follow() {
  if (grid_ == nullptr || std::exchange(binding_, grid_->binding()) == grid_->binding()) return;
  for (RowState& state : grid_->states) state.keys.reset();
  readings_.clear();
  if (grid_->rowCount() > 0) soon_->start();
}

void KeyStates::again() {
  if (grid_ != nullptr && grid_->rowCount() > 0) soon_->start();
}

void KeyStates::read() {
  if (grid_ == nullptr || !readingOf) return;
  readings_.resize(grid_->states.size());
  for (std::size_t i = 0; i < grid_->states.size(); ++i) {
    const RowState& state = grid_->states[i];
    const std::string statement = state.statement ? state.statement() : std::string();
    const RowKeysReading reading = statement.empty() ? RowKeysReading() : readingOf(statement);
    if (reading) readState(i, reading);
  }
}

void KeyStates::readState(std::size_t state, const RowKeysReading& reading) {
  if (readings_[state] == nullptr) readings_[state] = std::make_unique<BackgroundReading<RowKeys>>();
  BackgroundReading<RowKeys>& one = *readings_[state];
  one.onRead = [this, state](RowKeys keys) {
    if (held && held()) return;
    const bool anew = grid_->states[state].keys == nullptr;
    grid_->setKeys(state, std::make_shared<const RowKeys>(std::move(keys)));
    if (onRead) onRead(anew);
  };
  one.onFailed = [this, state](const QString& error) {
    if (held && held()) return;
    grid_->setKeys(state, nullptr);
    if (onFailed) onFailed(grid_->states[state].name, error);
  };
  one.start(reading);
}

}  // namespace cu::desktop
