#pragma once

#include <string>

#include "sqlite/handle.h"

namespace cu::sqlite {

// An open file with the settings of this program. DatabaseError tells in words what is wrong with the file
// and what to do.
DatabaseHandle openFile(const std::string& path, bool create);

}  // namespace cu::sqlite
