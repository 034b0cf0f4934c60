// The confirmation: writes the controls' values to the row.

#include "base/text.h"
#include "controls/frontend.h"
#include "editors/editor_compenso.h"
#include "editors/frm_dati_aggiuntivi.h"

namespace cu {

void EditorCompenso::conferma() {
  if (disposizione_.immagine) {
    if (fnVerificaCompilazione() == UtilitaSuite::kCancel) return;
  } else {
    if (TipoComunicazione != Comunicazione::Ordinaria &&
        !riferimenti_->fnCompleti(ambiente_.utilita, ambiente_.globali.gTitolo)) {
      return;
    }
    dati_.Protocollo = riferimenti_->txtProtocollo.stored();
    dati_.Progressivo = riferimenti_->txtProgressivo.stored();
    dati_.IDComuneResidenzaAnnoPrec = idComune(*TownComuneResidenzaAnnoPrec);
    dati_.IDComuneResidenzaAnnoCorr = idComune(*TownComuneResidenzaAnnoCorr);
    dati_.ComuneResidenzaAnnoPrec = TownComuneResidenzaAnnoPrec->text();
    dati_.ComuneResidenzaAnnoCorr = TownComuneResidenzaAnnoCorr->text();
  }
  memorizzaRiga();
  if (!RigaModificata) diceNonRiscritta();
  ok_ = true;
  unload();
}

// The pointer is restored before an error is shown.
void EditorCompenso::memorizzaRiga() {
  const int puntatore = frontEnd().pointer();
  frontEnd().setPointer(kPointerHourglass);
  frontEnd().progress("Memorizzazione della riga", 0, 0);
  try {
    recordset_->Attempt([this] {
      if (RigaModificata) riscriviRiga();
      sbSalvaModuli();
      mostraConteggio();
      if (onConfirm) onConfirm();
    });
  } catch (...) {
    frontEnd().setPointer(puntatore);
    throw;
  }
  frontEnd().setPointer(puntatore);
}

std::string EditorCompenso::impronta() const {
  constexpr char kFine = '\x1f';
  std::string tutto;
  const auto aggiungi = [&](const std::string& valore) { tutto.append(valore) += kFine; };
  aggiungi(dati_.Protocollo);
  aggiungi(dati_.Progressivo);
  for (const Casella& casella : modulo1_) aggiungi(casella.valore().view().toText());
  aggiungi(fromInteger(dati_.IDComuneResidenzaAnnoPrec));
  aggiungi(fromInteger(dati_.IDComuneResidenzaAnnoCorr));
  aggiungi(dati_.FusioneComuni);
  aggiungi(dati_.FusioneComuniAnnoPrec);
  return tutto;
}

// Not every change causes the row to be rewritten: the user is informed here that such changes are lost.
void EditorCompenso::diceNonRiscritta() {
  const std::string adesso = impronta();
  if (adesso == improntaCaricata_) {
    frontEnd().told("La riga è rimasta com'era: nessuna modifica.");
    return;
  }
  const auto riferimenti = [](const std::string& di) {
    return di.substr(0, di.find('\x1f', di.find('\x1f') + 1));
  };
  frontEnd().told(riferimenti(adesso) == riferimenti(improntaCaricata_)
                      ? "La riga non è stata riscritta: le modifiche fatte, da sole, non bastano (guida: "
                        "Correggere un compenso)."
                      : "I riferimenti non sono entrati nella riga: si scrivono con il pulsante Protocollo.");
}

void EditorCompenso::annulla() {
  ok_ = false;
  unload();
}

// The look-ups come first: a failing one leaves the row unchanged, so that the editor can still be cancelled.
void EditorCompenso::riscriviRiga() {
  Assegnazioni colonne;
  colonne.emplace_back("Modificato", Value::ofFlag(true));
  for (const Casella& casella : modulo1_) {
    colonne.emplace_back(casella.campo->colonna, casella.valore());
    if (casella.elenco == nullptr) continue;
    cu::Recordset codice;
    codice.Open(interna(), ambiente_.utilita.fnAnsi2jet(
                               "SELECT Codice FROM CodicePerNonSoggetti WHERE IDCodicePerNonSoggetti = " +
                               fromInteger(casella.elenco->storedRecord().value_or(0))));
    colonne.emplace_back(
        "CodicePerNonSoggetti",
        Value::ofText(codice.Eof() ? std::string() : ambiente_.utilita.toText(codice.Get(0))));
  }
  colonne.emplace_back("ProtocolloAnnSost", Value::ofText(dati_.Protocollo));
  colonne.emplace_back("ProgressivoAnnSost", Value::ofText(dati_.Progressivo));
  colonne.emplace_back("IDComuneResidenzaAnnoPrec", Value::ofInteger(dati_.IDComuneResidenzaAnnoPrec));
  colonne.emplace_back("IDComuneResidenzaAnnoCorr", Value::ofInteger(dati_.IDComuneResidenzaAnnoCorr));
  colonne.emplace_back("ComuneResidenzaAnnoPrec", Value::ofText(dati_.ComuneResidenzaAnnoPrec));
  colonne.emplace_back("ComuneResidenzaAnnoCorr", Value::ofText(dati_.ComuneResidenzaAnnoCorr));
  if (fusioneComuni_) {
    colonne.emplace_back("FusioneComuni", Value::ofText(dati_.FusioneComuni));
    colonne.emplace_back("FusioneComuniAnnoPrec", Value::ofText(dati_.FusioneComuniAnnoPrec));
  }
  riscriviComune("Prec", dati_.IDComuneResidenzaAnnoPrec, colonne);
  riscriviComune("Corr", dati_.IDComuneResidenzaAnnoCorr, colonne);
  for (const auto& [colonna, valore] : colonne) recordset_->Set(colonna, valore);
  recordset_->Update();
}

void EditorCompenso::riscriviComune(std::string_view anno, std::int32_t idComune, Assegnazioni& colonne) {
  const std::string provincia = "SiglaProvResidenzaAnno" + std::string(anno);
  const std::string codice = "CodiceComuneDiNascita" + std::string(anno);
  if (idComune < 1) {
    colonne.emplace_back(provincia, Value::ofText(""));
    colonne.emplace_back(codice, Value::ofText(""));
    return;
  }
  cu::Recordset comune;
  comune.Open(interna(), ambiente_.utilita.fnAnsi2jet(
                             "SELECT CodiceComuneDiNascita, Provincia FROM Comune INNER JOIN Provincia"
                             " ON Comune.IDProvincia = Provincia.IDProvincia WHERE IDComune = " +
                             fromInteger(idComune)));
  if (comune.Eof()) return;
  colonne.emplace_back(provincia, Value::of(comune.Get("Provincia")));
  colonne.emplace_back(codice, Value::of(comune.Get("CodiceComuneDiNascita")));
}

void EditorCompenso::apriDialogo() {
  const UtilitaSuite& utilita = ambiente_.utilita;
  FrmDatiAggiuntivi dialogo(ambiente_);
  dialogo.IDAnagrafica = utilita.toLong(recordset_->Get("IDAnagrafica"));
  dialogo.IDCausalePagamento = utilita.toLong(recordset_->Get("IDCausalePagamento"));
  dialogo.Nome = utilita.toText(recordset_->Get("Nome"));
  dialogo.dati = dati_;
  dialogo.setTipoComunicazione(TipoComunicazione);
  dialogo.sbFill();
  dialogo.showModal();
  dati_ = dialogo.dati;
  if (!fusioneComuni_) {
    dati_.FusioneComuni.clear();
    dati_.FusioneComuniAnnoPrec.clear();
  }
  EsitoDatiAggiuntivi = dialogo.OK();
}

void EditorCompenso::ApriDatiAggiuntivi() {
  if (!disposizione_.immagine) return;
  apriDialogo();
  if (TipoComunicazione != Comunicazione::Annullamento) return;
  while (EsitoDatiAggiuntivi) {
    try {
      conferma();
      return;
    } catch (const std::exception& errore) {
      // No other window is open: the dialog is shown again with its input.
      frontEnd().error(asError(errore));
      apriDialogo();
    }
  }
  annulla();
}

void EditorCompenso::apriDocumento(std::string_view nome) {
  const std::string cartella =
      ambiente_.settings.get(ambiente_.globali.gChiaveImpostazioni, kMenuSettings, "Path", "");
  frontEnd().open(std::string(nome), cartella);
}

}  // namespace cu
