#include "modello/coerenza.h"

namespace cu::modello {

// Checks the program's own form at compile time.
static_assert(coerente(kModello));

}  // namespace cu::modello
