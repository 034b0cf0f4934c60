#include "modello/coerenza.h"

namespace cu::modello {

// Checks the program's own forms at compile time.
static_assert(coerente(kModello));
static_assert(coerente(kModelloPubblicato));

}  // namespace cu::modello
