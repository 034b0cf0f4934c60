#include "apps/assistente/finestra_storico.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>

#include "apps/comune/connessioni.h"
#include "apps/importazione/esecuzione.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::assistente {
namespace {

using intake::Lotto;
using strumenti::qs;

constexpr QSize kDimensioneStorico(900, 460);
constexpr std::size_t kRifiutiMostrati = 10;

QString fileDi(const Lotto& lotto) {
  QStringList nomi;
  for (const intake::FileImportato& uno : lotto.file) nomi += qs(uno.nome);
  return nomi.join(QStringLiteral(", "));
}

// "2018-03-05 10:30:00" as "05/03/2018 10:30"
QString momentoMostrato(const std::string& momento) {
  constexpr std::size_t kGiorno = 10;
  constexpr std::size_t kFinoAiMinuti = 16;
  const auto giorno = Date::parseIso(momento.substr(0, kGiorno));
  if (!giorno || momento.size() < kFinoAiMinuti) return qs(momento);
  return qs(giorno->toItalian() + momento.substr(kGiorno, kFinoAiMinuti - kGiorno));
}

QString perche(const std::vector<Finding>& rifiuti) {
  QStringList righe;
  for (const Finding& uno : rifiuti) {
    if (static_cast<std::size_t>(righe.size()) < kRifiutiMostrati) righe += qs(uno.text);
  }
  if (rifiuti.size() > kRifiutiMostrati)
    righe += QStringLiteral("… e altri %1.").arg(strumenti::conteggio(rifiuti.size() - kRifiutiMostrati));
  return righe.join(u'\n');
}

}  // namespace

FinestraStorico::FinestraStorico(Profilo profilo)
    : Finestra(QStringLiteral("storico")),
      profilo_(std::move(profilo)),
      frase_(new strumenti::Frase(this)),
      risposta_(new strumenti::Frase(this)) {
  setWindowTitle(QStringLiteral("Storico delle importazioni"));
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(frase_);
  const auto di = [this](std::size_t q) -> const Lotto& { return lotti_[q]; };
  tabella_ = new strumenti::Tabella(
      QStringLiteral("assistente_storico"), QStringLiteral("Importazioni"),
      {{.chiave = "numero",
        .titolo = "N.",
        .testo = [di](std::size_t q) { return QString::number(di(q).id); },
        .aDestra = true,
        .ordine = [di](std::size_t q) { return QVariant(di(q).id); }},
       {.chiave = "momento",
        .titolo = "Quando",
        .testo = [di](std::size_t q) { return momentoMostrato(di(q).momento); },
        .ordine = [di](std::size_t q) { return qs(di(q).momento); }},
       {.chiave = "dati",
        .titolo = "Dati",
        .testo = [di](std::size_t q) { return qs(std::string(intake::nome(di(q).elenco))); }},
       {.chiave = "stato",
        .titolo = "Stato",
        .testo =
            [di](std::size_t q) {
              return di(q).annullato ? QStringLiteral("− annullata") : QStringLiteral("✓ applicata");
            }},
       {.chiave = "righe",
        .titolo = "Righe",
        .testo = [di](std::size_t q) { return qs(dettiConteggi(di(q).conteggi, Migliaia::ConPunto)); },
        .massima = 420},
       {.chiave = "file", .titolo = "File", .testo = [di](std::size_t q) { return fileDi(di(q)); }}},
      this);
  tabella_->scelta = [this](auto) { abilita(); };
  colonna->addWidget(tabella_, 1);
  risposta_->hide();
  colonna->addWidget(risposta_);
  colonna->addWidget(attesa());
  auto* const riga = new QHBoxLayout;
  riga->addWidget(annulla_ = pulsante("Ann&ulla l'importazione…", [this] { prova(); }));
  riga->addStretch(1);
  riga->addWidget(pulsante(
      "&Ricarica", [this] { leggi(); }, QKeySequence(Qt::Key_F5)));
  riga->addWidget(pulsante("C&hiudi", [this] { close(); }));
  colonna->addLayout(riga);
  ricordaPosto({}, kDimensioneStorico);
  leggi();
}

