#include "apps/strumenti/finestra_confronto.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "apps/strumenti/frase.h"
#include "apps/strumenti/ricerca.h"
#include "apps/strumenti/strumenti.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::strumenti {
namespace {

constexpr QSize kDimensioneConfronto(1200, 680);

QString nomeDi(const QString& percorso) { return QFileInfo(percorso).fileName(); }

}  // namespace

FinestraConfronto::FinestraConfronto(QString vecchio, QString nuovo)
    : Finestra(QStringLiteral("confronto")), vecchio_(std::move(vecchio)), nuovo_(std::move(nuovo)) {
  setWindowTitle(QStringLiteral("Confronto: %1 e %2").arg(nomeDi(vecchio_), nomeDi(nuovo_)));
  componi();
}

FinestraConfronto::FinestraConfronto(QString file, Profilo profilo)
    : Finestra(QStringLiteral("confronto")), vecchio_(std::move(file)), profilo_(std::move(profilo)) {
  setWindowTitle(QStringLiteral("Confronto con i conti: %1").arg(nomeDi(vecchio_)));
  componi();
}

void FinestraConfronto::componi() {
  auto* const colonna = new QVBoxLayout(this);
  componiTesta(*colonna);
  componiFiltri();
  colonna->addWidget(ricerca_);

  auto* const lati = new QSplitter(Qt::Horizontal, this);
  lati->setChildrenCollapsible(false);
  righe_ = tabellaRighe(*lati);
  caselle_ = tabellaCaselle(*lati);
  ricerca_->serve(righe_);
  lati->addWidget(righe_);
  lati->addWidget(caselle_);
  lati->setStretchFactor(0, 1);
  lati->setStretchFactor(1, 1);
  colonna->addWidget(lati, 1);
  vuoto_ = new Frase(this);
  colonna->addWidget(vuoto_);

  auto* const pulsanti = new QHBoxLayout;
  pulsanti->addWidget(
      pulsante(profilo_ ? "&Apri il file" : "Apri il &vecchio", [this] { apriFile(vecchio_, profilo_); }));
  if (!profilo_) pulsanti->addWidget(pulsante("Apri il &nuovo", [this] { apriFile(nuovo_, {}); }));
  pulsanti->addStretch(1);
  pulsanti->addWidget(pulsante(
      "&Ricarica", [this] { leggi(); }, QKeySequence(Qt::Key_F5)));
  pulsanti->addWidget(pulsante("&Chiudi", [this] { close(); }));
  colonna->addLayout(pulsanti);
  ricordaPosto({lati}, kDimensioneConfronto);
  leggi();
}

void FinestraConfronto::componiTesta(QVBoxLayout& colonna) {
  testa_ = new Frase(this);
  avviso_ = new Frase(this);
  colonna.addWidget(testa_);
  colonna.addWidget(avviso_);
  comunque_ = pulsante("Confronta co&munque", [this] { leggi(true); });
  comunque_->hide();
  auto* const riga = new QHBoxLayout;
  riga->addWidget(comunque_);
  riga->addStretch(1);
  colonna.addLayout(riga);
  colonna.addWidget(attesa());
}

Tabella* FinestraConfronto::tabellaRighe(QSplitter& lati) {
  const auto di = [this](std::size_t quale) -> const RigaConfronto& { return confronto_->righe()[quale]; };
  auto* const tabella = new Tabella(
      QStringLiteral("strumenti_confronto"), QStringLiteral("Certificazioni a confronto"),
      {{"stato", "Stato",
        [this, di](std::size_t q) { return qs(detto(di(q).esito, confronto_->haConti())); }},
       {"percipiente", "Codice fiscale", [di](std::size_t q) { return qs(di(q).percipiente); }},
       {"nome", "Nome", [di](std::size_t q) { return qs(di(q).nome); }},
       {"causale", "Caus.", [di](std::size_t q) { return qs(di(q).causale); }},
       {"diverse", "Caselle diverse",
        [di](std::size_t q) { return di(q).caselle.empty() ? QString() : conteggio(di(q).caselle.size()); },
        true, [di](std::size_t q) { return QVariant(qulonglong(di(q).caselle.size())); }}},
      &lati);
  tabella->filtro().passa = [this](std::size_t q) {
    if (confronto_ == nullptr) return false;
    if (soloDiverse_->isChecked() && confronto_->righe()[q].esito == EsitoConfronto::Uguale) return false;
    return ricerca_->passa(q);
  };
  tabella->scelta = [this](auto quale) { mostraCaselle(quale); };
  return tabella;
}

Tabella* FinestraConfronto::tabellaCaselle(QSplitter& lati) {
  const auto casella = [this](std::size_t q) -> const CasellaConfrontata& { return caselleMostrate_[q]; };
  const char* const prima = profilo_ ? "Nel file" : "Vecchio";
  const char* const dopo = profilo_ ? "Nei conti" : "Nuovo";
  auto* const tabella = new Tabella(
      QStringLiteral("strumenti_caselle_confronto"), QStringLiteral("Caselle a confronto"),
      {{"segno",
        "",
        [casella](std::size_t q) { return casella(q).diversa ? QStringLiteral("≠") : QString(); },
        false,
        {},
        [casella](std::size_t q) {
          return casella(q).diversa ? QStringLiteral("diversa") : QStringLiteral("uguale");
        }},
       {"modulo", "Modulo",
        [casella](std::size_t q) {
          return casella(q).modulo == 0 ? QStringLiteral("dati") : QString::number(casella(q).modulo);
        },
        false, [](std::size_t q) { return QVariant(qulonglong(q)); }},
       {"codice", "Codice", [casella](std::size_t q) { return qs(casella(q).codice); }},
       {.chiave = "vecchio",
        .titolo = prima,
        .testo = [casella](std::size_t q) { return qs(casella(q).vecchio); },
        .importi = true},
       {.chiave = "nuovo",
        .titolo = dopo,
        .testo = [casella](std::size_t q) { return qs(casella(q).nuovo); },
        .importi = true},
       {"nome", "Casella", [casella](std::size_t q) { return qs(casella(q).nome); }}},
      &lati);
  tabella->modello().inGrassetto = [casella](std::size_t q) { return casella(q).diversa; };
  return tabella;
}

