#include "gestione/gestione.h"

#include "base/error.h"
#include "host/testi_programma.h"
#include "schede/conteggio.h"

namespace cu {

Gestione::Gestione(const AmbienteGestione& ambiente) : contesto_{ambiente} {}
Gestione::~Gestione() = default;

void Gestione::main() {
  sessione_ = contesto_.factory.createSessione();
  sessione_->setProgramName(std::string(kNomeProgramma));
  contesto_.titolo = sessione_->title();
  if (contesto_.titolo.empty()) contesto_.titolo = kNomeProgramma;
  try {
    sessione_->start(0);
  } catch (const Error& errore) {
    if (errore.number() != kErrorSessionRefused) throw;
    refused_ = true;
    contesto_.utilita.refusedStart(contesto_.factory.createTesti()->text(237), contesto_.titolo);
    return;
  }
  contesto_.database = &sessione_->database();
  contesto_.contestoGuida = sessione_->helpContext();
  contesto_.scrivibile = schede::archivioProprio(contesto_.connessione());
  contesto_.valuta = contesto_.factory.createValuta()->valuta(
      contesto_.connessione(), contesto_.clock.today(), sessione_->IDUtente(), sessione_->IDAzienda());
  archivi_ = std::make_unique<FrmArchivi>(contesto_);
  archivi_->show();
}

}  // namespace cu
