#include "apps/comune/sessione_comando.h"

#include <exception>

#include "base/text.h"
#include "fornitura/stampa.h"
#include "host/testi_programma.h"

namespace cu {

void SessioneComando::esegui(const std::function<void()>& lavoro) {
  bool avviata = false;
  try {
    avvia();
    avviata = true;
    lavoro();
  } catch (const std::exception& errore) {
    const Error detto = asError(errore);
    if (!avviata && detto.number() == kErrorSessionRefused) {
      surroundings_.utilita().refusedStart(testi_->text(237), sessione_->title());
    } else {
      terminale_.error(detto);
    }
  }
  if (avviata) lascia();
}

void SessioneComando::avvia() {
  testi_ = surroundings_.factory().createTesti();
  chiave_ = std::string(trim(testi_->text(1368)));
  sessione_ = surroundings_.factory().createSessione();
  sessione_->setProgramName(std::string(kNomeProgramma));
  sessione_->start(0);
  cartella = surroundings_.settings().get(chiave_, kMenuSettings, "CU_Path",
                                          surroundings_.utilita().defaultFolder());
}

fornitura::Intorno SessioneComando::intorno() {
  return {.ambito = ambitoDi(*sessione_),
          .factory = surroundings_.factory(),
          .utilita = surroundings_.utilita(),
          .files = surroundings_.files(),
          .clock = surroundings_.clock(),
          .avanzamento = terminale_,
          .visore = terminale_,
          .modello = surroundings_.modello()};
}

// Any error here ends the clean-up silently; the remaining steps are skipped.
void SessioneComando::lascia() {
  try {
    fornitura::svuotaRicorsione(intorno());
    surroundings_.settings().set(chiave_, kMenuSettings, "CU_Path", cartella);
    surroundings_.settings().deleteSection(chiave_, sessione_->settingsSection());
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace cu
