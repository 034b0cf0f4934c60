#pragma once

#include <span>

#include "controls/grid.h"
#include "host/modi.h"
#include "modello/modello.h"
#include "wizard/colonne_griglia.h"
#include "worklist/compensi.h"
#include "worklist/concordanza.h"

namespace cu {

// The worklist in the grid of the second step.
class GrigliaCompensi : public VistaCompensi {
 public:
  explicit GrigliaCompensi(Grid& griglia);

  // Configures the columns for the kind of communication.
  void sbFormattaGriglia(Comunicazione tipo);

  void caricati(Recordset& righe) override { griglia_.bind(&righe); }
  void contati(std::int64_t selezionati) override;
  void cambiati() override { griglia_.refresh(); }
  void sospendi() override { griglia_.suspendDrawing(); }
  void riprendi() override { griglia_.resumeDrawing(); }

 private:
  Grid& griglia_;
};

constexpr int tipoGriglia(modello::Genere genere) {
  switch (genere) {
    case modello::Genere::Importo:
      return kGridDouble;
    case modello::Genere::Testo:
      return kGridText;
    case modello::Genere::Flag:
      return kGridBoolean;
    case modello::Genere::Elenco:
    case modello::Genere::Numero:
      break;
  }
  return kGridBigInteger;
}

// The grid shows columns of the work table; those of the form with the form's kind.
constexpr bool concordaGriglia(const modello::Modello& modello, std::span<const ColonnaLavoro> lavoro,
                               std::span<const ColonnaGriglia> griglia) {
  for (const ColonnaGriglia& colonna : griglia) {
    if (colonna.campo == kColonnaPopup) continue;
    if (colonnaLavoro(lavoro, colonna.campo) == nullptr) return false;
    const modello::Trovato trovato = trova(modello, colonna.campo);
    if (trovato.campo != nullptr && tipoGriglia(trovato.colonna.genere) != colonna.tipo) return false;
  }
  return true;
}

}  // namespace cu
