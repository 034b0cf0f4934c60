#pragma once

#include <memory>

#include "apps/comune/connessioni.h"
#include "base/error.h"
#include "riscontro/registro.h"

namespace cu {

// The database keeps no record of files; the text says how to change that.
class SenzaRegistro : public Error {
 public:
  SenzaRegistro()
      : Error(kErrorObjectBase,
              "Il database non ha le tabelle per seguire gli invii. Aggiungerle con «cuctl upgrade "
              "--database URL».") {}
};

// The record of a profile's database, over a connection of its own.
class RegistroDelProfilo {
 public:
  explicit RegistroDelProfilo(const Profilo& profilo)
      : connessione_(apriConnessione(profilo.database)), registro_(*connessione_) {
    if (!registro_.presente()) throw SenzaRegistro();
  }
  riscontro::Registro& operator*() { return registro_; }
  riscontro::Registro* operator->() { return &registro_; }

 private:
  std::unique_ptr<Connection> connessione_;
  riscontro::Registro registro_;
};

}  // namespace cu
