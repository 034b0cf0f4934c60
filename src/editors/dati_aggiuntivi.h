#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace cu {

inline constexpr std::size_t kDescrizione = 255;  // characters of the columns that keep the texts

// What the picture of the form does not show: the references to the certificate that is annulled or replaced,
// and where the payee lived in the previous and in the current year.
struct DatiAggiuntivi {
  std::string Protocollo;
  std::string Progressivo;
  std::int32_t IDComuneResidenzaAnnoPrec = 0;
  std::int32_t IDComuneResidenzaAnnoCorr = 0;
  std::string ComuneResidenzaAnnoPrec;
  std::string ComuneResidenzaAnnoCorr;
  std::string FusioneComuni;
  std::string FusioneComuniAnnoPrec;
};

}  // namespace cu
