#pragma once

namespace cu::desktop {

class FormWindow;

// Creates the views of a form and places them: the wizard and the editors in their own arrangement, every
// other form by its frames.
void layOut(FormWindow& window);

// Shows a form of which only a part is visible in a window of that size.
void showShrunk(FormWindow& window);
// Makes a window on the screen as high as its content, up to `room`.
void fitHeight(FormWindow& window, int room);

}  // namespace cu::desktop
