#include "suite/orologio.h"

#include <ctime>

namespace cu {
namespace {

std::tm adesso() {
  const std::time_t istante = std::time(nullptr);
  std::tm locale{};
  ::localtime_r(&istante, &locale);
  return locale;
}

}  // namespace

Date OrologioSistema::today() const {
  const std::tm ora = adesso();
  return Date::fromYmd(ora.tm_year + 1900, ora.tm_mon + 1, ora.tm_mday).value_or(Date());
}

TimeOfDay OrologioSistema::now() const {
  const std::tm ora = adesso();
  return {ora.tm_hour, ora.tm_min, ora.tm_sec};
}

std::unique_ptr<Clock> orologio(const Profilo& profilo) {
  if (profilo.sessione.oggi) return std::make_unique<OrologioFisso>(*profilo.sessione.oggi);
  return std::make_unique<OrologioSistema>();
}

}  // namespace cu
