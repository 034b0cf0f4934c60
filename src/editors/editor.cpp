// The factory of the editors.

#include "editors/editor.h"

#include "editors/disposizione.h"
#include "editors/editor_compenso.h"
#include "editors/elenco_codici.h"

namespace cu {

std::unique_ptr<Editor> fnCreaEditor(std::int32_t anno, const AmbienteEditor& ambiente) {
  // The boxes and their numbers are those of the last form before 2019: a box that the later ones do not have
  // stays where it can be corrected. One that only they have is added.
  return std::make_unique<EditorCompenso>(modello::annoDisposizione(anno), anno,
                                          fnElencoCodici(anno, ambiente.modello), ambiente);
}

bool fnAnnullaNelDialogo(std::int32_t anno) {
  return std::any_of(kDisposizioni.begin(), kDisposizioni.end(), [anno](const Disposizione& disposizione) {
    return disposizione.immagine && disposizione.anni.comprende(anno);
  });
}

}  // namespace cu
