#include "apps/assistente/importazione_guidata.h"

#include <utility>

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

void apriImportazione(const Profilo& profilo, const QStringList& file, std::function<void()> importate) {
  auto* const finestra = new FinestraAssistente(profilo, file);
  finestra->importate = std::move(importate);
  davanti(finestra);
}

void apriStorico(const Profilo& profilo) { davanti(new FinestraStorico(profilo)); }

}  // namespace cu::assistente
