#pragma once

namespace cu::reporting {

// Fonts and painting require the toolkit's application object. Creates one without a screen if the program
// has none; it exists until the process ends. To be called on the thread that prints.
void ensureGuiApplication();

}  // namespace cu::reporting
