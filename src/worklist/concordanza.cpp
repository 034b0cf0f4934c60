#include "worklist/concordanza.h"

namespace cu {

static_assert(concordaLavoro(modello::kModello, kColonneLavoro));
static_assert(concordaLordo(kColonneLavoro));

}  // namespace cu
