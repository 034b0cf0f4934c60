#include "suite/catalogo_stampe.h"

#include <array>

namespace cu {
namespace {

struct Stampa {
  std::int32_t tipoOggetto;
  const char* file;
  std::int32_t definizione;
};

constexpr std::array<Stampa, 4> kStampe = {{
    {246, "ContoIndividuale.rpt", 2461},
    {247, "CertificazioneCompensiSintetico.rpt", 2471},
    {247, "CertificazioneCompensiAnalitico.rpt", 2472},
    {342, "CertificazioneUnica.rpt", 3421},
}};

}  // namespace

std::vector<ReportInfo> CatalogoStampe::reports(std::int32_t objectType) const {
  std::vector<ReportInfo> trovate;
  for (const Stampa& stampa : kStampe) {
    if (stampa.tipoOggetto == objectType) trovate.push_back({stampa.file, stampa.definizione});
  }
  return trovate;
}

}  // namespace cu
