#include "intake/parti_documento.h"

#include "base/text.h"

namespace cu::intake {

bool eLui(const fatture::Soggetto& chi, const schede::SchedaAnagrafica& azienda) {
  const auto uno = [](const std::string& codice, const std::string& altro) {
    return !codice.empty() && equalsNoCase(codice, trim(altro));
  };
  if (!chi.codiceFiscale.empty() &&
      (!azienda.codiceFiscale.empty() || !uno(chi.partitaIva, azienda.partitaIva))) {
    return uno(chi.codiceFiscale, azienda.codiceFiscale) || uno(chi.codiceFiscale, azienda.partitaIva);
  }
  return uno(chi.partitaIva, azienda.partitaIva) || uno(chi.partitaIva, azienda.codiceFiscale);
}

std::string chiE(const fatture::Soggetto& chi) {
  const std::string& codice = chi.codiceFiscale.empty() ? chi.partitaIva : chi.codiceFiscale;
  const std::string nome = chi.nominativo();
  return nome.empty() ? codice : nome + (codice.empty() ? "" : ", " + codice);
}

}  // namespace cu::intake
