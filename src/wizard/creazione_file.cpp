// The run of the telematic file: stores the user's corrections, checks the data, makes the file.

#include <algorithm>

#include "base/text.h"
#include "fornitura/carico.h"
#include "fornitura/controllo.h"
#include "fornitura/selezione.h"
#include "wizard/frm_wizard.h"

namespace cu {

// For an error raised before the file is begun.
template <class Azione>
auto FrmWizard::primaDelFile(const Azione& azione) {
  try {
    return azione();
  } catch (...) {
    ambiente_.frontEnd.told("Il file telematico non è stato creato.");
    throw;
  }
}

Result<fornitura::Controllo> FrmWizard::preparaFile(LogGrid& oLogGrid) {
  FrontEnd& schermo = ambiente_.frontEnd;
  accolto(fornitura::memorizza(compensi_));
  schermo.setPointer(kPointerHourglass);
  sbSalvaIntermediario();

  schermo.progress("Controllo dei dati", 0, 0);
  auto controllo = fornitura::controlla(intorno(), datiControllo(), globali_.gTabellaLavoro);
  fornitura::riempiLog(oLogGrid, globali_.gSessione->IDUtente(), controllo->mancanti);
  return controllo;
}

bool FrmWizard::fnCreaFileCU(bool mostrata) {
  const std::unique_ptr<LogGrid> oLogGrid = ambiente_.factory.createLogGrid();
  const auto controllo = primaDelFile([&] {
    if (mostrata) compensi_.sbControllaTabella();
    return preparaFile(*oLogGrid);
  });
  // The run stays on this step unless it succeeds: the state of the folder is noted there.
  const std::string sNomeFile = fornitura::fnNomeFile(controllo->sCodFisc, KRNCboEsCont0.text());
  try {
    if (fnEsegui(controllo, *oLogGrid)) return true;
  } catch (...) {
    annotaCartella(sNomeFile);
    throw;
  }
  annotaCartella(sNomeFile);
  return false;
}

bool FrmWizard::fnEsegui(const Result<fornitura::Controllo>& controllo, LogGrid& oLogGrid) {
  FrontEnd& schermo = ambiente_.frontEnd;
  if (!controllo) {
    schermo.setPointer(kPointerDefault);
    oLogGrid.show(0);
    schermo.told(fornitura::soloNonAttestati(controllo->mancanti)
                     ? "Il file telematico non è stato creato: alcuni dati non sono del modello dell'anno."
                     : "Il file telematico non è stato creato: mancano dei dati.");
    segnalaDatoMancante();
    return false;
  }
  if (!primaDelFile([&] { return confermaAvvisi(controllo.warnings) && controllaDate(); })) {
    schermo.told("Il file telematico non è stato creato.");
    return false;
  }
  const auto sNomeFile = generaFile(controllo->sCodFisc);
  if (!sNomeFile) {
    schermo.setPointer(kPointerDefault);
    return false;
  }
  stampaModuli(controllo->sCodFisc);
  schermo.setPointer(kPointerDefault);
  sbMostraEsitoFile(*sNomeFile, sPercorsoCU, 1);
  return accolto(fornitura::carica(intorno(), compensi_, filtri()));
}

// Of the missing data, only this can be completed here.
void FrmWizard::segnalaDatoMancante() {
  FrontEnd& schermo = ambiente_.frontEnd;
  if (dtDataFirma.entered().empty()) {
    schermo.missing(dtDataFirma);
  } else if (!chkIntermediari.value()) {
    return;
  } else if (trim(txtCodiceFiscale.text()).empty()) {
    schermo.missing(txtCodiceFiscale);
  } else if (dtDataImpegno.entered().empty()) {
    schermo.missing(dtDataImpegno);
  }
}

bool FrmWizard::confermaAvviso(const Finding& avviso) {
  ambiente_.frontEnd.setPointer(kPointerDefault);
  if (ambiente_.utilita.confirm(avviso.text, globali_.gTitolo) != UtilitaSuite::kCancel) {
    ambiente_.frontEnd.setPointer(kPointerHourglass);
    return true;
  }
  if (!avviso.place.empty()) setFocus(find(avviso.place));
  return false;
}

bool FrmWizard::confermaAvvisi(const std::vector<Finding>& avvisi) {
  return std::all_of(avvisi.begin(), avvisi.end(),
                     [this](const Finding& avviso) { return confermaAvviso(avviso); });
}

bool FrmWizard::controllaDate() {
  const auto date = fornitura::controllaDate(
      {dtDataFirma.date(), dtDataImpegno.enabled() ? dtDataImpegno.date() : std::nullopt},
      ambiente_.clock.today());
  return confermaAvvisi(date.warnings);
}

std::optional<std::string> FrmWizard::generaFile(const std::string& sCodFisc) {
  FrontEnd& schermo = ambiente_.frontEnd;
  const fornitura::RichiestaFile richiesta{
      .anno = KRNCboEsCont0.text(),
      .cartella = sPercorsoCU,
      .cartellaDocumenti = globali_.gTesti->text(1264),
      .firma = Date::fromSerial(dtDataFirma.value()),
      .dati = {.UsoIntermediari = chkIntermediari.value(),
               .CodiceFiscaleAzienda = sCodFisc,
               .CodiceFiscaleIntermediario = txtCodiceFiscale.text(),
               .TipoComIntermediario = fromInteger(cboxTipoComunicazione.index() + 1),
               .DataImpegnoIntermediario = Date::fromSerial(dtDataImpegno.value()),
               .TipoComunicazione = tipoComunicazione()}};
  globali_.gAnno = ambiente_.utilita.toLong(richiesta.anno);
  try {
    const auto file = fornitura::scrivi(intorno(), compensi_, richiesta);
    if (file) {
      schermo.told(
          file->certificazioni == 0
              ? "Nessun file telematico è stato creato: nessuna riga scelta ha un periodo IVA nell'anno."
              : "Creato " + file->nome + ".");
      if (file->certificazioni > 0 && ambiente_.dopoFile) {
        ambiente_.dopoFile({file->percorso, tipoComunicazione(), globali_.gAnno},
                           intorno().ambito.database->ownConnection());
      }
      return file->nome;
    }
    for (const Finding& rifiuto : file.refusals) {
      if (rifiuto.text.empty()) continue;
      schermo.setPointer(kPointerDefault);
      schermo.messageBox({rifiuto.text, globali_.gTitolo, BoxIcon::Stop, BoxButtons::Ok, Answer::Ok});
    }
  } catch (...) {
    schermo.told(
        "La creazione del file telematico si è interrotta: un file senza record Z non va trasmesso.");
    throw;
  }
  schermo.told("Il file telematico non è stato creato: non è stato possibile scrivere " +
               fornitura::fnNomeFile(sCodFisc, richiesta.anno) + " nella cartella scelta.");
  return std::nullopt;
}

}  // namespace cu
