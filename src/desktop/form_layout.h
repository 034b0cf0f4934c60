#pragma once

namespace cu::desktop {

class FormWindow;

// Makes the views of a form and places them: the wizard and the editors in their own arrangement, every other
// form by its frames.
void layOut(FormWindow& window);

// Shows a form of which only a part is left in a window of that size.
void showShrunk(FormWindow& window);

}  // namespace cu::desktop
