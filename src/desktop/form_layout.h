#pragma once

namespace cu::desktop {

class FormWindow;

// Makes the views of a form and places them: the wizard and the editors in their own arrangement, every other
// form by its frames.
void layOut(FormWindow& window);

// Shows a form of which only a part is left in a window of that size.
void showShrunk(FormWindow& window);
// Makes a window on the screen as high as its content, as far as the screen has room; it is told how much.
void fitHeight(FormWindow& window, int room);

}  // namespace cu::desktop
