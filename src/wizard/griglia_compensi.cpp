#include "wizard/griglia_compensi.h"

#include "base/text.h"
#include "liste/liste.h"

namespace cu {

static_assert(concordaGriglia(modello::kModello, kColonneLavoro, kColonneGriglia));

GrigliaCompensi::GrigliaCompensi(Grid& griglia) : griglia_(griglia) {
  // The row menu's column has no field: every row shows the picture of value 2.
  griglia_.paintValue = [](const GridColumn& colonna, Value& valore) {
    if (colonna.field == kColonnaPopup) valore = Value::ofInteger(kImmaginePopup);
  };
  griglia_.meaning = [](const GridColumn& colonna, const std::string& codice) {
    return colonna.field == "Codice" ? std::string(descrizioneCausale(codice)) : std::string();
  };
}

void GrigliaCompensi::sbFormattaGriglia(Comunicazione tipo) {
  const bool annullamento = tipo == Comunicazione::Annullamento;
  const bool sostituzione = tipo == Comunicazione::Sostituzione;
  const DrawingPause pausa(griglia_);
  griglia_.clearColumns();
  griglia_.decimalMark = ',';
  griglia_.thousandsMark = '.';
  for (const ColonnaGriglia& colonna : kColonneGriglia) {
    if (colonna.quando == Quando::AnnullamentoSostituzione && !annullamento && !sostituzione) continue;
    if (colonna.quando == Quando::NonAnnullamento && annullamento) continue;
    griglia_.addColumn({.field = std::string(colonna.campo),
                        .caption = std::string(colonna.didascalia),
                        .type = colonna.tipo,
                        .width = colonna.larghezza,
                        .alignment = colonna.allineamento,
                        .visible = colonna.quando != Quando::Nascosta});
  }
}

void GrigliaCompensi::contati(std::int64_t selezionati) {
  griglia_.setColumnCaption("Selezionato", "[ " + fromInteger(selezionati) + " ]");
}

}  // namespace cu
