#pragma once

#include <memory>

#include "gestione/frm_archivi.h"

namespace cu {

// The entry to the forms for own data: binds the session and shows the list of companies.
class Gestione {
 public:
  explicit Gestione(const AmbienteGestione& ambiente);
  ~Gestione();

  // Returns at once; the process lives as long as the form is open. A session that cannot start is reported
  // in a box; every other error is raised.
  void main();

  bool refused() const { return refused_; }         // the session could not start
  FrmArchivi* archivi() { return archivi_.get(); }  // null before main()
  SessioneHost* sessione() { return sessione_.get(); }
  const ContestoGestione& contesto() const { return contesto_; }

 private:
  std::unique_ptr<SessioneHost> sessione_;
  ContestoGestione contesto_;
  std::unique_ptr<FrmArchivi> archivi_;
  bool refused_ = false;
};

}  // namespace cu
