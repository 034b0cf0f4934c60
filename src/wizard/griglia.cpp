// The second step: the user's actions in the grid of compensation lines.

#include "base/text.h"
#include "editors/editor.h"
#include "fornitura/selezione.h"
#include "wizard/frm_protocollo.h"
#include "wizard/frm_wizard.h"
#include "wizard/righe_in_vista.h"

namespace cu {
namespace {

constexpr std::int16_t kSpazio = 32;

std::string fnEsitoRiferimenti(std::size_t righe) {
  if (righe == 0) return "Nessuna riga ha ricevuto i riferimenti: nessuna è scelta, o li avevano già.";
  if (righe == 1) return "I riferimenti sono stati scritti in una riga.";
  return "I riferimenti sono stati scritti in " + fromInteger(static_cast<std::int64_t>(righe)) + " righe.";
}

}  // namespace

void FrmWizard::collegaGriglia() {
  descriviRighe(grdCompensi, [this] {
    if (globali_.gSessione == nullptr) return std::string();
    return fnSelectConModuli(globali_.gSessione->IDAzienda(), ambiente_.utilita.toLong(KRNCboEsCont0.text()));
  });
  grdCompensi.onKeyDown = [this](std::int16_t& KeyCode, std::int16_t& /*Shift*/) {
    if (grdCompensi.state() != 0 || KeyCode != kSpazio) return;
    invertiRiga();
  };
  grdCompensi.onMouseUp = [this](std::size_t riga, const std::string& colonna) {
    if (grdCompensi.state() != 0 || riga == 0 || grdCompensi.rowCount() == 0) return;
    if (colonna == "Selezionato") invertiRiga();
    if (colonna == kColonnaPopup) ambiente_.frontEnd.popup(BarMenuWzr, "PopDettaglio");
  };
  grdCompensi.onDoubleClick = [this] {
    if (grdCompensi.state() == 0) sbModificaCompenso();
  };
  const auto tutte = [this](AzioneSelezione azione) {
    return [this, azione] { accolto(fornitura::seleziona(compensi_, {.azione = azione, .tutte = true})); };
  };
  cmdSelect[0].onClick = tutte(AzioneSelezione::Seleziona);
  cmdSelect[1].onClick = tutte(AzioneSelezione::Deseleziona);
  cmdProtocollo.onClick = [this] { protocolli(); };
}

void FrmWizard::invertiRiga() {
  const Recordset& righe = compensi_.rsCompensi();
  if (!righe.IsOpen() || righe.Eof() || righe.Bof()) return;
  accolto(fornitura::seleziona(compensi_,
                               {.azione = AzioneSelezione::Inverti, .posizioni = grdCompensi.highlighted()}));
  grdCompensi.refresh();
}

void FrmWizard::sbModificaCompenso() {
  Recordset& righe = compensi_.rsCompensi();
  if (!righe.IsOpen() || righe.Eof() || righe.Bof()) return;
  const std::int32_t anno = ambiente_.utilita.toLong(KRNCboEsCont0.text());
  const std::unique_ptr<Editor> editor = fnCreaEditor(
      anno, {ambiente_.frontEnd, globali_, ambiente_.utilita, ambiente_.settings, ambiente_.modello});
  const auto mostraTutte = [&] {
    righe.ClearFilter();
    grdCompensi.refresh();
  };
  try {
    editor->setRecordset(righe);
    compensi_.sbApriRiga();
    editor->onConfirm = [this] { accolto(fornitura::correggi(compensi_)); };
    if (tipoComunicazione() != Comunicazione::Nessuna) editor->setTipoComunicazione(tipoComunicazione());
    if (optTipoComunicazione[1].value() && fnAnnullaNelDialogo(anno)) {
      editor->load();
      editor->ApriDatiAggiuntivi();
    } else {
      editor->showModal();
    }
    editor->unload();  // an annulment interrupted early has never shown the form
    if (!editor->OK()) {
      ambiente_.frontEnd.told("L'editor è stato chiuso senza confermare: la riga è rimasta com'era.");
    }
  } catch (...) {
    // A row that cannot be stored must not leave the others hidden, and excluded from the next operations.
    mostraTutte();
    throw;
  }
  mostraTutte();
}

void FrmWizard::protocolli() {
  FrmProtocollo dialogo(ambiente_.frontEnd, ambiente_.utilita);
  dialogo.showModal();
  if (!dialogo.OK()) return;
  const auto righe = fornitura::correggiRiferimenti(compensi_, {.protocollo = dialogo.Protocollo(),
                                                                .progressivo = dialogo.Progressivo(),
                                                                .sovrascrivi = dialogo.Sovrascrivi()});
  if (accolto(righe)) ambiente_.frontEnd.told(fnEsitoRiferimenti(*righe));
}

}  // namespace cu
