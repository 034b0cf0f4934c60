#include "apps/strumenti/finestra_stato.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "apps/comune/modello_del_profilo.h"
#include "apps/strumenti/copia_archivio.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/modulo_disegnato.h"
#include "apps/strumenti/ricerca.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::strumenti {
namespace {

constexpr QSize kDimensioneStato(1120, 660);
constexpr int kTutte = static_cast<int>(kOperazioni);

// In the order of riscontro::Operazione; then all.
constexpr std::array<const char*, kOperazioni + 1> kFiltri = {"N&uove",   "S&ostituzioni", "Annulla&menti",
                                                              "Ne&ssuna", "&In attesa",    "&Tutte"};

}  // namespace

FinestraStato::FinestraStato(Profilo profilo, std::optional<std::int32_t> anno)
    : Finestra(QStringLiteral("stato")), profilo_(std::move(profilo)) {
  setWindowTitle(QStringLiteral("Stato degli invii"));
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(sopra());
  colonna->addWidget(operazioni());
  frase_ = new Frase(this);
  colonna->addWidget(frase_);
  auto* const divisore = new QSplitter(Qt::Vertical, this);
  divisore->setChildrenCollapsible(false);
  componiTabelle(*divisore);
  colonna->addWidget(divisore, 1);
  risposta_ = new Frase(this);
  risposta_->hide();
  colonna->addWidget(risposta_);
  colonna->addWidget(new RigaCopia(this, profilo_.database));
  colonna->addWidget(attesa());
  colonna->addWidget(pulsanti());
  ricordaPosto({divisore}, kDimensioneStato);
  leggi(anno);
}

QWidget* FinestraStato::sopra() {
  ricerca_ = new Ricerca(this);
  auto* const anno = new QLabel(QStringLiteral("&Anno dei compensi"), ricerca_);
  anni_ = new QComboBox(ricerca_);
  anni_->setAccessibleName(QStringLiteral("Anno dei compensi"));
  anni_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  anno->setBuddy(anni_);
  ricerca_->metti(anno, true);
  ricerca_->metti(anni_, true);
  ricerca_->cambiata = [this] { diceFrase(); };
  connect(anni_, &QComboBox::activated, this, [this] {
    risposta_->dici({});
    leggi(anni_->currentData().toInt());
  });
  return ricerca_;
}

QWidget* FinestraStato::operazioni() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  filtri_ = new QButtonGroup(riquadro);
  const auto aggiungi = [&](int quale) {
    auto* const uno = new QPushButton(riquadro);
    uno->setCheckable(true);
    uno->setAutoDefault(false);
    filtri_->addButton(uno, quale);
    riga->addWidget(uno);
  };
  aggiungi(kTutte);
  for (int i = 0; i < kTutte; ++i) aggiungi(i);
  filtri_->button(kTutte)->setChecked(true);
  scriviFiltri();
  riga->addStretch(1);
  connect(filtri_, &QButtonGroup::idToggled, this, [this](int quale, bool premuto) {
    if (!premuto) return;
    operazione_.reset();
    if (quale != kTutte) operazione_ = static_cast<std::size_t>(quale);
    scriviFiltri();
    ricerca_->applica();
  });
  return riquadro;
}

// The counts, and a sign on the one that is chosen.
void FinestraStato::scriviFiltri() {
  for (QAbstractButton* uno : filtri_->buttons()) {
    const auto quale = static_cast<std::size_t>(filtri_->id(uno));
    std::size_t quante = 0;
    if (stato_ != nullptr) quante = quale == kOperazioni ? stato_->voci.size() : stato_->quante.at(quale);
    uno->setText(
        QStringLiteral("%1%2 (%3)")
            .arg(uno->isChecked() ? QStringLiteral("✓ ") : QString(), QString::fromUtf8(kFiltri.at(quale)))
            .arg(conteggio(quante)));
  }
}