QString FinestraStorico::occupata() const {
  if (!lavora() || !scrive_) return {};
  return QStringLiteral("È in corso una scrittura. La finestra si può chiudere appena è finita.");
}

QString FinestraStorico::capitolo() const { return QStringLiteral("Annullare un'importazione"); }

const Lotto* FinestraStorico::corrente() const {
  const auto quale = tabella_->corrente();
  return quale && *quale < lotti_.size() ? &lotti_[*quale] : nullptr;
}

void FinestraStorico::abilita() {
  const Lotto* const lotto = corrente();
  annulla_->setEnabled(!lavora() && lotto != nullptr && !lotto->annullato);
}

void FinestraStorico::compi(const QString& che, std::function<void()> lavoro, std::function<void()> fatto) {
  if (lavora()) return;
  tabella_->setFocus();
  esegui({.che = che,
          .lavoro = std::move(lavoro),
          .finito =
              [this, fatto = std::move(fatto)](const strumenti::Lavoro::Esito& esito) {
                scrive_ = false;
                abilita();
                if (esito.errore.isEmpty()) {
                  fatto();
                } else {
                  mostraErrore(esito.errore);
                }
              },
          .interrompibile = false});
  abilita();
}

void FinestraStorico::leggi() {
  auto lotti = std::make_shared<std::vector<Lotto>>();
  compi(
      QStringLiteral("Lettura dello storico…"),
      [lotti, database = profilo_.database] {
        *lotti = intake::storico(*apriConnessione(database), std::nullopt);
        std::reverse(lotti->begin(), lotti->end());
      },
      [this, lotti] {
        lotti_ = std::move(*lotti);
        mostra();
      });
}

void FinestraStorico::mostra() {
  tabella_->mostra(lotti_.size());
  frase_->dici(
      lotti_.empty()
          ? QStringLiteral("In questo database non è ancora stato importato nulla.")
          : QStringLiteral("Le importazioni, dall'ultima. Annullandone una tutto torna com'era prima "
                           "di essa; non si può più quando altri dati dipendono da lei."));
  abilita();
}

// What would happen is known before it is asked for.
void FinestraStorico::prova() {
  const Lotto* const lotto = corrente();
  if (lotto == nullptr || lotto->annullato) return;
  risposta_->dici({});
  const std::int32_t id = lotto->id;
  auto esito = std::make_shared<Result<intake::Annullato>>(intake::Annullato{});
  compi(
      QStringLiteral("Prova dell'annullamento…"),
      [esito, id, database = profilo_.database] {
        DatabaseSuite suo(apriConnessione(database), nullptr);
        *esito = annullaLotto(suo, id, true);
      },
      [this, esito, id] {
        if (!*esito) {
          mostraErrore(QStringLiteral("L'importazione %1 non si può annullare.\n\n%2")
                           .arg(id)
                           .arg(perche(esito->refusals)));
          return;
        }
        const QString domanda =
            QStringLiteral(
                "Tutto torna com'era prima dell'importazione %1: %2. I conti si calcolano di nuovo.\n\n"
                "Nello storico l'importazione resta, come annullata.")
                .arg(id)
                .arg(qs(dettoAnnullato(**esito, Migliaia::ConPunto)));
        if (conferma(domanda, QStringLiteral("&Torna com'era prima"), QStringLiteral("&Lascia com'è")))
          annulla(id);
      });
}

void FinestraStorico::annulla(std::int32_t lotto) {
  auto esito = std::make_shared<Result<intake::Annullato>>(intake::Annullato{});
  scrive_ = true;
  compi(
      QStringLiteral("L'importazione viene annullata…"),
      [esito, lotto, database = profilo_.database] {
        DatabaseSuite suo(apriConnessione(database), nullptr);
        *esito = annullaLotto(suo, lotto, false);
      },
      [this, esito, lotto] {
        if (!*esito) {
          mostraErrore(perche(esito->refusals));
          return;
        }
        risposta_->dici(QStringLiteral("✓ Importazione %1 annullata.").arg(lotto));
        if (annullata) annullata(lotto);
        leggi();
      });
}

}  // namespace cu::assistente
