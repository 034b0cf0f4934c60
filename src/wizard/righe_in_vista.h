#pragma once

#include "controls/grid.h"

namespace cu {

// What a window shows of the lines beyond their cells.
void descriviRighe(Grid& griglia);

}  // namespace cu
