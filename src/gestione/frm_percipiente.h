#pragma once

#include <array>
#include <optional>

#include "controls/listbox.h"
#include "controls/picker.h"
#include "gestione/esame_codice.h"
#include "gestione/form_scheda.h"
#include "schede/luoghi.h"

namespace cu {

// The editor of a payee; without a record it makes a new one with the code proposed. The fiscal code is
// examined while it is typed: what it says of sex and birth fills these fields, which are marked as derived
// until the user writes into them.
class FrmPercipiente : public FormScheda {
 public:
  FrmPercipiente(const ContestoGestione& contesto, std::int32_t idAzienda,
                 std::optional<schede::SchedaPercipiente> prima, std::string codiceProposto = {});

  std::int32_t idAnagrafica() const { return scritta_.anagrafica.id; }  // once it was written
  std::string guideChapter() const override { return "I percipienti"; }

  Frame fraPercipiente;
  TextBox txtCodice;
  TextBox txtCodiceFiscale;
  TextBox txtPartitaIva;
  Check chkPersonaFisica;
  TextBox txtCognome;
  TextBox txtNome;
  Label lblCodiceFiscale;
  Frame fraNascita;
  ListBox cboSesso;
  DateBox datNascita;
  Picker TownComuneNascita;
  ListBox cboNazioneNascita;
  Frame fraDomicilio;
  TextBox txtIndirizzo;
  TextBox txtCap;
  Picker TownComune;
  ListBox cboNazione;
  TextBox txtLocalita;
  TextBox txtEmail;
  TextBox txtTelefono;
  TextBox txtFax;
  Frame fraFornitura;
  Check chkNonResidente;
  Check chkSchumacker;
  TextBox txtCodiceFiscaleEstero;
  TextBox txtRappresentante;
  ListBox cboCategoria;
  ListBox cboEvento;
  ListBox cboEnte;
  ListBox cboCategoriaEnte;
  TextBox txtEnpam;
  TextBox txtEnpapi;
  Button cmdOk;
  Button cmdAnnulla;

 private:
  // The fields that a fiscal code fills.
  enum Derivabile : std::uint8_t { kSesso, kNascita, kComune, kNazione, kPersona, kDerivabili };

  void formLoad() override;
  bool cambiata() const override;
  bool registra() override;
  void collegaCampi();
  void riempiElenchi();
  void mostra();
  void mostraAltri();
  void codiceCambiato();
  void deriva(const DatiDerivati& dati);
  void scrittoAMano(Derivabile campo);
  void mostraDerivato(Derivabile campo);
  bool vuoto(Derivabile campo) const;
  void mostraEsame();
  void personaCambiata();
  void nazioneCambiata();
  DatiAccanto accanto(const schede::SchedaPercipiente& percipiente) const;
  schede::SchedaPercipiente raccolta() const;
  std::string localitaScritta() const;
  bool ammesso(std::vector<std::string>& avvisi);
  void avvisaDoppioni(const schede::SchedaPercipiente& percipiente, std::vector<std::string>& avvisi) const;

  std::int32_t idAzienda_;
  std::optional<schede::SchedaPercipiente> prima_;
  schede::SchedaPercipiente scritta_;
  schede::SchedaPercipiente caricata_;  // as the form shows it before any change
  std::string localitaCaricata_;
  std::optional<schede::Luoghi> luoghi_;
  EsameCodice esame_;
  std::array<bool, kDerivabili> derivato_{};
  bool derivando_ = false;
};

// The code that follows those of the payees: the same letters and the next number.
std::string codiceSeguente(const std::vector<schede::SchedaPercipiente>& percipienti);

}  // namespace cu
