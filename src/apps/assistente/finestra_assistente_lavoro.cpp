// What the window of an import works out, and what it shows of it.

#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <utility>

#include "apps/assistente/finestra_assistente.h"
#include "apps/assistente/pagina.h"
#include "apps/assistente/pagina_righe.h"
#include "apps/esame/operazioni_registro.h"
#include "apps/strumenti/frase.h"

namespace cu::assistente {
namespace {

// Reports to the window how far a work is; the person's cancelling is raised in the work.
class AvanzamentoLavoro : public ProgressSink {
 public:
  explicit AvanzamentoLavoro(strumenti::Lavoro& lavoro) : lavoro_(lavoro) {}
  void setPointer(int) override {}
  void progress(const char* che, std::size_t fatti, std::size_t tutti) override {
    lavoro_.avanza(che, fatti, tutti);
  }

 private:
  strumenti::Lavoro& lavoro_;
};

}  // namespace

void FinestraAssistente::prosegui() {
  if (lavora()) return;
  auto compito = sospeso_ ? std::nullopt : assistente_.daFare();
  if (compito) {
    // What the trial tries can be looked at meanwhile.
    if (assistente_.passo() == Passo::Prova && assistente_.piano() != nullptr) mostra();
    compi(*compito);
    return;
  }
  if (meta_ && assistente_.passo() < *meta_ && !sospeso_ && assistente_.puoAvanzare()) {
    assistente_.avanti();
    prosegui();
    return;
  }
  meta_.reset();
  mostra();
}

bool FinestraAssistente::mostrata(const Pagina* pagina) const {
  return pagine_->currentWidget()->isAncestorOf(pagina);
}

void FinestraAssistente::compi(const Assistente::Compito& compito) {
  scrive_ = compito.scrive;
  // The trial reads what a person could change meanwhile on its page, as the files are read.
  const bool ferma =
      assistente_.passo() == Passo::Prova || mostrata(delPasso_[static_cast<std::size_t>(Passo::Sorgente)]);
  QWidget* const fuoco = focusWidget();
  if (ferma) pagine_->setEnabled(false);
  esegui({.che = QString::fromUtf8(compito.che) + u'…',
          .lavoro =
              [this, fai = compito.lavoro] {
                AvanzamentoLavoro avanzamento(lavoro());
                fai(&avanzamento);
              },
          .finito =
              [this, accogli = compito.accogli, ferma,
               prima = QPointer<QWidget>(fuoco)](const strumenti::Lavoro::Esito& esito) {
                scrive_ = false;
                if (ferma) pagine_->setEnabled(true);
                if (ferma && prima != nullptr && pagine_->isAncestorOf(prima)) prima->setFocus();
                if (esito.interrotto || !esito.errore.isEmpty()) {
                  fallito(esito.errore);
                  return;
                }
                const Passo partenza = assistente_.passo();
                accogli();
                const Passo dopo = assistente_.passo();
                arrivato_ = arrivato_ || partenza != dopo;
                if (partenza != dopo && dopo == Passo::Esito && importate) importate();
                prosegui();
              },
          .interrompi = QStringLiteral("A&nnulla")});
  abilita();
}

// The step that could not be reached is left; what still has to be worked out waits.
void FinestraAssistente::fallito(const QString& errore) {
  const bool scriveva = assistente_.passo() == Passo::Prova && assistente_.puoImportare();
  meta_.reset();
  if (!scriveva) assistente_.abbandona();
  sospeso_ = assistente_.daFare().has_value();
  arrivato_ = true;
  risposta_->dici(errore.isEmpty() ? QStringLiteral("Annullato: il database è rimasto com'era.") : QString());
  mostra();
  if (!errore.isEmpty()) mostraErrore(errore);
}

void FinestraAssistente::mostra() {
  Pagina* const pagina = paginaDelPasso();
  pagina->mostra();
  for (int i = 0; i < pagine_->count(); ++i) {
    if (pagine_->widget(i)->isAncestorOf(pagina)) pagine_->setCurrentIndex(i);
  }
  titolo_->dici(qs(titoloPasso(assistente_.passo(), assistente_.elenco(), assistente_.fatture())));
  mostraPassi();
  abilita();
  if (std::exchange(arrivato_, false)) pagina->primo()->setFocus();
}

void FinestraAssistente::mostraPassi() {
  const auto questo = static_cast<int>(assistente_.passo());
  int numero = 0;  // of those that the kind of data has
  for (int i = 0; i < passi_->count(); ++i) {
    const auto passo = static_cast<Passo>(i);
    if (assistente_.comprende(passo)) ++numero;
    const bool fatto = i != questo && (i < questo || passo < assistente_.raggiunto());
    const QString segno = fatto         ? QStringLiteral("✓ ")
                          : i == questo ? QStringLiteral("▸ ")
                                        : QStringLiteral("   ");
    QListWidgetItem* const voce = passi_->item(i);
    const QString titolo = qs(titoloPasso(passo, assistente_.elenco(), assistente_.fatture()));
    voce->setText(QStringLiteral("%1%2  %3").arg(segno).arg(numero).arg(titolo));
    const QString detto = fatto         ? QStringLiteral("fatto")
                          : i == questo ? QStringLiteral("questo")
                                        : QStringLiteral("da fare");
    voce->setData(Qt::AccessibleTextRole, QStringLiteral("%1, %2").arg(titolo, detto));
    const bool raggiungibile =
        i == questo || (i < questo ? assistente_.puoTornare() : passo <= assistente_.raggiunto());
    voce->setFlags(raggiungibile ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
    passi_->setRowHidden(i, !assistente_.comprende(passo));
  }
  passi_->setCurrentRow(questo);
}

void FinestraAssistente::abilita() {
  const bool libera = !lavora();
  const bool inProva = assistente_.passo() == Passo::Prova;
  const std::string impedimento = libera ? assistente_.impedimento() : std::string();
  riprova_->setVisible(libera && sospeso_);
  indietro_->setEnabled(libera && assistente_.puoTornare());
  avanti_->setVisible(!inProva && assistente_.passo() != Passo::Esito);
  avanti_->setEnabled(libera && !sospeso_ && assistente_.puoAvanzare());
  avanti_->setToolTip(qs(impedimento));
  importa_->setVisible(inProva);
  importa_->setEnabled(libera && assistente_.puoImportare());
  passi_->setEnabled(libera);
}

void FinestraAssistente::importa() {
  if (lavora() || !assistente_.puoImportare()) return;
  risposta_->dici({});
  compi(assistente_.importa());
}

void FinestraAssistente::aggiungiTabelle() {
  if (lavora()) return;
  const bool si = conferma(
      QStringLiteral(
          "Nel database vengono create le tabelle di questo programma che ancora mancano: quelle "
          "delle importazioni e quelle che ricordano i file scritti. Gli altri dati restano come sono."),
      QStringLiteral("&Aggiungi le tabelle"));
  if (!si) return;
  compi({.che = "Le tabelle vengono aggiunte",
         .lavoro = [database = profilo_.database](ProgressSink*) { cu::aggiungiTabelle(database); },
         .accogli = [this] { assistente_.rileggiDatabase(); },
         .scrive = true});
}

}  // namespace cu::assistente
