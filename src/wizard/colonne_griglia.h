#pragma once

#include <array>
#include <string_view>

#include "controls/grid.h"

namespace cu {

// For an annulment the grid shows only payees and references.
enum class Quando { Sempre, AnnullamentoSostituzione, NonAnnullamento, Nascosta };

struct ColonnaGriglia {
  std::string_view campo;
  std::string_view didascalia;
  int tipo;
  int larghezza;
  int allineamento;  // 0 left, 1 right, 2 centre
  Quando quando;
};

// The column that opens a row's menu, and the value whose picture it shows.
inline constexpr std::string_view kColonnaPopup = "Popup";
inline constexpr int kImmaginePopup = 2;

inline constexpr std::array<ColonnaGriglia, 31> kColonneGriglia = {{
    {"Selezionato", "[ 0 ]", kGridBoolean, 700, 2, Quando::Sempre},
    {"Popup", "", kGridBigInteger, 380, 0, Quando::Sempre},
    {"AnagraficaPerc", "Percipiente", kGridText, 2000, 0, Quando::Sempre},
    {"Codice", "Codice pagamento", kGridText, 700, 0, Quando::Sempre},
    {"ProtocolloAnnSost", "Protocollo da annullare/sostituire", kGridText, 2000, 0,
     Quando::AnnullamentoSostituzione},
    {"ProgressivoAnnSost", "Progressivo da annullare/sostituire", kGridText, 2000, 0,
     Quando::AnnullamentoSostituzione},
    {"Anticipazione", "Anticipazione", kGridBoolean, 700, 2, Quando::NonAnnullamento},
    {"AmmontareLordo", "Ammontare lordo", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"SommeRegimeConvenzionale", "Somme regime convenzionale", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"CodicePerNonSoggetti", "Codice per non soggetti", kGridText, 2000, 0, Quando::NonAnnullamento},
    {"SommeNonSoggetteARitenuta", "Somme non soggette a ritenuta", kGridDouble, 2000, 1,
     Quando::NonAnnullamento},
    {"Imponibile", "Imponibile", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteAcconto", "Ritenute d'acconto", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteImposta", "Ritenute d'imposta", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteSospese", "Ritenute sospese", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"AddRegionAcconto", "Add. Region. d'acconto", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"AddRegionImposta", "Add. Region. d'imposta", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"AddRegionSospesa", "Add. Region. Sospesa", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"AddComunAcconto", "Add. Comun. d'acconto", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"AddComunImposta", "Add. Comun. d'imposta", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"AddComunSospesa", "Add. Comun. Sospesa", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"ImponibileAnniPrecedenti", "Imponib. anni prec.", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteAnniPrecedenti", "Ritenute anni prec.", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"ContributiCaricoAzienda", "Contributi carico azienda", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"ContributiCaricoPercipiente", "Contributi carico percip.", kGridDouble, 2000, 1,
     Quando::NonAnnullamento},
    {"SpeseRimborsate", "Spese rimborsate", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteRimborsate", "Ritenute rimborsate", kGridDouble, 2000, 1, Quando::NonAnnullamento},
    {"ComuneResidenzaAnnoPrec", "Comune residenza anno prec.", kGridText, 2000, 0, Quando::NonAnnullamento},
    {"ComuneResidenzaAnnoCorr", "Comune residenza anno corr.", kGridText, 2000, 0, Quando::NonAnnullamento},
    {"IDAnagrafica", "IDAnagrafica", kGridBigInteger, 0, 0, Quando::Nascosta},
    {"IDCausalePagamento", "IDCausalePagamento", kGridBigInteger, 0, 0, Quando::Nascosta},
}};

}  // namespace cu
