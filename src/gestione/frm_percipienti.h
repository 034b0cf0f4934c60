#pragma once

#include "controls/form.h"
#include "controls/textbox.h"
#include "gestione/contesto.h"
#include "gestione/righe_elenco.h"
#include "schede/schede.h"

namespace cu {

// The payees of a company. The box above them narrows the list to the rows that have what is written in code,
// name or fiscal code.
class FrmPercipienti : public Form {
 public:
  FrmPercipienti(const ContestoGestione& contesto, const schede::SchedaAzienda& azienda);

  std::string guideChapter() const override { return "I percipienti"; }

  Label lblTrovati;
  TextBox txtCerca;
  Grid grdPercipienti;
  Frame fraComandi;
  Button cmdNuovo;
  Button cmdModifica;
  Button cmdElimina;
  Button cmdChiudi;

 private:
  void formLoad() override;
  void ricarica(std::int32_t corrente);
  void mostra();
  void abilita();
  void nuovo();
  void modifica();
  void elimina();
  const schede::SchedaPercipiente* corrente() const;

  const ContestoGestione& contesto_;
  std::int32_t idAzienda_;
  struct Voce {
    schede::SchedaPercipiente percipiente;
    std::string nominativo;
    std::string cercabile;  // code, name and fiscal code, as they are compared
  };
  std::vector<Voce> percipienti_;  // by name
  std::string codiceProposto_;     // for the next one
  RigheElenco righe_;
};

}  // namespace cu
