// The commands: menu tools, keys, and the one routine that executes them.

#include "host/testi_programma.h"
#include "wizard/frm_wizard.h"

namespace cu {
namespace {

constexpr const char* kBandaComune = "mnuPopUp";
constexpr const char* kBandaDettaglio = "PopDettaglio";
constexpr const char* kAvviaApplicazione = "Mnu_RunApplication";
constexpr const char* kCercaOggetto = "Mnu_SearchObject";
constexpr const char* kModificaCompenso = "ModificaCompenso";
constexpr const char* kGuida = "Mnu_HelpOnLine";
constexpr const char* kGuidaArgomento = "Mnu_Arg";

constexpr std::int16_t kTastoR = 82;
constexpr std::int16_t kTastoG = 71;
constexpr std::int16_t kTastoF1 = 112;
constexpr std::int16_t kTastoEsc = 27;
constexpr std::int16_t kMaiuscole = 1;
constexpr std::int16_t kControl = 2;

}  // namespace

void FrmWizard::creaMenu() {
  BarMenuWzr.clear();
  BarMenuWzr.addBand(kBandaComune);
  BarMenuWzr.addTool({.key = kAvviaApplicazione,
                      .id = 1,
                      .band = kBandaComune,
                      .caption = globali_.gTesti->text(829),
                      .shortcut = "Control+G",
                      .inert = true});
  BarMenuWzr.addTool({.key = kCercaOggetto,
                      .id = 2,
                      .band = kBandaComune,
                      .caption = globali_.gTesti->text(80),
                      .shortcut = "Control+R",
                      .inert = true});
  BarMenuWzr.addBand(kBandaDettaglio, [this] { return rigaApribile(); });
  BarMenuWzr.addTool({.key = kModificaCompenso,
                      .id = 3,
                      .band = kBandaDettaglio,
                      .caption = "&Modifica compenso per creazione CU",
                      .shortcut = {}});
}

// On other steps a row left current by an earlier step would be opened in another year's layout.
bool FrmWizard::rigaApribile() const { return modoCU() && nPassoCorrente == 1 && grdCompensi.row() > 0; }

void FrmWizard::sbGestShortCut(std::int16_t& KeyCode, std::int16_t& Shift) {
  const auto consuma = [&](const char* comando, bool esegui) {
    KeyCode = 0;
    Shift = 0;
    if (esegui) sbExecuteMenuCommandWiz(comando);
  };
  const bool control = (Shift & kControl) != 0;
  switch (KeyCode) {
    case kTastoR:
      if (control) consuma(kCercaOggetto, BarMenuWzr.toolAvailable(*BarMenuWzr.tool(kCercaOggetto)));
      break;
    case kTastoG:
      if (control)
        consuma(kAvviaApplicazione, BarMenuWzr.toolAvailable(*BarMenuWzr.tool(kAvviaApplicazione)));
      break;
    case kTastoF1:
      if (Shift == kMaiuscole) {
        consuma(kGuidaArgomento, true);
      } else if (Shift == 0) {
        consuma(kGuida, true);
      }
      break;
    case kTastoEsc:
      cmdNav[1].click();
      break;
    default:
      break;
  }
}

void FrmWizard::sbExecuteMenuCommandWiz(const std::string& sTool) {
  if (sTool == kCercaOggetto) {
    sbSearchObject(nOggettoCorrente);
    nOggettoCorrente = -1;
  } else if (sTool == kAvviaApplicazione) {
    sbRunApplication(nOggettoCorrente);
  } else if (sTool == kGuida) {
    aiuto(1);
  } else if (sTool == kGuidaArgomento) {
    aiuto(nContestoArg != 0 ? nContestoArg : 1);
  } else if (sTool == kModificaCompenso) {
    sbModificaCompenso();
  }
}

std::string FrmWizard::guideChapter() const {
  if (modo() == ModoCorsa::ContiIndividuali) return "Stampare i conti individuali";
  if (!modoCU()) return "Stampare le certificazioni in forma libera";
  if (nPassoCorrente == 2) return "Firma, intermediario, cartella";
  if (!optTipoComunicazione[0].value()) return "Annullare e sostituire";
  return nPassoCorrente == 0 ? "Scegliere l'anno" : "Scegliere i compensi";
}

// Entries of the suite's common menu without effect here; their keys are consumed nevertheless.
void FrmWizard::sbRunApplication(std::int16_t /*nOggetto*/) {}
void FrmWizard::sbSearchObject(std::int16_t /*nOggetto*/) {}

}  // namespace cu
