// The settings of a run: kind of communication, intermediary, folder, print type.

#include <array>
#include <exception>

#include "telematic/controlli.h"
#include "telematic/intermediario.h"
#include "wizard/frm_wizard.h"

namespace cu {

void FrmWizard::collegaImpostazioni() {
  static constexpr std::array<const char*, 3> kDidascalie = {
      "&Protocollo ann./sost.", "&Protocollo annullamento", "&Protocollo sostituzione"};
  for (std::size_t i = 0; i < optTipoComunicazione.size(); ++i) {
    optTipoComunicazione[i].onClick = [this, i] {
      cmdProtocollo.setEnabled(i != 0);
      cmdProtocollo.setCaption(kDidascalie.at(i));
    };
  }
  for (std::size_t i = 0; i < optStampaTracciato.size(); ++i) {
    optStampaTracciato[i].onClick = [this, i] {
      WizPrint.setToFile(i == 1);
      WizPrint.setOutput(6);
    };
  }
  chkIntermediari.onClick = [this] {
    abilitaIntermediari(chkIntermediari.value());
    sbCaricaIntermediario();
  };
  cmdSfoglia.onClick = [this] {
    txtPercorsoCU.setText(fnSelezionaCartella(txtPercorsoCU.text()));
    if (txtPercorsoCU.text().empty()) {
      txtPercorsoCU.setText(sPercorsoCU);
    } else {
      sPercorsoCU = txtPercorsoCU.text();
    }
    annotaCartella();
  };
}

// A warning before the run: the run replaces an existing file without a question, and does not report one
// that cannot be written. An error here is ignored; it is reported where it matters.
void FrmWizard::annotaCartella() {
  try {
    SessioneHost& sessione = *globali_.gSessione;
    Recordset azienda;
    azienda.Open(sessione.database().ownConnection(), Controlli::fnQueryAzienda(sessione.IDAzienda()));
    const std::string codice =
        azienda.Eof() ? std::string() : ambiente_.utilita.toText(azienda.Get("CodFisc"));
    annotaCartella(fornitura::fnNomeFile(codice, KRNCboEsCont0.text()));
  } catch (const std::exception&) {
    txtPercorsoCU.setNote({});
  }
}

void FrmWizard::annotaCartella(const std::string& nomeFile) {
  FileSystem& files = ambiente_.files;
  std::string nota;
  try {
    const std::string file = files.join(sPercorsoCU, nomeFile);
    if (!files.folderExists(sPercorsoCU)) {
      nota = "La cartella non esiste.";
    } else if (files.fileExists(file)) {
      nota = nomeFile + (files.canWrite(file) ? " esiste già: Avvia lo sostituisce."
                                              : " esiste già e non si può sostituire.");
    } else if (!files.canWriteIn(sPercorsoCU)) {
      nota = "In questa cartella non si può scrivere.";
    }
  } catch (const std::exception&) {
    nota.clear();
  }
  txtPercorsoCU.setNote(nota);
}

Comunicazione FrmWizard::tipoComunicazione() const {
  for (std::size_t i = 0; i < optTipoComunicazione.size(); ++i) {
    if (optTipoComunicazione[i].value()) return static_cast<Comunicazione>(i + 1);
  }
  return Comunicazione::Nessuna;
}

void FrmWizard::abilitaIntermediari(bool attivo) {
  fraIntermediari.setEnabled(attivo);
  lblCodiceFiscale.setEnabled(attivo);
  lblTipoComunicazione.setEnabled(attivo);
  lblDataImpegno.setEnabled(attivo);
  txtCodiceFiscale.setEnabled(attivo);
  cboxTipoComunicazione.setEnabled(attivo);
  dtDataImpegno.setEnabled(attivo);
  const Background sfondo = attivo ? Background::Window : Background::Face;
  txtCodiceFiscale.setBackground(sfondo);
  cboxTipoComunicazione.setBackground(sfondo);
  dtDataImpegno.setBackground(sfondo);
}

void FrmWizard::sbCaricaIntermediario() {
  if (bIntermediarioCaricato) return;
  SessioneHost& sessione = *globali_.gSessione;
  const auto salvato =
      fnLeggiIntermediario(sessione.database().internalConnection(), sessione.IDAzienda(), ambiente_.utilita);
  if (salvato) {
    txtCodiceFiscale.setText(salvato->codiceFiscale);
    cboxTipoComunicazione.setIndex(salvato->indiceImpegno);
    dtDataImpegno.setText(salvato->dataImpegno);
  }
  bIntermediarioCaricato = true;
}

void FrmWizard::sbSalvaIntermediario() {
  if (!chkIntermediari.value()) return;
  SessioneHost& sessione = *globali_.gSessione;
  sbScriviIntermediario(sessione.database().internalConnection(), sessione.IDAzienda(),
                        {.codiceFiscale = txtCodiceFiscale.stored(),
                         .indiceImpegno = cboxTipoComunicazione.storedIndex(),
                         .dataImpegno = dtDataImpegno.entered()},
                        ambiente_.utilita);
}

std::string FrmWizard::fnSelezionaCartella(const std::string& partenza) {
  try {
    return ambiente_.frontEnd.chooseFolder(
        "Seleziona cartella...", partenza.empty() ? std::nullopt : std::optional<std::string>(partenza));
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace cu
