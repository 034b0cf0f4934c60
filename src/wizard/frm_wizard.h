#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/per_chiamanti.h"
#include "base/result.h"
#include "context/globali.h"
#include "controls/band.h"
#include "controls/datebox.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/listbox.h"
#include "controls/menubar.h"
#include "controls/print_control.h"
#include "controls/selector.h"
#include "controls/textbox.h"
#include "fornitura/controllo.h"
#include "fornitura/intorno.h"
#include "fornitura/riepilogo.h"
#include "fornitura/scrittura.h"
#include "fornitura/stampa.h"
#include "host/filtri.h"
#include "wizard/ambiente.h"
#include "wizard/griglia_compensi.h"
#include "worklist/compensi.h"

namespace cu {

// The kind of a transition between steps.
enum class Direzione { Salto = 0, Indietro = 1, Avanti = 2 };

// What the run would do with the lines, as the last step was entered.
struct PrevisioneAvvio {
  fornitura::Riepilogo riepilogo;
  fornitura::DatiPrevisti dati;
  bool illeggibile = false;  // the data could not be read
};

// The wizard's only main window: three frames of content, of which the run mode decides which are walked. Its
// controls have the names of the system; the routines are in the files of their subjects.
class FrmWizard : public Form, public per_chiamanti::DiFrmWizard<FrmWizard> {
 public:
  FrmWizard(const Ambiente& ambiente, Globali& globali);

  // Sets the form up after the session has been bound.
  void sbInitWizard();

  // Always on screen.
  SideBand ctlWizardSideBand;
  MenuBar BarMenuWzr;

  // First step.
  std::array<Frame, 3> fraStep;
  Label lblStep0;
  Frame fraStType;
  std::array<Option, 2> optstType;
  Frame fraTipoComunicazione;
  std::array<Option, 3> optTipoComunicazione;
  Label lblEsCont0;
  ListBox KRNCboEsCont0;
  Label lblEsCont1;
  ListBox KRNCboEsCont1;
  Button cmdOpzioni;
  Check chkRicostruzione;
  Frame Frame1;
  Frame fraSelectOption;
  Option optCode;
  Option optName;
  Label lblPecDA;
  Selector KrnCDPerc0;
  Label lblName0;
  Label lblPercA;
  Selector KrnCDPerc1;
  Label lblName1;
  Label lblCausContrbDa;
  Selector KrnCDCausContrib0;
  Label lblCausContribA;
  Selector KrnCDCausContrib1;

  // Second step.
  Label lblStep1;
  Grid grdCompensi;
  std::array<Button, 2> cmdSelect;
  Button cmdProtocollo;

  // Last step.
  Label lblStep5;
  Frame fraPercorso;
  TextBox txtPercorsoCU;
  Button cmdSfoglia;
  Frame fraTipoStampa;
  std::array<Option, 2> optStampaTracciato;
  Frame fraFirma;
  DateBox dtDataFirma;
  Check chkIntermediari;
  Frame fraIntermediari;
  Label lblCodiceFiscale;
  TextBox txtCodiceFiscale;
  Label lblTipoComunicazione;
  ListBox cboxTipoComunicazione;
  Label lblDataImpegno;
  DateBox dtDataImpegno;
  Frame Frame5;
  PrintControl WizPrint;

  // The buttons: help, abandon, back, next, start.
  Frame picNav;
  std::array<Button, 5> cmdNav;

  std::string guideChapter() const override;
  std::vector<const Frame*> stages() const override { return {&fraStep[0], &fraStep[1], &fraStep[2]}; }
  Control* stageStart() override;
  std::string unsavedWork() const override;
  std::vector<Fact> whereabouts() override;
  std::vector<Fact> outlook() override;

 private:
  friend per_chiamanti::DiFrmWizard<FrmWizard>;

  void formLoad() override;
  void formUnload() override;

