#include "apps/assistente/importazione_guidata.h"

#include "apps/assistente/finestra_assistente.h"
#include "apps/assistente/finestra_storico.h"

namespace cu::assistente {
namespace {

void davanti(QWidget* finestra) {
  finestra->show();
  finestra->raise();
  finestra->activateWindow();
}

}  // namespace

void apriImportazione(const Profilo& profilo, const QStringList& file) {
  davanti(new FinestraAssistente(profilo, file));
}

void apriStorico(const Profilo& profilo) { davanti(new FinestraStorico(profilo)); }

}  // namespace cu::assistente
