#pragma once

#include <map>
#include <string>

#include "controls/form.h"
#include "controls/listbox.h"
#include "gestione/contesto.h"
#include "gestione/righe_elenco.h"
#include "schede/schede.h"

namespace cu {

// The payments of a company in a year, with the sums by payee and reason, which are its accounts.
class FrmCompensi : public Form {
 public:
  FrmCompensi(const ContestoGestione& contesto, const schede::SchedaAzienda& azienda);

  std::string guideChapter() const override { return "I compensi"; }

  Label lblStato;
  ListBox cboAnno;
  Grid grdCompensi;
  Frame fraComandi;
  Button cmdNuovo;
  Button cmdModifica;
  Button cmdElimina;
  Label lblTotale;
  Grid grdTotali;
  Button cmdChiudi;

 private:
  void formLoad() override;
  void leggiNomi();
  void riempiAnni(int scelto);
  int anno() const;
  void ricarica(std::int32_t corrente);
  void mostraTotali();
  void abilita();
  void nuovo();
  void modifica();
  void elimina();
  void dopo(const schede::SchedaCompenso& scritto);
  const schede::SchedaCompenso* corrente() const;
  std::string detto(const schede::SchedaCompenso& compenso) const;

  const ContestoGestione& contesto_;
  std::int32_t idAzienda_;
  std::map<std::int32_t, std::string> percipienti_;  // by id: name and code
  std::map<std::int32_t, std::string> causali_;      // by id: code
  std::vector<schede::SchedaCompenso> compensi_;     // of the year
  RigheElenco righe_;
  RigheElenco totali_;
};

}  // namespace cu
