#include "apps/strumenti/finestra_stato.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "apps/strumenti/casella_cerca.h"
#include "apps/strumenti/modulo_disegnato.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/text.h"

namespace cu::strumenti {
namespace {

constexpr QSize kDimensioneStato(1120, 660);
constexpr int kTutte = static_cast<int>(kOperazioni);

// In the order of riscontro::Operazione; then all.
constexpr std::array<const char*, kOperazioni + 1> kFiltri = {"N&uove",   "S&ostituzioni", "Annulla&menti",
                                                              "Ne&ssuna", "&In attesa",    "&Tutte"};

}  // namespace

FinestraStato::FinestraStato(Profilo profilo)
    : Finestra(QStringLiteral("stato")), profilo_(std::move(profilo)), lavoro_(nullptr) {
  setWindowTitle(QStringLiteral("Stato degli invii"));
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(sopra());
  colonna->addWidget(operazioni());
  frase_ = new QLabel(this);
  frase_->setTextFormat(Qt::PlainText);
  frase_->setWordWrap(true);
  colonna->addWidget(frase_);
  auto* const divisore = new QSplitter(Qt::Vertical, this);
  divisore->setChildrenCollapsible(false);
  componiTabelle(*divisore);
  colonna->addWidget(divisore, 1);
  attesa_ = new QWidget(this);
  auto* const riga = new QHBoxLayout(attesa_);
  riga->setContentsMargins(0, 0, 0, 0);
  attende_ = new QLabel(attesa_);
  auto* const barra = new QProgressBar(attesa_);
  barra->setRange(0, 0);
  barra->setAccessibleName(QStringLiteral("Lavoro in corso"));
  riga->addWidget(attende_);
  riga->addWidget(barra, 1);
  colonna->addWidget(attesa_);
  colonna->addWidget(pulsanti());
  ricordaPosto({divisore}, kDimensioneStato);
  leggi(std::nullopt);
}

QWidget* FinestraStato::sopra() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  auto* const anno = new QLabel(QStringLiteral("&Anno dei compensi"), riquadro);
  anni_ = new QComboBox(riquadro);
  anni_->setAccessibleName(QStringLiteral("Anno dei compensi"));
  anni_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  anno->setBuddy(anni_);
  auto* const etichetta = new QLabel(QStringLiteral("C&erca"), riquadro);
  cerca_ = new CasellaCerca(riquadro);
  cerca_->setClearButtonEnabled(true);
  cerca_->setPlaceholderText(QStringLiteral("codice fiscale, nome o causale"));
  cerca_->setAccessibleName(QStringLiteral("Cerca fra le certificazioni"));
  etichetta->setBuddy(cerca_);
  for (QWidget* uno :
       {static_cast<QWidget*>(anno), static_cast<QWidget*>(anni_), static_cast<QWidget*>(etichetta)})
    riga->addWidget(uno);
  riga->addWidget(cerca_, 1);
  connect(anni_, &QComboBox::activated, this, [this] { leggi(anni_->currentData().toInt()); });
  connect(cerca_, &QLineEdit::textChanged, this, [this] {
    cercato_ = desktop::folded(cerca_->text().trimmed());
    voci_->riapplicaFiltro();
    diceFrase();
  });
  auto* const trova = new QShortcut(QKeySequence::Find, this);
  connect(trova, &QShortcut::activated, this, [this] {
    cerca_->setFocus();
    cerca_->selectAll();
  });
  return riquadro;
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
    voci_->riapplicaFiltro();
    diceFrase();
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
            .arg(quante));
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
    return cercato_.isEmpty() || cercati_[q].contains(cercato_);
  };
  voci_->scelta = [this](auto quale) { mostraCaselle(quale); };
  divisore.addWidget(voci_);
  auto* const sotto = new QWidget(&divisore);
  auto* const colonna = new QVBoxLayout(sotto);
  colonna->setContentsMargins(0, 0, 0, 0);
  cambiate_ = new QLabel(sotto);
  cambiate_->setTextFormat(Qt::PlainText);
  cambiate_->setWordWrap(true);
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
        [this, casella](std::size_t q) { return qs(nomeCasella(casella(q).campo, stato_->anno)); }}},
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
  riga->addWidget(ricevuta_ = pulsante("&Leggi ricevuta…", [this] { leggiRicevuta(); }));
  riga->addWidget(correzioni_ = pulsante("Scrivi &correzioni…", [this] { scriviCorrezioni(); }));
  riga->addStretch(1);
  riga->addWidget(ricarica_ = pulsante(
                      "&Ricarica",
                      [this] { leggi(stato_ == nullptr ? std::nullopt : std::optional(stato_->anno)); },
                      QKeySequence(Qt::Key_F5)));
  riga->addWidget(pulsante("C&hiudi", [this] { close(); }));
  return riquadro;
}

}  // namespace cu::strumenti
