// What the window of a year's state shows.

#include <QComboBox>
#include <QPushButton>
#include <utility>

#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/ricerca.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::strumenti {

QString FinestraStato::occupata() const {
  if (!lavora() || !scrive_) return {};
  return QStringLiteral("È in corso una scrittura. La finestra si può chiudere appena è finita.");
}

void FinestraStato::compi(const QString& che, std::function<void()> lavoro, std::function<void()> fatto,
                          Modo modo) {
  if (lavora()) return;
  scrive_ = modo != Modo::Legge;
  // A button that has just been pressed is disabled now: the focus would go to the next one.
  voci_->setFocus();
  esegui({.che = che,
          .lavoro = std::move(lavoro),
          .finito =
              [this, fatto = std::move(fatto)](const Lavoro::Esito& esito) {
                abilita();
                voci_->setFocus();
                if (esito.errore.isEmpty() && !esito.interrotto) {
                  fatto();
                  return;
                }
                if (stato_ == nullptr) {
                  frase_->dici(esito.interrotto
                                   ? QStringLiteral("La lettura è stata interrotta. Con Ricarica (F5) si "
                                                    "ricomincia.")
                                   : QStringLiteral("Lo stato non si può leggere."));
                } else if (esito.interrotto) {
                  anni().setCurrentIndex(anni().findData(stato_->anno));
                  risposta_->dici(
                      QStringLiteral("La lettura è stata interrotta: si vede ancora lo stato di "
                                     "prima. Con Ricarica (F5) si ricomincia."));
                }
                if (!esito.errore.isEmpty()) mostraErrore(esito.errore);
              },
          .interrompibile = modo != Modo::Scrive});
  abilita();
}

void FinestraStato::abilita() {
  const bool libera = !lavora();
  const bool tabelle = stato_ != nullptr && stato_->tabelle;
  tabelle_->setVisible(stato_ != nullptr && !tabelle);
  tabelle_->setEnabled(libera);
  for (QPushButton* uno : {inviato_, tolto_, ricevuta_}) uno->setEnabled(libera && tabelle);
  correzioni_->setEnabled(libera && tabelle && !stato_->anni.empty());
  ricarica_->setEnabled(libera);
  anni().setEnabled(libera && tabelle && !stato_->anni.empty());
}

void FinestraStato::leggi(std::optional<std::int32_t> anno) {
  auto letto = std::make_shared<StatoLetto>();
  compi(
      QStringLiteral("Lettura dei conti e degli invii…"),
      [this, letto, anno, profilo = profilo_] {
        *letto = leggiStato(profilo, anno,
                            [this](const char* che, std::size_t fatti) { lavoro().avanza(che, fatti, 0); });
      },
      [this, letto] {
        stato_ = letto;
        mostra();
      },
      Modo::Legge);
}

void FinestraStato::mostra() {
  anni().clear();
  for (const std::int32_t anno : stato_->anni) anni().addItem(QString::number(anno), anno);
  anni().setCurrentIndex(anni().findData(stato_->anno));
  ricerca().prepara(stato_->voci.size(), [this](std::size_t q) {
    const VoceMostrata& voce = stato_->voci[q];
    return voce.percipiente + "\n" + voce.nome + "\n" + voce.causale;
  });
  scriviScelte();
  voci_->mostra(stato_->voci.size());
  diceFrase();
  abilita();
  if (stato_->tabelle) {
    voci_->setFocus();
  } else {
    tabelle_->setFocus();
  }
}

void FinestraStato::diceFrase() {
  QString frase;
  if (stato_ == nullptr) return;
  if (!stato_->tabelle) {
    frase = QStringLiteral(
        "Questo database non ha ancora le tabelle per seguire gli invii. «Aggiungi le tabelle» le crea: i "
        "conti e "
        "gli altri dati restano come sono.");
  } else if (stato_->anni.empty()) {
    frase = QStringLiteral("Per questa azienda non ci sono né conti né invii.");
  } else if (stato_->voci.empty()) {
    frase = QStringLiteral("In questo anno non ci sono né conti né certificazioni accettate.");
  } else if (voci_->mostrate() == 0) {
    frase = QStringLiteral("Nessuna certificazione corrisponde alla scelta.");
  }
  frase_->dici(frase);
}

// What the table has no room for.
QString FinestraStato::dettaVoce(const VoceMostrata& voce) const {
  QString testo;
  if (!voce.caselle.empty()) {
    testo = QStringLiteral("Che cosa è cambiato da quando %1 è stata accettata:")
                .arg(qs(voce.nome + ", causale " + voce.causale));
  } else if (voce.protocollo.empty()) {
    testo = QStringLiteral("Non è ancora stata accettata.");
  } else if (voce.operazione == riscontro::Operazione::Annullamento) {
    testo = QStringLiteral("È stata accettata, e nei conti non c'è più.");
  } else {
    testo = QStringLiteral("Dopo l'accettazione non è cambiato nulla.");
  }
  return voce.motivo.empty() ? testo
                             : QStringLiteral("Motivo dell'ultimo scarto: %1\n").arg(qs(voce.motivo)) + testo;
}

void FinestraStato::mostraCaselle(std::optional<std::size_t> quale) {
  const bool una = quale && stato_ != nullptr && *quale < stato_->voci.size();
  cambiate_->dici(una ? dettaVoce(stato_->voci[*quale]) : QString());
  caselle_->mostra(una ? stato_->voci[*quale].caselle.size() : 0);
}

}  // namespace cu::strumenti
