// The checks of a line required by the ministerial instructions, and those of a module before it is stored.

#include <stdexcept>

#include "base/text.h"
#include "editors/editor_compenso.h"
#include "modello/regole.h"

namespace cu {
namespace {

constexpr std::string_view kFallimento = "- Sezione \"FALLIMENTO E LIQUIDAZIONE COATTA AMMINISTRATIVA\"";
constexpr std::string_view kAltriSoggetti = "- Sezione \"REDDITI EROGATI DA ALTRI SOGGETTI\"";
constexpr std::string_view kCasiParticolari = "- Sezione \"Casi particolari - Operazione straordinarie\"";
constexpr std::string_view kIntroduzione =
    "Attenzione! Verificare la compilazione dei seguenti campi:\r\n\r\n";
constexpr std::string_view kConseguenza =
    "\r\n\r\nIn presenza di tali segnalazioni il file potrebbe non essere accettato.";
constexpr int kAnnoMinimo = 1870;

class Segnalazioni {
 public:
  void aggiungi(std::string_view sezione, const std::string& riga) {
    if (!testo_.empty()) testo_ += "\r\n\r\n";
    testo_ += sezione;
    testo_ += "\r\n" + riga;
  }
  const std::string& testo() const { return testo_; }

 private:
  std::string testo_;
};

// "Imponibile" (campo 53
std::string nominato(const CampoEditor& campo) {
  return "\"" + std::string(campo.dicitura) + "\" (campo " + numeroScritto(campo);
}

std::string obbligatorioPerAltriSoggetti(const CampoEditor& campo) {
  return "\"Codice fiscale\" (campo 52): il campo è obbligatorio in presenza di " + nominato(campo) + ")";
}

}  // namespace

const Casella* EditorCompenso::casella(Pagina pagina, int numero) const {
  for (const Casella& casella : pagina == Pagina::Modulo1 ? modulo1_ : altriModuli_) {
    if (casella.campo->numero == numero && casella.presente()) return &casella;
  }
  return nullptr;
}

Casella& EditorCompenso::casellaDi(Pagina pagina, std::string_view colonna) {
  for (Casella& casella : caselle(pagina)) {
    if (casella.campo->colonna == colonna) return casella;
  }
  throw std::out_of_range("no box of this column");
}

bool EditorCompenso::pieno(Pagina pagina, int numero) const {
  const Casella* const trovata = casella(pagina, numero);
  return trovata != nullptr && trovata->pieno();
}

const Casella* EditorCompenso::primoPieno(Pagina pagina, int da, int a) const {
  for (int numero = da; numero <= a; ++numero) {
    const Casella* const trovata = casella(pagina, numero);
    if (trovata != nullptr && trovata->pieno()) return trovata;
  }
  return nullptr;
}

int EditorCompenso::fnVerificaCompilazione() {
  Segnalazioni segnalazioni;
  const auto pieno1 = [&](int numero) { return pieno(Pagina::Modulo1, numero); };
  const std::int32_t carica = ambiente_.utilita.toLong(recordset_->Get("CodiceCarica"));
  if (carica != 3 && carica != 4) {
    for (const int numero : {41, 42}) {
      if (!pieno1(numero)) continue;
      segnalazioni.aggiungi(kFallimento, nominato(*casella(Pagina::Modulo1, numero)->campo) +
                                             "): il campo va riempito se il Codice Carica è 3 o 4");
    }
  }
  const Casella* const altroSoggetto = primoPieno(Pagina::Modulo1, 53, 62);
  if (!pieno1(52) && altroSoggetto != nullptr) {
    segnalazioni.aggiungi(kAltriSoggetti, obbligatorioPerAltriSoggetti(*altroSoggetto->campo));
  }
  const Casella* const presente = pieno1(52) ? casella(Pagina::Modulo1, 52) : altroSoggetto;
  if (pieno1(71) && presente != nullptr) {
    segnalazioni.aggiungi(
        kCasiParticolari,
        "\"Codice fiscale (sezione lavoro autonomo e redditi diversi)\" (campo 71): il campo "
        "deve essere vuoto in presenza di " +
            nominato(*presente->campo) + ")");
  }
  bool pignoramento = false;
  for (const int numero : disposizione_.elencoB) pignoramento = pignoramento || pieno1(numero);
  if (pieno1(72) && !pignoramento) {
    segnalazioni.aggiungi(kCasiParticolari,
                          "\"Codice fiscale (sezione pignoramento presso terzi)\" (campo 72): il campo deve "
                          "essere vuoto se è non compilata la sezione \"Somme liquidate a seguito di "
                          "pignoramento presso terzi\" (campi da 101 a 108)");
  }
  if (pieno1(73) && primoPieno(Pagina::Modulo1, 131, 138) == nullptr) {
    segnalazioni.aggiungi(
        kCasiParticolari,
        "\"Codice fiscale (sezione indennità di esproprio)\" (campo 73): il campo deve essere "
        "vuoto se non è compilata la sezione \"Somme corrisposte a titolo di indennità di "
        "esproprio, altre indennità e interessi\" (campi da 131 a 138)");
  }
  if (segnalazioni.testo().empty()) return 0;
  return ambiente_.utilita.confirm(std::string(kIntroduzione) + segnalazioni.testo() +
                                       std::string(kConseguenza) + "\r\nProseguire ugualmente?",
                                   ambiente_.globali.gTitolo);
}

void EditorCompenso::sbAvvisoAltriModuli() {
  const Casella* const altroSoggetto = primoPieno(Pagina::AltriModuli, 53, 62);
  if (pieno(Pagina::AltriModuli, 52) || altroSoggetto == nullptr) return;
  Segnalazioni segnalazioni;
  segnalazioni.aggiungi(kAltriSoggetti, obbligatorioPerAltriSoggetti(*altroSoggetto->campo));
  ambiente_.utilita.message(std::string(kIntroduzione) + segnalazioni.testo() + std::string(kConseguenza),
                            ambiente_.globali.gTitolo);
}

bool EditorCompenso::fnModuloValido() {
  const auto rifiuta = [&](const std::string& testo, Control& campo) {
    ambiente_.utilita.message("Attenzione! " + testo, ambiente_.globali.gTitolo);
    setFocus(&campo);
    return false;
  };
  if (numModulo->value() <= 1) return rifiuta("Il numero modulo deve essere superiore a 1.", *numModulo);
  const auto moduli = moduli_.Clone();
  for (; !moduli->Eof(); moduli->MoveNext()) {
    if (moduli->Get("Eliminato").flag() || moduli->Get("NumeroModulo").integer() != numModulo->value()) {
      continue;
    }
    // The module being edited may keep its number.
    if (!NuovoModulo && moduli->Bookmark() == moduli_.Bookmark()) continue;
    return rifiuta("Il numero modulo risulta già presente.", *numModulo);
  }
  const std::int32_t anno = ambiente_.utilita.toLong(recordset_->Get("Anno"));
  if (numAnno->value() > anno) {
    return rifiuta("L'anno non può essere superiore a " + fromInteger(anno) + ".", *numAnno);
  }
  if (numAnno->value() < kAnnoMinimo && numAnno->value() != 0) {
    return rifiuta("L'anno non è valido.", *numAnno);
  }
  if (importo(Pagina::AltriModuli, modello::kAddendoLordoDelModulo).number() > Decimal() &&
      cboCodicePerNonSoggettiAltri->record().value_or(0) == 0) {
    return rifiuta("Il Codice è obbligatorio se presente\r\nil campo Somme non soggette a ritenuta.",
                   *cboCodicePerNonSoggettiAltri);
  }
  return true;
}

}  // namespace cu
