#pragma once

#include <functional>
#include <memory>
#include <string>

#include "apps/comune/surroundings.h"
#include "apps/comune/terminale.h"
#include "fornitura/intorno.h"

namespace cu {

// The session of a command without forms: started, used and ended in the same way as by the wizard.
class SessioneComando {
 public:
  SessioneComando(Surroundings& surroundings, Terminale& terminale)
      : surroundings_(surroundings), terminale_(terminale) {}

  // Runs the work in the session. A rejected start, and an error of the work, become messages of the
  // terminal; a session that was begun is ended in either case.
  void esegui(const std::function<void()>& lavoro);

  fornitura::Intorno intorno();
  TestiSuite& testi() { return *testi_; }
  // The folder of the telematic file: read from the settings, and stored there when the session ends.
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
