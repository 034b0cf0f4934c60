#pragma once

#include "base/error.h"

namespace cu {

// The error number of a library that cannot be loaded.
inline constexpr int kErrorLateLibrary = kErrorObjectBase + 706;

// A shared library of the system that is loaded by the first call of one of its functions, and never
// unloaded.
class LateLibrary {
 public:
  // `file` is the name by which programs link the library, such as "libzip.so.4"; the loader looks for it
  // where it looks for linked ones. `use` is what users have it for, with its article: the beginning of a
  // sentence.
  constexpr LateLibrary(const char* file, const char* use) : file_(file), use_(use) {}

  // The function of that name. Error kErrorLateLibrary, with a text for the user, where the library is
  // missing, cannot be loaded or does not have the function.
  void* function(const char* name) const;

 private:
  const char* file_;
  const char* use_;
};

}  // namespace cu
