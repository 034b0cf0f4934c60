#include "modello/coerenza.h"

namespace cu::modello {

// The program's own form is checked once, here.
static_assert(coerente(kModello));

}  // namespace cu::modello
