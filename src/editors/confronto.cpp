// Compares the open editor with what was read for it.

#include "base/error.h"
#include "editors/editor_compenso.h"
#include "editors/frm_dati_aggiuntivi.h"
#include "editors/somma_lordo.h"
#include "modello/moduli.h"
#include "modello/regole.h"

namespace cu {

void EditorCompenso::collega(Pagina pagina, Casella& casella) {
  casella.controllo()->differs = [this, pagina, &casella] { return letto(pagina, casella); };
  if (!disposizione_.immagine) casella.controllo()->boxNumber = numeroScritto(*casella.campo);
}

std::optional<Control::Loaded> EditorCompenso::letto(Pagina pagina, const Casella& casella) const {
  const bool prima = pagina == Pagina::Modulo1;
  if (recordset_ == nullptr || !casella.controllo()->enabled()) return std::nullopt;
  const cu::Recordset& righe = prima ? *recordset_ : moduli_;
  if (!righe.IsOpen() || righe.Eof() || righe.Bof()) return std::nullopt;
  // A module that the database does not have yet.
  if (!prima && (NuovoModulo || righe.OriginalValue(modello::kIdModulo).view().isNull())) return std::nullopt;
  const Value valore = righe.OriginalValue(casella.campo->colonna);
  if (!casella.diversa(valore.view(), ambiente_.utilita)) return std::nullopt;
  return casella.letto(valore.view(), ambiente_.utilita);
}

Decimal EditorCompenso::sommaModuli() const {
  Decimal somma;
  const auto moduli = moduli_.Clone();
  for (; !moduli->Eof(); moduli->MoveNext()) {
    if (!moduli->Get("Eliminato").flag())
      somma = somma + moduli->Get(modello::kAddendoLordoDelModulo).decimal();
  }
  return somma;
}

// A note is shown only by a window: no value changes.
void EditorCompenso::mostraSomma() {
  if (Caricamento || !moduli_.IsOpen()) return;
  AmountBox& lordo = importo(Pagina::Modulo1, modello::kLordo);
  std::string nota;
  try {
    Decimal somma;
    for (const std::string_view addendo : modello::kAddendiLordo)
      somma = somma + importo(Pagina::Modulo1, addendo).number();
    nota = fnNotaLordo(fnCaselleDelLordo(campiModulo1_), somma, sommaModuli(), lordo);
  } catch (const Error&) {
    // Beyond all amounts there is no sum, and the line opens nevertheless.
    nota.clear();
  }
  lordo.setNote(nota);
}

// What "Annulla" would discard.
std::optional<std::string> EditorCompenso::rowWork() const {
  constexpr const char* kModificato = "Il compenso è stato modificato e non confermato con OK.";
  if (!moduli_.IsOpen()) return std::string();
  const std::string modulo = moduloNonSalvato();
  if (!modulo.empty()) return modulo;
  const auto inAttesa = moduli_.Clone();
  inAttesa->FilterPending();
  if (inAttesa->RecordCount() > 0 || impronta() != improntaCaricata_) return kModificato;
  if (disposizione_.immagine) return std::string();
  // Here the references and the residence are on the page, and copied at the confirmation.
  const bool uguali = dati_.Protocollo == riferimenti_->txtProtocollo.stored() &&
                      dati_.Progressivo == riferimenti_->txtProgressivo.stored() &&
                      dati_.IDComuneResidenzaAnnoPrec == idComune(*TownComuneResidenzaAnnoPrec) &&
                      dati_.IDComuneResidenzaAnnoCorr == idComune(*TownComuneResidenzaAnnoCorr);
  return uguali ? std::string() : std::string(kModificato);
}

}  // namespace cu
