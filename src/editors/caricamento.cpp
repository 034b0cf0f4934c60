// Loads a row into the editor.

#include <algorithm>

#include "base/text.h"
#include "controls/frontend.h"
#include "editors/editor_compenso.h"
#include "modello/regole.h"

namespace cu {

void EditorCompenso::setRecordset(cu::Recordset& righe) {
  load();
  recordset_ = &righe;
  righe.SetFilter("Anno = " + righe.Get("Anno").toText() +
                  " AND IDAnagrafica = " + righe.Get("IDAnagrafica").toText() +
                  " AND IDCausalePagamento = " + righe.Get("IDCausalePagamento").toText());
  Caricamento = true;
  sbCaricaModulo1();
  caricaDatiAggiuntivi();
  bloccaPerCausale();
  sbConfiguraGrigliaModuli();
  sbApriModuli();
  Caricamento = false;
  improntaCaricata_ = impronta();
  mostraSomma();
}

void EditorCompenso::setTipoComunicazione(Comunicazione tipo) {
  TipoComunicazione = tipo;
  if (disposizione_.immagine) return;
  stbMain->setTabVisible(2, true);
  riferimenti_->disponi(tipo);
  fraMain->setVisible(tipo != Comunicazione::Annullamento);  // an annulment requires only the references
  if (tipo == Comunicazione::Annullamento) stbMain->setTabVisible(2, false);
  notify();
}

void EditorCompenso::caricaIntestazione() {
  const UtilitaSuite& utilita = ambiente_.utilita;
  const auto testo = [&](std::string_view colonna) { return utilita.toText(recordset_->Get(colonna)); };
  for (const CampoIntestazione& campo : intestazione_) {
    std::string valore;
    if (campo.campo->forma != modello::Forma::CodicePressoEnte) {
      valore = testo(campo.colonna);
    } else {
      const std::size_t fonte = modello::fontePressoEnte(utilita.toLong(recordset_->Get(campo.colonna)));
      if (fonte != 0) valore = testo(campo.campo->altre.at(fonte));
    }
    testi_.at(campo.modulo1)->setText(valore);
    testi_.at(campo.altriModuli)->setText(valore);
  }
  for (const auto& percipiente : percipienti_) {
    percipiente->mostra(utilita.toLong(recordset_->Get("IDAnagrafica")), testo("Nome"),
                        utilita.toLong(recordset_->Get("IDCausalePagamento")));
  }
  lblAnno->setCaption(testo("Anno"));
}

void EditorCompenso::blocca(Casella& casella) {
  casella.importo->setEnabled(false);
  casella.importo->setBackground(Background::Face);
  const auto etichetta = etichette_.find(casella.campo->indice);
  if (etichetta != etichette_.end()) etichetta->second->setEnabled(false);
}

void EditorCompenso::sbCaricaModulo1() {
  caricaIntestazione();
  const bool addizionali = modello::haAddizionali(ambiente_.utilita.toText(recordset_->Get("Codice")));
  for (Casella& casella : modulo1_) {
    if (casella.importo != nullptr && casella.campo->addizionale && !addizionali) {
      blocca(casella);
    } else {
      casella.mostra(recordset_->Get(casella.campo->colonna), ambiente_.utilita);
    }
  }
}

void EditorCompenso::caricaDatiAggiuntivi() {
  const UtilitaSuite& utilita = ambiente_.utilita;
  const auto testo = [&](std::string_view colonna) { return utilita.toText(recordset_->Get(colonna)); };
  dati_.Protocollo = testo("ProtocolloAnnSost");
  dati_.Progressivo = testo("ProgressivoAnnSost");
  dati_.IDComuneResidenzaAnnoPrec = utilita.toLong(recordset_->Get("IDComuneResidenzaAnnoPrec"));
  dati_.IDComuneResidenzaAnnoCorr = utilita.toLong(recordset_->Get("IDComuneResidenzaAnnoCorr"));
  dati_.ComuneResidenzaAnnoPrec = testo("ComuneResidenzaAnnoPrec");
  dati_.ComuneResidenzaAnnoCorr = testo("ComuneResidenzaAnnoCorr");
  if (fusioneComuni_) {
    dati_.FusioneComuni = testo("FusioneComuni");
    dati_.FusioneComuniAnnoPrec = testo("FusioneComuniAnnoPrec");
  }
  if (disposizione_.immagine) return;
  riferimenti_->txtProtocollo.setText(dati_.Protocollo);
  riferimenti_->txtProgressivo.setText(dati_.Progressivo);
  TownComuneResidenzaAnnoPrec->setRecord(dati_.IDComuneResidenzaAnnoPrec);
  TownComuneResidenzaAnnoCorr->setRecord(dati_.IDComuneResidenzaAnnoCorr);
}

// One of the two is always locked; it keeps the loaded value.
void EditorCompenso::bloccaPerCausale() {
  const bool spese = modello::rimborsaSpese(ambiente_.utilita.toText(recordset_->Get("Codice")));
  blocca(casellaDi(Pagina::Modulo1, spese ? "SommeNonSoggetteARitenuta" : "SpeseRimborsate"));
}

void EditorCompenso::sbRicalcolaAmmontareLordo() {
  if (!moduli_.IsOpen()) return;
  double somma = 0;
  for (const std::string_view addendo : modello::kAddendiLordo)
    somma += importo(Pagina::Modulo1, addendo).value();
  const auto moduli = moduli_.Clone();
  for (; !moduli->Eof(); moduli->MoveNext()) {
    if (!moduli->Get("Eliminato").flag())
      somma += ambiente_.utilita.toDouble(moduli->Get(modello::kAddendoLordoDelModulo));
  }
  importo(Pagina::Modulo1, modello::kLordo).setNumber(Decimal::fromDouble(somma));
  mostraSomma();
}

}  // namespace cu
