#include "apps/strumenti/finestra_confronto.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "apps/strumenti/casella_cerca.h"
#include "apps/strumenti/strumenti.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/text.h"

namespace cu::strumenti {
namespace {

constexpr QSize kDimensioneConfronto(1200, 680);

QString nomeDi(const QString& percorso) { return QFileInfo(percorso).fileName(); }

}  // namespace

FinestraConfronto::FinestraConfronto(QString vecchio, QString nuovo)
    : Finestra(QStringLiteral("confronto")),
      vecchio_(std::move(vecchio)),
      nuovo_(std::move(nuovo)),
      lavoro_(nullptr) {
  setWindowTitle(QStringLiteral("Confronto: %1 e %2").arg(nomeDi(vecchio_), nomeDi(nuovo_)));
  componi();
}

FinestraConfronto::FinestraConfronto(QString file, Profilo profilo)
    : Finestra(QStringLiteral("confronto")),
      vecchio_(std::move(file)),
      profilo_(std::move(profilo)),
      lavoro_(nullptr) {
  setWindowTitle(QStringLiteral("Confronto con i conti: %1").arg(nomeDi(vecchio_)));
  componi();
}

void FinestraConfronto::componi() {
  auto* const colonna = new QVBoxLayout(this);
  componiTesta(*colonna);
  colonna->addWidget(filtri());

  auto* const lati = new QSplitter(Qt::Horizontal, this);
  lati->setChildrenCollapsible(false);
  righe_ = tabellaRighe(*lati);
  caselle_ = tabellaCaselle(*lati);
  lati->addWidget(righe_);
  lati->addWidget(caselle_);
  lati->setStretchFactor(0, 1);
  lati->setStretchFactor(1, 1);
  colonna->addWidget(lati, 1);
  vuoto_ = new QLabel(this);
  vuoto_->setWordWrap(true);
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
  lavoro_.avanzamento = [this](std::uint64_t fatto, std::uint64_t totale) {
    constexpr int kMille = 1000;
    barra_->setRange(0, totale == 0 ? 0 : kMille);
    if (totale > 0) barra_->setValue(static_cast<int>(fatto * kMille / totale));
  };
  leggi();
}

void FinestraConfronto::componiTesta(QVBoxLayout& colonna) {
  testa_ = new QLabel(this);
  testa_->setTextFormat(Qt::PlainText);
  testa_->setWordWrap(true);
  avviso_ = new QLabel(this);
  avviso_->setTextFormat(Qt::PlainText);
  avviso_->setWordWrap(true);
  avviso_->hide();
  colonna.addWidget(testa_);
  colonna.addWidget(avviso_);
  attesa_ = new QWidget(this);
  auto* const riga = new QHBoxLayout(attesa_);
  riga->setContentsMargins(0, 0, 0, 0);
  barra_ = new QProgressBar(attesa_);
  barra_->setAccessibleName(QStringLiteral("Confronto in corso"));
  riga->addWidget(barra_, 1);
  riga->addWidget(pulsante("Interr&ompi", [this] { lavoro_.annulla(); }));
  colonna.addWidget(attesa_);
}

Tabella* FinestraConfronto::tabellaRighe(QSplitter& lati) {
  const auto di = [this](std::size_t quale) -> const RigaConfronto& { return confronto_->righe()[quale]; };
  auto* const tabella =
      new Tabella(QStringLiteral("strumenti_confronto"), QStringLiteral("Certificazioni a confronto"),
                  {{"stato", "Stato",
                    [this, di](std::size_t q) { return qs(detto(di(q).esito, confronto_->haConti())); }},
                   {"percipiente", "Codice fiscale", [di](std::size_t q) { return qs(di(q).percipiente); }},
                   {"nome", "Nome", [di](std::size_t q) { return qs(di(q).nome); }},
                   {"causale", "Caus.", [di](std::size_t q) { return qs(di(q).causale); }},
                   {"diverse", "Caselle diverse",
                    [di](std::size_t q) {
                      return di(q).caselle.empty() ? QString() : QString::number(di(q).caselle.size());
                    },
                    true, [di](std::size_t q) { return QVariant(qulonglong(di(q).caselle.size())); }}},
                  &lati);
  tabella->filtro().passa = [this](std::size_t q) {
    if (confronto_ == nullptr) return false;
    if (soloDiverse_->isChecked() && confronto_->righe()[q].esito == EsitoConfronto::Uguale) return false;
    return cercato_.isEmpty() || cercati_[q].contains(cercato_);
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
       {"vecchio", prima, [casella](std::size_t q) { return qs(casella(q).vecchio); }},
       {"nuovo", dopo, [casella](std::size_t q) { return qs(casella(q).nuovo); }},
       {"nome", "Casella", [casella](std::size_t q) { return qs(casella(q).nome); }}},
      &lati);
  tabella->modello().inGrassetto = [casella](std::size_t q) { return casella(q).diversa; };
  return tabella;
}

