#pragma once

#include "controls/picker.h"
#include "editors/dati_aggiuntivi.h"
#include "editors/editor.h"
#include "editors/percipiente.h"
#include "editors/riferimenti.h"

namespace cu {

// The small dialog of the additional data of one line. Its values are read back whatever the outcome of OK.
class FrmDatiAggiuntivi : public Form {
 public:
  explicit FrmDatiAggiuntivi(const AmbienteEditor& ambiente);

  std::int32_t IDAnagrafica = 0;
  std::int32_t IDCausalePagamento = 0;
  std::string Nome;
  DatiAggiuntivi dati;
  void setTipoComunicazione(Comunicazione tipo);
  void sbFill();  // copies the members into the controls
  bool OK() const { return ok_; }
  std::string guideChapter() const override { return "Dati aggiuntivi"; }
  std::optional<std::string> rowWork() const override;
  bool shrunk() const override { return tipo_ == Comunicazione::Annullamento; }

  Frame fraTab0;
  Riferimenti riferimenti;
  Frame Frame1;
  Percipiente percipiente;
  Frame fraMain;
  Frame Frame2;
  Picker TownComuneResidenzaAnnoPrec;
  Label lblFusioneComuniAnnoPrec;
  TextBox txtFusioneComuniAnnoPrec;
  Frame Frame3;
  Picker TownComuneResidenzaAnnoCorr;
  Label lblFusioneComuni;
  TextBox txtFusioneComuni;
  Button cmdOk;
  Button cmdAnnulla;

 private:
  void formLoad() override;
  void formUnload() override;
  bool refusesClose() override;
  void conferma();
  DatiAggiuntivi scritti() const;  // as now in the controls

  AmbienteEditor ambiente_;
  Comunicazione tipo_ = Comunicazione::Nessuna;
  bool ok_ = false;
};

// A picker's id in the form stored in the rows.
std::int32_t idComune(const Picker& comune);
// Binds a picker for the run: its title and its help.
void associaComune(Picker& comune, const AmbienteEditor& ambiente);

}  // namespace cu
