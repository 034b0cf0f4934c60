#pragma once

#include <array>
#include <string>
#include <string_view>

namespace cu {

class Recordset;
class UtilitaSuite;

// How a column of the edited row goes into the statement.
enum class Scrittura {
  Testo,       // quoted literal
  Assoluto,    // absolute value: a boolean's -1 is written as 1
  Numero,      // number literal
  TestoNullo,  // null-safe text
};

struct ColonnaRiscritta {
  std::string_view nome;
  Scrittura scrittura;
};

// What an editor can change of a line, in the order of the UPDATE of the work table.
inline constexpr std::array<ColonnaRiscritta, 74> kColonneRiscritte = {{
    {"ProtocolloAnnSost", Scrittura::Testo},
    {"ProgressivoAnnSost", Scrittura::Testo},
    {"Anticipazione", Scrittura::Assoluto},
    {"AmmontareLordo", Scrittura::Numero},
    {"SommeRegimeConvenzionale", Scrittura::Numero},
    {"IDCodicePerNonSoggetti", Scrittura::Numero},
    {"CodicePerNonSoggetti", Scrittura::Testo},
    {"SommeNonSoggetteARitenuta", Scrittura::Numero},
    {"QuotaProvvigioniNonSoggette", Scrittura::Numero},
    {"Imponibile", Scrittura::Numero},
    {"RitenuteAcconto", Scrittura::Numero},
    {"RitenuteImposta", Scrittura::Numero},
    {"RitenuteSospese", Scrittura::Numero},
    {"AddRegionAcconto", Scrittura::Numero},
    {"AddRegionImposta", Scrittura::Numero},
    {"AddRegionSospesa", Scrittura::Numero},
    {"AddComunAcconto", Scrittura::Numero},
    {"AddComunImposta", Scrittura::Numero},
    {"AddComunSospesa", Scrittura::Numero},
    {"ImponibileAnniPrecedenti", Scrittura::Numero},
    {"RitenuteAnniPrecedenti", Scrittura::Numero},
    {"SpeseRimborsate", Scrittura::Numero},
    {"RitenuteRimborsate", Scrittura::Numero},
    {"ContributiCaricoAzienda", Scrittura::Numero},
    {"ContributiCaricoPercipiente", Scrittura::Numero},
    {"AltriContributi", Scrittura::Assoluto},
    {"ImportoAltriContributi", Scrittura::Numero},
    {"ContributiDovuti", Scrittura::Numero},
    {"ContributiVersati", Scrittura::Numero},
    {"SommeCorrispostePreFallimento", Scrittura::Numero},
    {"SommeCorrisposteDalCuratore", Scrittura::Numero},
    {"AltriSoggettiCodiceFiscale", Scrittura::Testo},
    {"AltriSoggettiImponibile", Scrittura::Numero},
    {"AltriSoggettiRitenuteAcconto", Scrittura::Numero},
    {"AltriSoggettiRitenuteImposta", Scrittura::Numero},
    {"AltriSoggettiRitenuteSospese", Scrittura::Numero},
    {"AltriSoggettiAddRegionAcconto", Scrittura::Numero},
    {"AltriSoggettiAddRegionImposta", Scrittura::Numero},
    {"AltriSoggettiAddRegionSospesa", Scrittura::Numero},
    {"AltriSoggettiAddComunAcconto", Scrittura::Numero},
    {"AltriSoggettiAddComunImposta", Scrittura::Numero},
    {"AltriSoggettiAddComunSospesa", Scrittura::Numero},
    {"CodiceFiscaleLavoroAutonomo", Scrittura::Testo},
    {"CodiceFiscalePignoramentoTerzi", Scrittura::Testo},
    {"CodiceFiscaleIndennitaEsproprio", Scrittura::Testo},
    {"PignoramentoTerziCodiceFiscale1", Scrittura::Testo},
    {"PignoramentoTerziSommeErogate1", Scrittura::Numero},
    {"PignoramentoTerziRitenuteOperate1", Scrittura::Numero},
    {"PignoramentoTerziRitenuteNonOperate1", Scrittura::Assoluto},
    {"PignoramentoTerziSommeNonTassate1", Scrittura::Numero},
    {"PignoramentoTerziCodiceFiscale2", Scrittura::Testo},
    {"PignoramentoTerziSommeErogate2", Scrittura::Numero},
    {"PignoramentoTerziRitenuteOperate2", Scrittura::Numero},
    {"PignoramentoTerziRitenuteNonOperate2", Scrittura::Assoluto},
    {"PignoramentoTerziSommeNonTassate2", Scrittura::Numero},
    {"IndennitaEsproprioSommeCorrisposte1", Scrittura::Numero},
    {"IndennitaEsproprioRitenuteOperate1", Scrittura::Numero},
    {"AltreIndennitaSommeCorrisposte1", Scrittura::Numero},
    {"AltreIndennitaRitenuteOperate1", Scrittura::Numero},
    {"IndennitaEsproprioSommeCorrisposte2", Scrittura::Numero},
    {"IndennitaEsproprioRitenuteOperate2", Scrittura::Numero},
    {"AltreIndennitaSommeCorrisposte2", Scrittura::Numero},
    {"AltreIndennitaRitenuteOperate2", Scrittura::Numero},
    {"IDComuneResidenzaAnnoPrec", Scrittura::Numero},
    {"IDComuneResidenzaAnnoCorr", Scrittura::Numero},
    {"ComuneResidenzaAnnoPrec", Scrittura::Testo},
    {"ComuneResidenzaAnnoCorr", Scrittura::Testo},
    {"SiglaProvResidenzaAnnoPrec", Scrittura::Testo},
    {"CodiceComuneDiNascitaPrec", Scrittura::Testo},
    {"SiglaProvResidenzaAnnoCorr", Scrittura::Testo},
    {"CodiceComuneDiNascitaCorr", Scrittura::Testo},
    {"FusioneComuni", Scrittura::Testo},
    {"FusioneComuniAnnoPrec", Scrittura::Testo},
    {"Modificato", Scrittura::TestoNullo},
}};

// The additional data of a line, in the order of the MERGE into the accounts.
inline constexpr std::array<std::string_view, 57> kDatiAggiuntivi = {{
    "QuotaProvvigioniNonSoggette",
    "Anticipazione",
    "IDCodicePerNonSoggetti",
    "RitenuteSospese",
    "AddRegionAcconto",
    "AddRegionImposta",
    "AddRegionSospesa",
    "AddComunAcconto",
    "AddComunImposta",
    "AddComunSospesa",
    "ImponibileAnniPrecedenti",
    "RitenuteAnniPrecedenti",
    "RitenuteRimborsate",
    "AltriContributi",
    "ImportoAltriContributi",
    "ContributiDovuti",
    "ContributiVersati",
    "SommeCorrispostePreFallimento",
    "SommeCorrisposteDalCuratore",
    "AltriSoggettiCodiceFiscale",
    "AltriSoggettiImponibile",
    "AltriSoggettiRitenuteAcconto",
    "AltriSoggettiRitenuteImposta",
    "AltriSoggettiRitenuteSospese",
    "AltriSoggettiAddRegionAcconto",
    "AltriSoggettiAddRegionImposta",
    "AltriSoggettiAddRegionSospesa",
    "AltriSoggettiAddComunAcconto",
    "AltriSoggettiAddComunImposta",
    "AltriSoggettiAddComunSospesa",
    "CodiceFiscaleLavoroAutonomo",
    "CodiceFiscalePignoramentoTerzi",
    "CodiceFiscaleIndennitaEsproprio",
    "PignoramentoTerziCodiceFiscale1",
    "PignoramentoTerziSommeErogate1",
    "PignoramentoTerziRitenuteOperate1",
    "PignoramentoTerziRitenuteNonOperate1",
    "PignoramentoTerziSommeNonTassate1",
    "PignoramentoTerziCodiceFiscale2",
    "PignoramentoTerziSommeErogate2",
    "PignoramentoTerziRitenuteOperate2",
    "PignoramentoTerziRitenuteNonOperate2",
    "PignoramentoTerziSommeNonTassate2",
    "IndennitaEsproprioSommeCorrisposte1",
    "IndennitaEsproprioRitenuteOperate1",
    "AltreIndennitaSommeCorrisposte1",
    "AltreIndennitaRitenuteOperate1",
    "IndennitaEsproprioSommeCorrisposte2",
    "IndennitaEsproprioRitenuteOperate2",
    "AltreIndennitaSommeCorrisposte2",
    "AltreIndennitaRitenuteOperate2",
    "ProtocolloAnnSost",
    "ProgressivoAnnSost",
    "FusioneComuni",
    "FusioneComuniAnnoPrec",
    "IDComuneResidenzaAnnoPrec",
    "IDComuneResidenzaAnnoCorr",
}};

// " WHERE Anno = ... AND IDAnagrafica = ... AND IDAzienda = ... AND IDCausalePagamento = ..." of the current
// row.
std::string fnChiaveRiga(const Recordset& riga);

// The UPDATE that brings the current row of the recordset to the work table.
std::string fnAggiornaRiga(const std::string& tabella, const Recordset& riga, const UtilitaSuite& utilita);

// The two statements that bring the changed and selected rows to the accounts.
std::string fnAggiornaConti(const std::string& tabella);
std::string fnAggiornaDatiAggiuntivi(const std::string& tabella);

}  // namespace cu
