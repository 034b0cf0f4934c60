#pragma once

namespace cu::reporting {

// Fonts and painting need the toolkit's application object. Where a program has none yet, one is made that
// needs no screen; it stays until the process ends. To be called on the thread that prints.
void ensureGuiApplication();

}  // namespace cu::reporting
