#pragma once

#include <array>
#include <optional>

#include "controls/numericbox.h"
#include "controls/selector.h"
#include "gestione/conteggio_compenso.h"
#include "gestione/form_scheda.h"

namespace cu {

// Said where the account of a payment would lose what someone has corrected in it.
inline constexpr const char* kContoCorretto =
    "Gli importi del conto di questo percipiente, per la causale e l'anno, sono stati corretti a mano: dopo, "
    "tornano a essere la somma dei compensi.";

// The editor of a payment; without a record it makes new ones. Base, taxes and net follow from what is typed,
// and each of them can be overwritten.
class FrmPagamento : public FormScheda {
 public:
  // `anno` is that of the day proposed for a new payment.
  FrmPagamento(const ContestoGestione& contesto, std::int32_t idAzienda,
               std::optional<schede::SchedaCompenso> prima, int anno);

  // The payment written last; none where none was.
  const std::optional<schede::SchedaCompenso>& ultimo() const { return ultimo_; }
  std::string guideChapter() const override { return "I compensi"; }

  Frame fraPagamento;
  Selector KrnCDPerc;
  Selector KrnCDCausale;
  DateBox datPagamento;
  TextBox txtNumero;
  DateBox datDocumento;
  Label lblAvvisi;
  Frame fraImporti;
  AmountBox ambOnorario;
  AmountBox ambQuota;
  AmountBox ambImponibile;
  AmountBox ambRitenutaAcconto;
  AmountBox ambRitenutaImposta;
  AmountBox ambSommeNonSoggette;
  AmountBox ambRegimeConvenzionale;
  AmountBox ambContributo;
  AmountBox ambContributoPercipiente;
  AmountBox ambLordo;
  AmountBox ambNetto;
  Button cmdAltro;
  Button cmdOk;
  Button cmdAnnulla;

 private:
  void formLoad() override;
  bool cambiata() const override;
  bool registra() override;
  void mostra();
  void regolaCambiata();
  void scritta(Cifra cifra);
  void mostraCifre(std::optional<Cifra> tranne);
  void mostraAvvisi();
  void registraEAltro();
  AmountBox& casella(Cifra cifra) { return *caselle_[static_cast<std::size_t>(cifra)]; }
  schede::SchedaCompenso raccolta() const;
  // Refused: what was written in a selector and is not in its list.
  bool esiste(Selector& selettore, const char* nessuno);
  bool ammesso(std::vector<std::string>& avvisi);
  bool contiAmmessi(const schede::SchedaCompenso& compenso);

  std::int32_t idAzienda_;
  std::optional<schede::SchedaCompenso> prima_;
  schede::SchedaCompenso partenza_;  // what the form showed first
  schede::SchedaCompenso caricata_;
  std::optional<schede::SchedaCompenso> ultimo_;
  ConteggioCompenso conteggio_;
  std::array<AmountBox*, kCifre> caselle_;
  bool mostrando_ = false;
};

}  // namespace cu
