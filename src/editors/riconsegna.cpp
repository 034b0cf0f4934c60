// The confirmation: the row is handed back as the controls have it.

#include "editors/editor_compenso.h"
#include "editors/frm_dati_aggiuntivi.h"
#include "host/frontend.h"
#include "host/text.h"

namespace cu {

void EditorCompenso::conferma() {
  if (disposizione_.immagine) {
    if (fnVerificaCompilazione() == UtilitaSuite::kCancel) return;
  } else {
    if (TipoComunicazione != 1 && !riferimenti_->fnCompleti(ambiente_.utilita, ambiente_.globali.gTitolo)) {
      return;
    }
    dati_.Protocollo = riferimenti_->txtProtocollo.text();
    dati_.Progressivo = riferimenti_->txtProgressivo.text();
    dati_.IDComuneResidenzaAnnoPrec = idComune(*TownComuneResidenzaAnnoPrec);
    dati_.IDComuneResidenzaAnnoCorr = idComune(*TownComuneResidenzaAnnoCorr);
    dati_.ComuneResidenzaAnnoPrec = TownComuneResidenzaAnnoPrec->text();
    dati_.ComuneResidenzaAnnoCorr = TownComuneResidenzaAnnoCorr->text();
  }
  if (RigaModificata) riscriviRiga();
  sbSalvaModuli();
  mostraConteggio();
  ok_ = true;
  unload();
}

void EditorCompenso::annulla() {
  ok_ = false;
  unload();
}

void EditorCompenso::riscriviRiga() {
  cu::Recordset& riga = *recordset_;
  riga.Set("Modificato", Value::ofFlag(true));
  for (const Casella& casella : modulo1_) {
    riga.Set(casella.campo->colonna, casella.valore());
    if (casella.elenco == nullptr) continue;
    cu::Recordset codice;
    codice.Open(interna(), ambiente_.utilita.fnAnsi2jet(
                               "SELECT Codice FROM CodicePerNonSoggetti WHERE IDCodicePerNonSoggetti = " +
                               fromInteger(casella.elenco->record().value_or(0))));
    riga.Set("CodicePerNonSoggetti",
             Value::ofText(codice.Eof() ? std::string() : ambiente_.utilita.toText(codice.Get(0))));
  }
  riga.Set("ProtocolloAnnSost", Value::ofText(dati_.Protocollo));
  riga.Set("ProgressivoAnnSost", Value::ofText(dati_.Progressivo));
  riga.Set("IDComuneResidenzaAnnoPrec", Value::ofInteger(dati_.IDComuneResidenzaAnnoPrec));
  riga.Set("IDComuneResidenzaAnnoCorr", Value::ofInteger(dati_.IDComuneResidenzaAnnoCorr));
  riga.Set("ComuneResidenzaAnnoPrec", Value::ofText(dati_.ComuneResidenzaAnnoPrec));
  riga.Set("ComuneResidenzaAnnoCorr", Value::ofText(dati_.ComuneResidenzaAnnoCorr));
  if (disposizione_.fusioneComuni) {
    riga.Set("FusioneComuni", Value::ofText(dati_.FusioneComuni));
    riga.Set("FusioneComuniAnnoPrec", Value::ofText(dati_.FusioneComuniAnnoPrec));
  }
  riscriviComune("Prec", dati_.IDComuneResidenzaAnnoPrec);
  riscriviComune("Corr", dati_.IDComuneResidenzaAnnoCorr);
  riga.Update();
}

void EditorCompenso::riscriviComune(const std::string& anno, std::int32_t idComune) {
  const std::string provincia = "SiglaProvResidenzaAnno" + anno;
  const std::string codice = "CodiceComuneDiNascita" + anno;
  if (idComune < 1) {
    recordset_->Set(provincia, Value::ofText(""));
    recordset_->Set(codice, Value::ofText(""));
    return;
  }
  cu::Recordset comune;
  comune.Open(interna(), ambiente_.utilita.fnAnsi2jet(
                             "SELECT CodiceComuneDiNascita, Provincia FROM Comune INNER JOIN Provincia"
                             " ON Comune.IDProvincia = Provincia.IDProvincia WHERE IDComune = " +
                             fromInteger(idComune)));
  if (comune.Eof()) return;
  recordset_->Set(provincia, Value::of(comune.Get("Provincia")));
  recordset_->Set(codice, Value::of(comune.Get("CodiceComuneDiNascita")));
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
  if (!disposizione_.fusioneComuni) {
    dati_.FusioneComuni.clear();
    dati_.FusioneComuniAnnoPrec.clear();
  }
  EsitoDatiAggiuntivi = dialogo.OK();
}

void EditorCompenso::ApriDatiAggiuntivi() {
  if (!disposizione_.immagine) return;
  apriDialogo();
  if (TipoComunicazione != 2) return;
  if (EsitoDatiAggiuntivi) {
    conferma();
  } else {
    annulla();
  }
}

void EditorCompenso::apriDocumento(std::string_view nome) {
  const std::string cartella =
      ambiente_.settings.get(ambiente_.globali.gChiaveImpostazioni, kMenuSettings, "Path", "");
  frontEnd().open(std::string(nome), cartella);
}

}  // namespace cu
