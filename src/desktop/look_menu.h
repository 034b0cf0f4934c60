#pragma once

class QMenu;

namespace cu::desktop {

// Fills a menu with the choices of colours and size of letters, which take effect at once and are remembered
// for the user's next start.
void fillLookMenu(QMenu& menu);

}  // namespace cu::desktop
