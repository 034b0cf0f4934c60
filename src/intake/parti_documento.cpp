#include "intake/parti_documento.h"

#include "base/text.h"
#include "intake/controlli_riga.h"
#include "intake/valori_scheda.h"

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

schede::Importi importiDi(const fatture::ImportiFattura& importi) {
  using enum schede::Importo;
  schede::Importi suoi{};
  suoi[posto(Onorario)] = importi.onorario;
  suoi[posto(QuotaNonSoggetta)] = importi.quotaNonSoggetta;
  suoi[posto(SommeNonSoggette)] = importi.sommeNonSoggette;
  suoi[posto(RitenutaAcconto)] = importi.ritenutaAcconto;
  suoi[posto(RitenutaImposta)] = importi.ritenutaImposta;
  suoi[posto(ContributoPrevidenziale)] = importi.contributoPrevidenziale;
  suoi[posto(ContributoPercipiente)] = importi.contributoPercipiente;
  return suoi;
}

void mettiImporti(RigaLetta& riga, const schede::Importi& importi) {
  for (std::size_t i = 0; i < kColonneImporti.size(); ++i) {
    const ColonnaCompenso colonna = kColonneImporti[i];
    if (!importi[i].isZero() || colonna == ColonnaCompenso::Onorario) {
      mettiCampo(riga, colonna, CellView::ofDecimal(importi[i]));
    } else {
      std::erase_if(riga.campi,
                    [&](const Campo& campo) { return campo.colonna == static_cast<std::uint8_t>(colonna); });
    }
  }
}

}  // namespace cu::intake
