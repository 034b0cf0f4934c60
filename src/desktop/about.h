#pragma once

#include <QString>
#include <functional>

class QMenuBar;
class QWidget;

namespace cu::desktop {

// What the windows say about the program: its version, its libraries, where its data are. Set by the program
// and asked when it is shown; without it there is no menu.
void setAbout(std::function<QString()> text);
// Shows it beside the window, as a text that can be copied.
void showAbout(QWidget* beside);
// A menu with that entry; of the window, and not of a form.
void addAboutMenu(QMenuBar& bar);

}  // namespace cu::desktop
