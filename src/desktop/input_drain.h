#pragma once

#include <QKeyEvent>
#include <memory>
#include <vector>

namespace cu::desktop {

// Takes mouse and keyboard events that wait, and drops them.
void drainInput();

// The same, but the keys that were pressed are given back, for a window that they were meant for.
using Keys = std::vector<std::unique_ptr<QKeyEvent>>;
Keys drainKeys();

}  // namespace cu::desktop
