#pragma once

#include <string>

#include "sqlite/handle.h"

namespace cu::sqlite {

// Opens a file with the settings of this program. DatabaseError states what is wrong with the file and the
// remedy.
DatabaseHandle openFile(const std::string& path, bool create);

}  // namespace cu::sqlite