void FinestraStato::componiTabelle(QSplitter& divisore) {
  const auto di = [this](std::size_t q) -> const VoceMostrata& { return stato_->voci[q]; };
  voci_ = new Tabella(
      QStringLiteral("strumenti_stato"), QStringLiteral("Certificazioni dell'anno"),
      {{"operazione", "Operazione", [di](std::size_t q) { return qs(detto(di(q).operazione)); }},
       {"percipiente", "Codice fiscale", [di](std::size_t q) { return qs(di(q).percipiente); }},
       {"nome", "Nome", [di](std::size_t q) { return qs(di(q).nome); }},
       {"causale", "Caus.", [di](std::size_t q) { return qs(di(q).causale); }},
       {"stato", "Stato", [di](std::size_t q) { return qs(di(q).stato); }},
       {"protocollo", "Protocollo",
        [di](std::size_t q) {
          return qs(di(q).protocollo + (di(q).progressivo.empty() ? "" : " " + di(q).progressivo));
        }},
       {"motivo", "Motivo dello scarto", [di](std::size_t q) { return qs(di(q).motivo); }}},
      &divisore);
  voci_->filtro().passa = [this, di](std::size_t q) {
    if (stato_ == nullptr) return false;
    if (operazione_ && static_cast<std::size_t>(di(q).operazione) != *operazione_) return false;
    return ricerca_->passa(q);
  };
  voci_->scelta = [this](auto quale) { mostraCaselle(quale); };
  ricerca_->serve(voci_);
  divisore.addWidget(voci_);
  auto* const sotto = new QWidget(&divisore);
  auto* const colonna = new QVBoxLayout(sotto);
  colonna->setContentsMargins(0, 0, 0, 0);
  cambiate_ = new Frase(sotto);
  colonna->addWidget(cambiate_);
  const auto casella = [this](std::size_t q) -> const lettura::CasellaDiversa& {
    return stato_->voci[*voci_->corrente()].caselle[q];
  };
  caselle_ = new Tabella(
      QStringLiteral("strumenti_caselle_stato"), QStringLiteral("Caselle cambiate dopo l'accettazione"),
      {{"modulo", "Modulo",
        [casella](std::size_t q) {
          return casella(q).campo.starts_with("DA") ? QStringLiteral("dati")
                                                    : QString::number(casella(q).modulo);
        }},
       {"codice", "Codice", [casella](std::size_t q) { return qs(casella(q).campo); }},
       {"accettato", "Accettato", [casella](std::size_t q) { return qs(casella(q).vecchio); }},
       {"conti", "Nei conti", [casella](std::size_t q) { return qs(casella(q).nuovo); }},
       {"nome", "Casella",
        [this, casella](std::size_t q) {
          return qs(nomeCasella(casella(q).campo, stato_->anno, modelloDi(profilo_)));
        }}},
      sotto);
  colonna->addWidget(caselle_, 1);
  divisore.addWidget(sotto);
  divisore.setStretchFactor(0, 3);
  divisore.setStretchFactor(1, 1);
}

QWidget* FinestraStato::pulsanti() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->addWidget(tabelle_ = pulsante("A&ggiungi le tabelle", [this] { aggiungiTabelle(); }));
  riga->addWidget(inviato_ = pulsante("Segna come in&viato…", [this] { segnaInviato(); }));
  riga->addWidget(tolto_ = pulsante("&Non verrà inviato…", [this] { togliDalRegistro(); }));
  tolto_->setToolTip(QStringLiteral("Toglie dal registro un file scritto che non verrà inviato"));
  riga->addWidget(ricevuta_ = pulsante("&Leggi ricevuta…", [this] { leggiRicevuta(); }));
  riga->addWidget(correzioni_ = pulsante("Scrivi &correzioni…", [this] { scriviCorrezioni(); }));
  riga->addStretch(1);
  riga->addWidget(ricarica_ = pulsante(
                      "&Ricarica",
                      [this] {
                        risposta_->dici({});
                        leggi(stato_ == nullptr ? std::nullopt : std::optional(stato_->anno));
                      },
                      QKeySequence(Qt::Key_F5)));
  riga->addWidget(pulsante("C&hiudi", [this] { close(); }));
  return riquadro;
}

}  // namespace cu::strumenti
