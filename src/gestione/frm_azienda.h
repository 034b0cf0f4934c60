#pragma once

#include <optional>

#include "controls/listbox.h"
#include "controls/picker.h"
#include "controls/selector.h"
#include "gestione/form_scheda.h"
#include "schede/luoghi.h"

namespace cu {

// The editor of a company; without a record it makes a new one.
class FrmAzienda : public FormScheda {
 public:
  FrmAzienda(const ContestoGestione& contesto, std::optional<schede::SchedaAzienda> prima);

  std::int32_t idAzienda() const { return scritta_.id; }  // once it was written
  std::string guideChapter() const override { return "L'azienda"; }

  Frame fraAzienda;
  TextBox txtCodiceFiscale;
  TextBox txtPartitaIva;
  Check chkPersonaFisica;
  TextBox txtDenominazione;
  TextBox txtNome;
  TextBox txtCodiceAttivita;
  Label lblCodiceFiscale;
  Frame fraSede;
  TextBox txtIndirizzo;
  TextBox txtCap;
  Picker TownComune;
  TextBox txtTelefono;
  TextBox txtFax;
  TextBox txtEmail;
  Frame fraRappresentante;
  TextBox txtRappCodiceFiscale;
  TextBox txtRappCognome;
  TextBox txtRappNome;
  Selector KrnCDCarica;
  Label lblRappresentante;
  Frame fraFornitura;
  TextBox txtCodiceFiscaleSocieta;
  ListBox cboEvento;
  TextBox txtIntermediario;
  ListBox cboImpegno;
  DateBox datImpegno;
  Button cmdOk;
  Button cmdAnnulla;

 private:
  void formLoad() override;
  bool cambiata() const override;
  bool registra() override;
  void mostra();
  void mostraControlli();
  void personaCambiata();
  schede::SchedaAzienda raccolta() const;
  bool ammessa(std::vector<std::string>& avvisi);
  void avvisaDoppioni(const schede::SchedaAzienda& azienda, std::vector<std::string>& avvisi) const;

  std::optional<schede::SchedaAzienda> prima_;
  schede::SchedaAzienda scritta_;
  schede::SchedaAzienda caricata_;  // as the form shows it before any change
  std::optional<schede::Luoghi> luoghi_;
};

}  // namespace cu
