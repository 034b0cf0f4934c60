#pragma once

namespace cu::desktop {

// Takes mouse and keyboard events that wait, and drops them.
void drainInput();

}  // namespace cu::desktop
