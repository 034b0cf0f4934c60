#pragma once

#include <functional>
#include <memory>
#include <string>

#include "apps/comune/surroundings.h"
#include "apps/comune/terminale.h"
#include "fornitura/intorno.h"

namespace cu {

// The session of a command that runs without a form: it is started, worked in and left as the wizard does.
class SessioneComando {
 public:
  SessioneComando(Surroundings& surroundings, Terminale& terminale)
      : surroundings_(surroundings), terminale_(terminale) {}

  // Runs the work in the session. What the start refuses, and what the work raises, is a message of the
  // terminal; the session is left in both cases where it was begun.
  void esegui(const std::function<void()>& lavoro);

  fornitura::Intorno intorno();
  TestiSuite& testi() { return *testi_; }
  // The folder of the telematic file: as the settings have it, and kept there when the session is left.
  std::string cartella;

 private:
  void avvia();
  void lascia();

  Surroundings& surroundings_;
  Terminale& terminale_;
  std::unique_ptr<TestiSuite> testi_;
  std::unique_ptr<SessioneHost> sessione_;
  std::string chiave_;
};

}  // namespace cu
