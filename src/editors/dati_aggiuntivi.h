#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace cu {

inline constexpr std::size_t kDescrizione = 255;  // maximum length of the text columns, in characters

// The data outside the picture of the form: the references to the certificate that is annulled or replaced,
// and the payee's residence in the previous and in the current year.
struct DatiAggiuntivi {
  std::string Protocollo;
  std::string Progressivo;
  std::int32_t IDComuneResidenzaAnnoPrec = 0;
  std::int32_t IDComuneResidenzaAnnoCorr = 0;
  std::string ComuneResidenzaAnnoPrec;
  std::string ComuneResidenzaAnnoCorr;
  std::string FusioneComuni;
  std::string FusioneComuniAnnoPrec;
  bool operator==(const DatiAggiuntivi&) const = default;
};

}  // namespace cu
