// The additional modules: a recordset not written to the database until the editor is confirmed.

#include <algorithm>
#include <span>

#include "base/text.h"
#include "controls/frontend.h"
#include "editors/editor_compenso.h"
#include "editors/sql_moduli.h"
#include "modello/moduli.h"

namespace cu {
namespace {

constexpr const char* kFiltro = "Eliminato = 0";

struct ColonnaModuli {
  const char* campo;
  const char* didascalia;
  int tipo;
  int larghezza;
  int allineamento;
  bool visibile = true;
};
constexpr ColonnaModuli kColonneModuli[] = {
    {"NumeroModulo", "N° modulo", kGridLong, 700, 0},
    {"AnnoModulo", "Anno", kGridLong, 1200, 0},
    {"Anticipazione", "Anticipazione", kGridBoolean, 1200, 2},
    {"SommeNonSoggette", "Somme non soggette a ritenuta", kGridDouble, 2000, 1},
    {"ImponibileAnniPrec", "Imponib. anni prec.", kGridDouble, 2000, 1},
    {"RitenuteAnniPrec", "Ritenute anni prec.", kGridDouble, 2000, 1},
    {"IDModuloXContoIndividuale", "IDModuloXContoIndividuale", kGridLong, 0, 1, false},
};

// Each visible column belongs to a box of further modules, and has its kind.
constexpr bool concorda(std::span<const ColonnaModuli> colonne) {
  for (const ColonnaModuli& colonna : colonne) {
    if (!colonna.visibile) continue;
    const modello::Trovato trovato =
        trova(modello::kModello, modello::Record::H, colonna.campo, modello::kModello.noti.ultimo, false);
    if (trovato.campo == nullptr) return false;
    const Genere genere = trovato.colonna.genere;
    const int tipo = genere == Genere::Importo ? kGridDouble
                     : genere == Genere::Flag  ? kGridBoolean
                                               : kGridLong;
    if (colonna.tipo != tipo) return false;
  }
  return true;
}
static_assert(concorda(kColonneModuli));

}  // namespace

void EditorCompenso::sbConfiguraGrigliaModuli() {
  grdAltriModuli->clearColumns();
  grdAltriModuli->decimalMark = ',';
  grdAltriModuli->thousandsMark = '.';
  for (const ColonnaModuli& colonna : kColonneModuli) {
    grdAltriModuli->addColumn({colonna.campo, colonna.didascalia, colonna.tipo, colonna.larghezza,
                               colonna.allineamento, colonna.visibile});
  }
}

void EditorCompenso::mostraConteggio() {
  if (cmdAltriModuli == nullptr) return;
  cmdAltriModuli->setCaption("&Altri moduli (" +
                             fromInteger(static_cast<std::int64_t>(moduli_.RecordCount())) + ")");
}

void EditorCompenso::sbApriModuli() {
  frontEnd().setPointer(kPointerHourglass);
  if (moduli_.IsOpen()) moduli_.Close();
  const SqlModuli sql(disposizione_, campiAltriModuli_, ambiente_.utilita);
  moduli_.Open(interna(), ambiente_.utilita.fnAnsi2jet(sql.select(*recordset_, sessione().IDAzienda())),
               LockType::BatchOptimistic);
  mostraConteggio();
  if (moduli_.RecordCount() == 0) nuovo();
  Caricamento = true;
  for (; !moduli_.Eof(); moduli_.MoveNext()) {
    moduli_.Set("Eliminato", Value::ofFlag(false));
    moduli_.AcceptCurrent();  // setting the mark is not a change of the module
  }
  if (moduli_.RecordCount() > 0) moduli_.MoveFirst();
  moduli_.SetFilter(kFiltro);
  grdAltriModuli->bind(&moduli_);
  Caricamento = false;
  frontEnd().setPointer(kPointerDefault);
}

void EditorCompenso::mostraModulo() {
  Caricamento = true;
  NuovoModulo = false;
  if (moduli_.IsOpen() && moduli_.RecordCount() > 0) {
    for (Casella& casella : altriModuli_) {
      if (casella.presente()) casella.mostra(moduli_.Get(casella.campo->colonna), ambiente_.utilita);
    }
  }
  cmdDelete->setEnabled(true);
  Caricamento = false;
}

void EditorCompenso::nuovo() {
  NuovoModulo = true;
  std::int64_t proposta = 2;
  const auto moduli = moduli_.Clone();
  for (; !moduli->Eof(); moduli->MoveNext()) {
    const std::int64_t numero = moduli->Get("NumeroModulo").integer();
    if (!moduli->Get("Eliminato").flag() && numero >= proposta) proposta = numero + 1;
  }
  for (Casella& casella : altriModuli_) {
    if (casella.numero != numModulo) casella.svuota();
  }
  cmdSave->setEnabled(false);
  cmdDelete->setEnabled(false);
  numModulo->setValue(proposta);
}

std::string EditorCompenso::moduloNonSalvato() const {
  if (!cmdSave->enabled() || (!NuovoModulo && moduli_.RecordCount() == 0)) return {};
  const bool scritto = std::any_of(altriModuli_.begin(), altriModuli_.end(), [this](const Casella& casella) {
    if (!casella.presente()) return false;
    // A number alone does not make a module.
    if (NuovoModulo) return casella.numero != numModulo && casella.pieno();
    return casella.diversa(moduli_.Get(casella.campo->colonna), ambiente_.utilita);
  });
  if (!scritto) return {};
  return "Il modulo n. " + fromInteger(numModulo->value()) + " è stato " +
         (NuovoModulo ? "scritto" : "modificato") + " ma non salvato con il pulsante «Salva».";
}

void EditorCompenso::salva() {
  if (disposizione_.immagine) sbAvvisoAltriModuli();
  if (!fnModuloValido()) return;
  {
    const DrawingPause pausa(*grdAltriModuli);
    if (NuovoModulo) {
      --UltimoIDModulo;
      moduli_.AddNew();
      moduli_.Set(modello::kIdModulo, Value::ofInteger(UltimoIDModulo));
      moduli_.Set("Eliminato", Value::ofFlag(false));
    }
    for (const Casella& casella : altriModuli_) {
      if (!casella.presente()) continue;
      const bool annoMancante = casella.numero == numAnno && numAnno->value() == 0;
      moduli_.Set(casella.campo->colonna, annoMancante ? Value() : casella.valore());
    }
    moduli_.Update();
  }
  grdAltriModuli->refresh();
  cmdSave->setEnabled(false);
  cmdDelete->setEnabled(true);
  NuovoModulo = false;
  mostraConteggio();
  sbRicalcolaAmmontareLordo();
  // Not on the next button, which deletes.
  setFocus(grdAltriModuli);
}

void EditorCompenso::elimina() {
  {
    const DrawingPause pausa(*grdAltriModuli);
    moduli_.Set("Eliminato", Value::ofFlag(true));
    moduli_.Update();
  }
  grdAltriModuli->refresh();
  mostraConteggio();
  sbRicalcolaAmmontareLordo();
  // Without a module to show, the fields are those of a new one, as at the opening.
  if (moduli_.RecordCount() == 0) nuovo();
}

void EditorCompenso::sbSalvaModuli() {
  const DrawingPause pausa(*grdAltriModuli);
  // Without a visible module nothing is applied, not even the deletion of the last ones.
  if (moduli_.RecordCount() == 0) return;
  // The page keeps showing the same module, also after a success: storing the row in the work table
  // afterwards may fail, and the editor then stays open. Executed changes count as applied.
  const auto torna = [this, mostrato = moduli_.Bookmark()] {
    moduli_.SetFilter(kFiltro);
    moduli_.SetBookmark(mostrato);
  };
  moduli_.FilterPending();
  try {
    applica();
  } catch (...) {
    torna();
    throw;
  }
  torna();
}

void EditorCompenso::applica() {
  const UtilitaSuite& utilita = ambiente_.utilita;
  const SqlModuli sql(disposizione_, campiAltriModuli_, utilita);
  Connection& connessione = sessione().database().connection();
  const auto esegui = [&](const std::string& testo) {
    return connessione.Execute(utilita.fnAnsi2jet(testo));
  };
  for (; !moduli_.Eof(); moduli_.MoveNext()) {
    const bool eliminato = moduli_.Get("Eliminato").flag();
    const Value letto = moduli_.OriginalValue(modello::kIdModulo);
    // A module inserted by an attempt that failed later already has its id.
    const std::int64_t id =
        letto.view().isNull() ? moduli_.Get(modello::kIdModulo).integer() : letto.view().integer();
    switch (moduli_.Status()) {
      case RecordStatus::New: {
        if (eliminato) break;
        cu::Recordset massimo;
        massimo.Open(connessione, utilita.fnAnsi2jet(sql.massimo()));
        const std::int64_t nuovoId = (massimo.Eof() ? 0 : massimo.Get("ID").integer()) + 1;
        esegui(sql.insert(nuovoId, *recordset_, sessione().IDAzienda(), moduli_));
        moduli_.Set(modello::kIdModulo, Value::ofInteger(nuovoId));
        break;
      }
      case RecordStatus::Modified:
        if (eliminato) {
          esegui(sql.elimina(id));
        } else if (esegui(sql.update(id, moduli_)) == 0) {
          throw Error(kErrorRowGone, "Il modulo " + fromInteger(moduli_.Get("NumeroModulo").integer()) +
                                         " non è più nel database: è stato eliminato altrove. Annullare e "
                                         "riaprire il compenso.");
        }
        break;
      case RecordStatus::Unmodified:
        break;
    }
    moduli_.AcceptCurrent();
  }
}

}  // namespace cu
