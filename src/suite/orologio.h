#pragma once

#include <memory>

#include "host/clock.h"
#include "suite/profilo.h"

namespace cu {

// The machine's clock, in local time.
class OrologioSistema : public Clock {
 public:
  Date today() const override;
  TimeOfDay now() const override;
};

// A clock stopped at an instant.
class OrologioFisso : public Clock {
 public:
  explicit OrologioFisso(const Profilo::Istante& istante) : istante_(istante) {}
  Date today() const override { return istante_.giorno; }
  TimeOfDay now() const override { return istante_.ora; }

 private:
  Profilo::Istante istante_;
};

// The clock configured by the profile.
std::unique_ptr<Clock> orologio(const Profilo& profilo);

}  // namespace cu
