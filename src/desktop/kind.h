#pragma once

#include "controls/control.h"

namespace cu::desktop {

// How the layout treats a control.
enum class Kind { Frame, Label, Link, Button, Option, Check, Field, Wide };
Kind kindOf(Control& control);

}  // namespace cu::desktop