QWidget* FinestraConfronto::filtri() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  auto* const etichetta = new QLabel(QStringLiteral("C&erca"), riquadro);
  cerca_ = new CasellaCerca(riquadro);
  cerca_->setClearButtonEnabled(true);
  cerca_->setPlaceholderText(QStringLiteral("codice fiscale, nome o causale"));
  cerca_->setAccessibleName(QStringLiteral("Cerca fra le certificazioni"));
  etichetta->setBuddy(cerca_);
  soloDiverse_ = new QCheckBox(QStringLiteral("Solo le &differenze"), riquadro);
  soloDiverse_->setChecked(true);
  riga->addWidget(etichetta);
  riga->addWidget(cerca_, 1);
  riga->addWidget(soloDiverse_);
  const auto filtra = [this] {
    cercato_ = desktop::folded(cerca_->text().trimmed());
    righe_->riapplicaFiltro();
    diceConteggi();
  };
  connect(cerca_, &QLineEdit::textChanged, this, filtra);
  connect(soloDiverse_, &QCheckBox::toggled, this, filtra);
  auto* const trova = new QShortcut(QKeySequence::Find, this);
  connect(trova, &QShortcut::activated, this, [this] {
    cerca_->setFocus();
    cerca_->selectAll();
  });
  return riquadro;
}

void FinestraConfronto::leggi() {
  if (lavoro_.inCorso()) return;
  testa_->setText(QStringLiteral("Confronto in corso…"));
  avviso_->hide();
  vuoto_->hide();
  attesa_->show();
  barra_->setRange(0, 0);
  auto letto = std::make_shared<Confronto>();
  lavoro_.avvia(
      [this, letto, vecchio = vecchio_.toStdString(), nuovo = nuovo_.toStdString(), profilo = profilo_] {
        const auto avanza = [this](std::uint64_t fatto, std::uint64_t totale) {
          lavoro_.avanza(fatto, totale);
        };
        *letto = profilo ? Confronto::conConti(vecchio, *profilo, avanza)
                         : Confronto::diFile(vecchio, nuovo, avanza);
      },
      [this, letto](const Lavoro::Esito& esito) {
        attesa_->hide();
        if (esito.errore.isEmpty() && !esito.interrotto) {
          confronto_ = letto;
          mostra();
          return;
        }
        testa_->setText(esito.interrotto ? QStringLiteral("Il confronto è stato interrotto.")
                                         : QStringLiteral("Il confronto non è riuscito."));
        avviso_->setText(esito.errore);
        avviso_->setVisible(!esito.errore.isEmpty());
      });
}

void FinestraConfronto::mostra() {
  cercati_.clear();
  for (const RigaConfronto& riga : confronto_->righe()) {
    cercati_.push_back(desktop::folded(qs(riga.percipiente + "\n" + riga.nome + "\n" + riga.causale)));
  }
  righe_->mostra(confronto_->righe().size());
  diceConteggi();
  righe_->setFocus();
}

void FinestraConfronto::diceConteggi() {
  if (confronto_ == nullptr) return;
  const bool conti = confronto_->haConti();
  const auto parte = [&](EsitoConfronto esito, const char* testo) {
    return QStringLiteral("%1 %2").arg(confronto_->quante(esito)).arg(QString::fromUtf8(testo));
  };
  const QString di = conti ? QStringLiteral("%1 e i conti").arg(nomeDi(vecchio_))
                           : QStringLiteral("Vecchio: %1. Nuovo: %2").arg(vecchio_, nuovo_);
  testa_->setText(
      di + u'\n' +
      QStringList{parte(EsitoConfronto::Uguale, "uguali"),
                  parte(EsitoConfronto::Diverso, conti ? "diverse" : "cambiate"),
                  parte(EsitoConfronto::SoloVecchio, conti ? "mancano nei conti" : "solo nel vecchio"),
                  parte(EsitoConfronto::SoloNuovo, conti ? "mancano nel file" : "solo nel nuovo")}
          .join(QStringLiteral(", ")));
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
  vuoto_->setText(frase);
  vuoto_->setVisible(!frase.isEmpty());
}

void FinestraConfronto::mostraCaselle(std::optional<std::size_t> quale) {
  caselleMostrate_.clear();
  if (quale && confronto_ != nullptr) {
    try {
      caselleMostrate_ = confronto_->caselle(*quale);
    } catch (const std::exception& errore) {
      avviso_->setText(QString::fromUtf8(errore.what()));
      avviso_->show();
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
