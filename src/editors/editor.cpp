// The factory of the editors.

#include "editors/editor.h"

#include "editors/disposizione.h"
#include "editors/editor_compenso.h"

namespace cu {

std::unique_ptr<Editor> fnCreaEditor(std::int32_t anno, const AmbienteEditor& ambiente) {
  return std::make_unique<EditorCompenso>(modello::annoDisposizione(anno), ambiente);
}

bool fnAnnullaNelDialogo(std::int32_t anno) {
  return std::any_of(kDisposizioni.begin(), kDisposizioni.end(), [anno](const Disposizione& disposizione) {
    return disposizione.immagine && disposizione.anni.comprende(anno);
  });
}

}  // namespace cu