void FinestraConfronto::componiFiltri() {
  ricerca_ = new Ricerca(this);
  soloDiverse_ = new QCheckBox(QStringLiteral("Solo le &differenze"), ricerca_);
  soloDiverse_->setChecked(true);
  ricerca_->metti(soloDiverse_);
  ricerca_->cambiata = [this] { diceConteggi(); };
  connect(soloDiverse_, &QCheckBox::toggled, ricerca_, &Ricerca::applica);
}

void FinestraConfronto::leggi(bool comunque) {
  if (lavora()) return;
  testa_->dici(QStringLiteral("Confronto in corso…"));
  avviso_->dici({});
  comunque_->hide();
  vuoto_->dici({});
  auto letto = std::make_shared<Confronto>();
  esegui({.che = QStringLiteral("Lettura…"),
          .lavoro =
              [this, letto, comunque, vecchio = vecchio_.toStdString(), nuovo = nuovo_.toStdString(),
               profilo = profilo_] {
                const auto avanza = [this](const char* che, std::uint64_t fatto, std::uint64_t totale) {
                  lavoro().avanza(che, fatto, totale);
                };
                *letto = profilo ? Confronto::conConti(vecchio, *profilo, avanza, comunque)
                                 : Confronto::diFile(vecchio, nuovo, avanza);
              },
          .finito =
              [this, letto](const Lavoro::Esito& esito) {
                if (esito.errore.isEmpty() && !esito.interrotto) {
                  confronto_ = letto;
                  mostra();
                  return;
                }
                testa_->dici(esito.interrotto
                                 ? QStringLiteral("Il confronto è stato interrotto. Con Ricarica (F5) si "
                                                  "ricomincia.")
                                 : QStringLiteral("Il confronto non è riuscito."));
                avviso_->dici(esito.errore);
              }});
}

void FinestraConfronto::mostra() {
  ricerca_->prepara(confronto_->righe().size(), [this](std::size_t q) {
    const RigaConfronto& riga = confronto_->righe()[q];
    return riga.percipiente + "\n" + riga.nome + "\n" + riga.causale;
  });
  righe_->mostra(confronto_->righe().size());
  avviso_->dici(qs(confronto_->estraneita()));
  comunque_->setVisible(!confronto_->confrontati());
  diceConteggi();
  if (confronto_->confrontati()) {
    righe_->setFocus();
  } else {
    comunque_->setFocus();
  }
}

void FinestraConfronto::diceConteggi() {
  if (confronto_ == nullptr) return;
  const bool conti = confronto_->haConti();
  const auto parte = [&](EsitoConfronto esito, const char* testo) {
    return QStringLiteral("%1 %2").arg(conteggio(confronto_->quante(esito)), QString::fromUtf8(testo));
  };
  const QString di = conti ? QStringLiteral("%1 e i conti").arg(nomeDi(vecchio_))
                           : QStringLiteral("Vecchio: %1. Nuovo: %2").arg(vecchio_, nuovo_);
  if (!confronto_->confrontati()) {
    testa_->dici(di);
    vuoto_->dici({});
    return;
  }
  testa_->dici(
      di + u'\n' +
      QStringList{parte(EsitoConfronto::Uguale, "uguali"),
                  parte(EsitoConfronto::Diverso, conti ? "diverse" : "cambiate"),
                  parte(EsitoConfronto::SoloVecchio, conti ? "mancano nei conti" : "solo nel vecchio"),
                  parte(EsitoConfronto::SoloNuovo, conti ? "mancano nel file" : "solo nel nuovo")}
          .join(QStringLiteral(", ")) +
      (confronto_->testateDiverse()
           ? QStringLiteral(". Il frontespizio del file è diverso dai dati dell'azienda.")
           : QString()));
  const bool nessunaDiversa = confronto_->quante(EsitoConfronto::Uguale) == confronto_->righe().size();
  QString frase;
  if (confronto_->righe().empty()) {
    frase = QStringLiteral("Non c'è nessuna certificazione da confrontare.");
  } else if (nessunaDiversa && soloDiverse_->isChecked()) {
    frase = conti ? QStringLiteral(
                        "Nessuna differenza: il file corrisponde ai conti. Togliendo «Solo le "
                        "differenze» si vedono tutte le certificazioni.")
                  : QStringLiteral(
                        "Nessuna differenza: i due file hanno le stesse certificazioni. Togliendo "
                        "«Solo le differenze» si vedono tutte.");
  } else if (righe_->mostrate() == 0) {
    frase = QStringLiteral("Nessuna certificazione corrisponde alla ricerca.");
  }
  vuoto_->dici(frase);
}

void FinestraConfronto::mostraCaselle(std::optional<std::size_t> quale) {
  caselleMostrate_.clear();
  if (quale && confronto_ != nullptr) {
    try {
      caselleMostrate_ = confronto_->caselle(*quale);
    } catch (const std::exception& errore) {
      avviso_->dici(QString::fromUtf8(errore.what()));
    }
  }
  caselle_->mostra(caselleMostrate_.size(), false);
  for (std::size_t i = 0; i < caselleMostrate_.size(); ++i) {
    if (!caselleMostrate_[i].diversa) continue;
    caselle_->scegli(i);
    break;
  }
}

}  // namespace cu::strumenti
