#include "late/late_library.h"

#include <dlfcn.h>

#include <string>

namespace cu {
namespace {

// Most of the time that a large library takes to load is for finding its own names, in each library of the
// program before its own: it looks among its own first. The address sanitizer does not allow that.
#if defined(RTLD_DEEPBIND) && !defined(CU_SANITIZED)
constexpr int kOwnNamesFirst = RTLD_DEEPBIND;
#else
constexpr int kOwnNamesFirst = 0;
#endif

}  // namespace

void* LateLibrary::function(const char* name) const {
  // The libraries of other libraries stay apart from the program's own names.
  void* const library = ::dlopen(file_, RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE | kOwnNamesFirst);
  void* const found = library == nullptr ? nullptr : ::dlsym(library, name);
  if (found != nullptr) return found;
  const char* const why = ::dlerror();
  throw Error(kErrorLateLibrary, std::string(use_) + " non si possono usare: la libreria «" + file_ +
                                     "» manca o non si carica (" + (why == nullptr ? name : why) +
                                     "). Installarla di nuovo; tutto il resto funziona.");
}

}  // namespace cu
