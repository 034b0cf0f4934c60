#include "apps/comune/registro_programma.h"

#include <memory>
#include <utility>

#include "suite/support_log.h"

namespace cu {
namespace {

using std::chrono::steady_clock;

RegistroProgramma* registroInCorso = nullptr;

std::chrono::microseconds trascorsi(steady_clock::time_point inizio) {
  return std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - inizio);
}

}  // namespace

RegistroProgramma::RegistroProgramma(std::string avvio, Avviso avviso)
    : avvio_(std::move(avvio)), avviso_(std::move(avviso)), inizio_(steady_clock::now()) {
  registroInCorso = this;
}

RegistroProgramma::~RegistroProgramma() {
  registroInCorso = nullptr;
  SupportLog::activate(nullptr);
}

void RegistroProgramma::apri(const std::string& file) {
  if (file.empty() || SupportLog::active() != nullptr) return;
  auto log = std::make_unique<SupportLog>(SupportLog::Settings{.path = file, .warn = avviso_});
  if (!log->works()) return;
  log->record({.operation = "avvio", .detail = avvio_});
  SupportLog::activate(std::move(log));
}

void RegistroProgramma::fine(int esito) {
  if (SupportLog* const log = SupportLog::active(); log != nullptr)
    log->record({.operation = "fine", .duration = trascorsi(inizio_), .exitCode = esito});
}

void RegistroProgramma::fine(const std::exception& errore) {
  if (SupportLog* const log = SupportLog::active(); log != nullptr)
    log->record({.operation = "fine", .duration = trascorsi(inizio_), .error = &errore});
}

Profilo leggiProfiloConRegistro(const std::string& file) {
  Profilo profilo = leggiProfilo(file);
  if (registroInCorso != nullptr) registroInCorso->apri(profilo.registro);
  return profilo;
}

}  // namespace cu
