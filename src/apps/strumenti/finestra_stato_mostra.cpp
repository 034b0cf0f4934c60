// What the window of a year's state shows, and what it does.

#include <QButtonGroup>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>

#include "apps/esame/operazioni_registro.h"
#include "apps/esame/ricevuta_letta.h"
#include "apps/strumenti/dialoghi_stato.h"
#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/strumenti.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/dialogs.h"
#include "desktop/text.h"
#include "suite/orologio.h"

namespace cu::strumenti {

QString FinestraStato::occupata() const {
  if (!lavoro_.inCorso() || !scrive_) return {};
  return QStringLiteral(
      "È in corso una scrittura nel database. La finestra si può chiudere appena è finita.");
}

void FinestraStato::esegui(const QString& che, std::function<void()> lavoro, std::function<void()> fatto,
                           bool scrive) {
  if (lavoro_.inCorso()) return;
  scrive_ = scrive;
  attende_->setText(che);
  attesa_->show();
  lavoro_.avvia(std::move(lavoro), [this, fatto = std::move(fatto)](const Lavoro::Esito& esito) {
    attesa_->hide();
    abilita();
    if (esito.errore.isEmpty()) {
      fatto();
      return;
    }
    if (stato_ == nullptr) frase_->setText(QStringLiteral("Lo stato non si può leggere."));
    mostraErrore(esito.errore);
  });
  abilita();
}

void FinestraStato::abilita() {
  const bool libera = !lavoro_.inCorso();
  const bool tabelle = stato_ != nullptr && stato_->tabelle;
  tabelle_->setVisible(stato_ != nullptr && !tabelle);
  tabelle_->setEnabled(libera);
  for (QPushButton* uno : {inviato_, ricevuta_}) uno->setEnabled(libera && tabelle);
  correzioni_->setEnabled(libera && tabelle && !stato_->anni.empty());
  ricarica_->setEnabled(libera);
  anni_->setEnabled(libera && tabelle && !stato_->anni.empty());
}

void FinestraStato::leggi(std::optional<std::int32_t> anno) {
  auto letto = std::make_shared<StatoLetto>();
  esegui(
      QStringLiteral("Lettura dei conti e degli invii…"),
      [letto, anno, profilo = profilo_] { *letto = leggiStato(profilo, anno); },
      [this, letto] {
        stato_ = letto;
        mostra();
      },
      false);
}

void FinestraStato::mostra() {
  anni_->clear();
  for (const std::int32_t anno : stato_->anni) anni_->addItem(QString::number(anno), anno);
  anni_->setCurrentIndex(anni_->findData(stato_->anno));
  cercati_.clear();
  for (const VoceMostrata& voce : stato_->voci) {
    cercati_.push_back(desktop::folded(qs(voce.percipiente + "\n" + voce.nome + "\n" + voce.causale)));
  }
  scriviFiltri();
  voci_->mostra(stato_->voci.size());
  diceFrase();
  abilita();
  voci_->setFocus();
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
  frase_->setText(frase);
  frase_->setVisible(!frase.isEmpty());
}

void FinestraStato::mostraCaselle(std::optional<std::size_t> quale) {
  const bool una = quale && stato_ != nullptr && *quale < stato_->voci.size();
  const std::size_t caselle = una ? stato_->voci[*quale].caselle.size() : 0;
  QString frase;
  if (una && caselle > 0) {
    frase = QStringLiteral("Che cosa è cambiato da quando %1 è stata accettata:")
                .arg(qs(stato_->voci[*quale].nome + ", causale " + stato_->voci[*quale].causale));
  } else if (una && !stato_->voci[*quale].protocollo.empty()) {
    frase = stato_->voci[*quale].operazione == riscontro::Operazione::Annullamento
                ? QStringLiteral("È stata accettata, e nei conti non c'è più.")
                : QStringLiteral("Dopo l'accettazione non è cambiato nulla.");
  } else if (una) {
    frase = QStringLiteral("Non è ancora stata accettata.");
  }
  cambiate_->setText(frase);
  caselle_->mostra(caselle);
}

void FinestraStato::segnaInviato() {
  const Date oggi = orologio(profilo_)->today();
  DialogoInviato dialogo(this, QDate(oggi.year(), oggi.month(), oggi.day()));
  if (dialogo.exec() != QDialog::Accepted) return;
  const QDate giorno = dialogo.giorno();
  auto esito = std::make_shared<EsitoInvio>();
  esegui(
      QStringLiteral("Il file viene segnato come inviato…"),
      [esito, profilo = profilo_, file = dialogo.file().toStdString(),
       quando = Date::fromYmd(giorno.year(), giorno.month(), giorno.day())] {
        *esito = cu::segnaInviato(profilo, file, quando);
      },
      [this, esito] {
        if (!esito->riuscito) {
          mostraErrore(qs(esito->testo));
          return;
        }
        leggi(stato_->anno);
      },
      true);
}

void FinestraStato::leggiRicevuta() {
  const QString scelta = QFileDialog::getOpenFileName(
      this, QStringLiteral("Leggi ricevuta"), {}, QStringLiteral("Tabelle (*.csv *.xlsx);;Tutti i file (*)"));
  if (scelta.isEmpty()) return;
  auto righe = std::make_shared<std::vector<riscontro::RigaRicevuta>>();
  auto piano = std::make_shared<riscontro::PianoRicevuta>();
  esegui(
      QStringLiteral("Lettura della ricevuta…"),
      [righe, piano, profilo = profilo_, percorso = scelta.toStdString()] {
        *righe = righeRicevuta(percorso);
        *piano = pianoRicevuta(profilo, *righe);
      },
      [this, righe, piano, scelta] {
        if (DialogoRicevuta(this, QFileInfo(scelta).fileName(), *piano).exec() != QDialog::Accepted) return;
        auto registrata = std::make_shared<bool>(false);
        esegui(
            QStringLiteral("La ricevuta viene registrata…"),
            [righe, registrata, profilo = profilo_] { *registrata = registraRicevuta(profilo, *righe); },
            [this, registrata] {
              if (!*registrata) {
                mostraErrore(
                    QStringLiteral("Nel frattempo gli invii sono cambiati: la ricevuta non è stata "
                                   "registrata. Leggerla di nuovo."));
              }
              leggi(stato_->anno);
            },
            true);
      },
      false);
}

void FinestraStato::scriviCorrezioni() {
  const QString cartella = QFileDialog::getExistingDirectory(
      this, QStringLiteral("Cartella delle correzioni"), qs(profilo_.documenti));
  if (cartella.isEmpty()) return;
  auto esito = std::make_shared<EsitoCorreggi>();
  const auto prosegue = [this](const std::string& avviso) {
    const QString testo = desktop::lines(avviso).trimmed();
    return lavoro_.chiedi([this, testo] { return conferma(testo); });
  };
  esegui(
      QStringLiteral("Le correzioni vengono scritte…"),
      [esito, prosegue, profilo = profilo_, anno = stato_->anno, dove = cartella.toStdString()] {
        *esito = correggi(profilo, {.anno = anno, .cartella = dove, .firma = {}, .prosegue = prosegue});
      },
      [this, esito] {
        for (const LogTable& registro : esito->registri) desktop::LogDialog(this, registro).exec();
        // Not modal: the files that it opens can be read beside it.
        auto* const dialogo =
            new DialogoCorrezioni(this, *esito, [this](const QString& file) { apriFile(file, profilo_); });
        dialogo->setAttribute(Qt::WA_DeleteOnClose);
        dialogo->show();
        leggi(stato_->anno);
      },
      true);
}

void FinestraStato::aggiungiTabelle() {
  esegui(
      QStringLiteral("Le tabelle vengono aggiunte…"),
      [profilo = profilo_] { cu::aggiungiTabelle(profilo.database); }, [this] { leggi(std::nullopt); }, true);
}

}  // namespace cu::strumenti
