#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "controls/form.h"
#include "gestione/contesto.h"
#include "gestione/righe_elenco.h"
#include "schede/registrazione.h"

namespace cu {

// The companies of a database, and the way to their payees and payments.
class FrmArchivi : public Form {
 public:
  explicit FrmArchivi(const ContestoGestione& contesto);

  std::string guideChapter() const override { return "Dati propri"; }

  Label lblStato;
  Grid grdAziende;
  Frame fraAziende;
  Button cmdNuova;
  Button cmdModifica;
  Button cmdElimina;
  Frame fraDati;
  Button cmdPercipienti;
  Button cmdCompensi;
  Button cmdRicalcola;
  Button cmdChiudi;

 private:
  void formLoad() override;
  void ricarica(std::int32_t corrente);
  void abilita();
  void nuova();
  void modifica();
  void elimina();
  void percipienti();
  void compensi();
  void ricalcola();
  std::optional<std::size_t> ricalcolati(std::int32_t idAzienda,
                                         const std::vector<schede::ContoToccato>& tranne);
  const schede::SchedaAzienda* corrente() const;

  const ContestoGestione& contesto_;
  std::vector<schede::SchedaAzienda> aziende_;
  RigheElenco righe_;
};

}  // namespace cu