  // The step machine.
  void sbVaiAlPasso(std::int16_t nPasso, Direzione nDirezione);
  bool preparaPasso0(Direzione nDirezione);
  bool preparaPasso1(Direzione nDirezione);
  bool preparaPasso2();
  void sbImpostaPulsanti(std::int16_t nPasso);
  void sbImpostaTitolo(std::int16_t nPasso);
  std::string fnTestoPasso(std::int16_t nPasso) const;
  void sbImpostaTesti();
  void impostaSpiegazioni();
  void sbImpostaPassoFinale();
  void sbPreparaStampa();
  void sbImpostaFasciaLaterale();
  bool fnControllaFiltri();
  void sbCaricaCompensi();
  void tipoScelto(int indice);
  void avvia();
  void abbandona();
  void aiuto(int contesto);
  bool modoCU() const { return modo() == ModoCorsa::CU; }
  ModoCorsa modo() const;

  // The operations: their surroundings, and the display of a refusal. Returns false where there is one.
  fornitura::Intorno intorno() const;
  template <class T>
  bool accolto(const Result<T>& esito) {
    for (const Finding& rifiuto : esito.refusals) mostraRifiuto(rifiuto);
    return static_cast<bool>(esito);
  }
  void mostraRifiuto(const Finding& rifiuto);

  // The selection filters.
  void associaElenchi();
  void sbCreaFiltroStampa();
  void segnalaEstremi();  // limits without a row in their table
  Filtri filtri() const;

  // The overview: what is known of a run before it starts.
  const fornitura::DatiPrevisti& azienda();
  void aggiornaPrevisione();
  std::string anniScelti() const;
  std::vector<Fact> previsioneCU();
  std::vector<Fact> previsioneStampa();
  Fact rilieviPrevisti() const;
  DatiControllo datiControllo() const;

  // The prints.
  stampa::Dati datiStampa() const;
  void stampaReport();
  bool fnDaStampare();
  fornitura::RichiestaStampa richiestaStampa();  // of the print control
  void opzioniStampa();

  // The commands.
  void creaMenu();
  bool rigaApribile() const;  // whether the row menu can open
  void sbGestShortCut(std::int16_t& KeyCode, std::int16_t& Shift);
  void sbExecuteMenuCommandWiz(const std::string& sTool);
  void sbRunApplication(std::int16_t nOggetto);
  void sbSearchObject(std::int16_t nOggetto);

  // The grid of compensation lines.
  void collegaGriglia();
  void invertiRiga();
  void sbModificaCompenso();
  void protocolli();

  // The settings of a run.
  void collegaImpostazioni();
  Comunicazione tipoComunicazione() const;
  // The line below the folder: what a run would find there, with the file's name looked up or given.
  void annotaCartella();
  void annotaCartella(const std::string& nomeFile);
  void abilitaIntermediari(bool attivo);
  void sbCaricaIntermediario();
  void sbSalvaIntermediario();
  std::string fnSelezionaCartella(const std::string& partenza);

  // The telematic file.
  // `mostrata`: the user has been shown what the run would do, and must not get the file of other lines.
  bool fnCreaFileCU(bool mostrata);
  template <class Azione>
  auto primaDelFile(const Azione& azione);
  // Stores corrections and intermediary, checks the data.
  Result<fornitura::Controllo> preparaFile(LogGrid& oLogGrid);
  bool fnEsegui(const Result<fornitura::Controllo>& controllo,
                LogGrid& oLogGrid);  // the part after the checks
  void segnalaDatoMancante();
  bool confermaAvvisi(const std::vector<Finding>& avvisi);
  bool controllaDate();
  bool confermaAvviso(const Finding& avviso);
  // The file's name; none when it could not be made.
  std::optional<std::string> generaFile(const std::string& sCodFisc);
  void stampaModuli(const std::string& sCodFisc);
  void mostraInterrotta(const fornitura::EsitoModuli& esito);
  void mostraSenzaFile();
  void sbMostraEsitoFile(const std::string& sNomeFile, const std::string& sCartella, std::int16_t nFlag);

  void collegaEventi();

  Ambiente ambiente_;
  Globali& globali_;
  Compensi compensi_;
  GrigliaCompensi vista_;

  std::optional<fornitura::DatiPrevisti> azienda_;  // the company alone
  std::optional<PrevisioneAvvio> previsione_;

  std::int16_t nPassoCorrente = 0;
  bool bAvviaAbilitato = false;
  std::string sPercorsoCU;
  bool bIntermediarioCaricato = false;
  std::int16_t nOggettoCorrente = 0;
  std::int32_t nContestoArg = 0;
};

}  // namespace cu
