#include "suite/testi.h"

#include <array>

namespace cu {
namespace {

struct Testo {
  std::int16_t numero;
  const char* testo;
};

constexpr std::array<Testo, 5> kTesti = {{
    {80, "&Ricerca oggetto"},
    {237, "La sessione di lavoro non può essere avviata. Aprire di nuovo la procedura dal menu della suite."},
    {829, "&Gestione collegata"},
    {1264, "Comunicazioni CU"},
    {1368, "Quadrivio"},
}};

}  // namespace

std::string TestiItaliani::text(std::int16_t number) {
  for (const Testo& testo : kTesti) {
    if (testo.numero == number) return testo.testo;
  }
  return {};
}

}  // namespace cu
