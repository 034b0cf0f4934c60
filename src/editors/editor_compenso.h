#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/grid.h"
#include "controls/picker.h"
#include "controls/tabs.h"
#include "editors/casella.h"
#include "editors/dati_aggiuntivi.h"
#include "editors/disposizione.h"
#include "editors/editor.h"
#include "editors/percipiente.h"
#include "editors/riferimenti.h"

namespace cu {

// The editor of a compensation line, for any layout of the ministerial form.
class EditorCompenso : public Editor {
 public:
  // The year is required to be a known year of the form. `annoFile` is that of the line.
  // `elencoCodici` is the statement of the codes of sums not subject to withholding.
  EditorCompenso(std::int32_t anno, std::int32_t annoFile, std::string elencoCodici,
                 const AmbienteEditor& ambiente);

  void setRecordset(cu::Recordset& righe) override;
  cu::Recordset& Recordset() override { return *recordset_; }
  void setTipoComunicazione(Comunicazione tipo) override;
  void ApriDatiAggiuntivi() override;
  bool OK() const override { return ok_; }

  const Scroll* scroll() const override { return disposizione_.immagine ? &scroll_ : nullptr; }
  std::string guideChapter() const override;
  std::optional<std::string> rowWork() const override;
  bool shrunk() const override {
    return !disposizione_.immagine && TipoComunicazione == Comunicazione::Annullamento;
  }

 private:
  enum class Segno { Nessuno, RigaModificata, ModuloModificato };

  void formLoad() override;
  void formUnload() override;

  // The controls, created from the tables.
  template <class C, class... Args>
  C& crea(Args&&... args);
  void creaPagine();
  void creaAltriDati(Frame* pagina);
  void creaPagina(Pagina pagina, Frame* dove);
  void creaIntestazione(Pagina pagina, Frame* dove);
  void creaLettura(Pagina pagina, const CampoIntestazione& campo, Frame* dove);
  static void chiudi(TextBox& casella);
  void creaSezione(Pagina pagina, Sezione sezione, Frame* dove);
  void creaCampo(Pagina pagina, Casella& casella, Frame* dove);
  void creaPulsanti();
  // Connects a box with the value loaded for it, and the boxes of the gross amount with its note.
  void collega(Pagina pagina, Casella& casella);
  Segno segno(Pagina pagina, const CampoEditor& campo) const;
  void cambiato(Segno segno);
  std::vector<Casella>& caselle(Pagina pagina) { return pagina == Pagina::Modulo1 ? modulo1_ : altriModuli_; }
  // By the number in the form; null when the layout has no such field.
  const Casella* casella(Pagina pagina, int numero) const;
  // By its column, for which every layout has a box.
  Casella& casellaDi(Pagina pagina, std::string_view colonna);
  AmountBox& importo(Pagina pagina, std::string_view colonna) { return *casellaDi(pagina, colonna).importo; }
  void scorri(int passi);
  void mostraPagina(Pagina pagina);
  void apriDocumento(std::string_view nome);

  // The row.
  void sbCaricaModulo1();
  void caricaIntestazione();
  void caricaDatiAggiuntivi();
  void bloccaPerCausale();
  void blocca(Casella& casella);
  void sbRicalcolaAmmontareLordo();
  void conferma();
  void memorizzaRiga();
  void annulla();
  void riscriviRiga();
  void diceNonRiscritta();
  // All values that the row would receive from the form, as one text.
  std::string impronta() const;
  // The value read from the database for a box that now differs; nullopt also where none was read.
  std::optional<Control::Loaded> letto(Pagina pagina, const Casella& casella) const;
  void mostraSomma();
  Decimal sommaModuli() const;
  using Assegnazioni = std::vector<std::pair<std::string, Value>>;  // column and its new value
  void riscriviComune(std::string_view anno, std::int32_t idComune, Assegnazioni& colonne);
  void apriDialogo();

  // The rules.
  bool pieno(Pagina pagina, int numero) const;
  const Casella* primoPieno(Pagina pagina, int da, int a) const;
  int fnVerificaCompilazione();
  void sbAvvisoAltriModuli();
  bool fnModuloValido();

  // The additional modules.
  void sbConfiguraGrigliaModuli();
  void sbApriModuli();
  void mostraModulo();
  void nuovo();
  // Describes in a sentence the unsaved input of a module; empty for none.
  std::string moduloNonSalvato() const;
  void salva();
  void elimina();
  void sbSalvaModuli();
  void applica();
  void mostraConteggio();

  SessioneHost& sessione() { return *ambiente_.globali.gSessione; }
  Connection& interna() { return sessione().database().internalConnection(); }

  const Disposizione& disposizione_;
  const std::string elencoCodici_;
  const std::vector<CampoEditor> campiModulo1_;
  const std::vector<CampoEditor> campiAltriModuli_;
  const std::vector<CampoIntestazione> intestazione_;
  const bool fusioneComuni_;  // the layout includes notes on merged municipalities
  AmbienteEditor ambiente_;
  cu::Recordset* recordset_ = nullptr;
  cu::Recordset moduli_;

  bool Caricamento = false;
  bool RigaModificata = false;
  Comunicazione TipoComunicazione = Comunicazione::Nessuna;
  bool NuovoModulo = false;
  std::int32_t UltimoIDModulo = 0;
  bool ok_ = false;
  bool EsitoDatiAggiuntivi = false;
  DatiAggiuntivi dati_;
  std::string improntaCaricata_;
  Scroll scroll_;

  std::vector<std::unique_ptr<Control>> controlli_;
  std::vector<Casella> modulo1_;
  std::vector<Casella> altriModuli_;
  std::map<int, TextBox*> testi_;
  std::map<int, Label*> etichette_;  // of amounts whose caption is a separate label
  int sezioni_ = 0;
  std::vector<std::unique_ptr<Percipiente>> percipienti_;  // one per page
  std::unique_ptr<Riferimenti> riferimenti_;               // of the oldest layout

  Tabs* stbMain = nullptr;
  Frame* fraMain = nullptr;
  Frame* picModulo1 = nullptr;
  Frame* fraAltriModuli = nullptr;
  Frame* picAltriModuli = nullptr;
  Label* lblAnno = nullptr;
  Picker* TownComuneResidenzaAnnoPrec = nullptr;
  Picker* TownComuneResidenzaAnnoCorr = nullptr;
  Grid* grdAltriModuli = nullptr;
  ListBox* cboCodicePerNonSoggetti = nullptr;
  ListBox* cboCodicePerNonSoggettiAltri = nullptr;
  NumberBox* numModulo = nullptr;
  NumberBox* numAnno = nullptr;
  Button* cmdNew = nullptr;
  Button* cmdSave = nullptr;
  Button* cmdDelete = nullptr;
  Button* cmdModulo1 = nullptr;
  Button* cmdAltriModuli = nullptr;
  Button* cmdDatiAggiuntivi = nullptr;
  Button* cmdOk = nullptr;
  Button* cmdAnnulla = nullptr;
};

}  // namespace cu
