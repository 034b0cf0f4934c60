#include "apps/strumenti/finestra_stato.h"

#include <QComboBox>
#include <QHBoxLayout>
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

// All; then in the order of riscontro::Operazione.
constexpr std::array<const char*, kOperazioni + 1> kFiltri = {"&Tutte",        "N&uove",   "S&ostituzioni",
                                                              "Annulla&menti", "Ne&ssuna", "&In attesa"};

}  // namespace

FinestraStato::FinestraStato(Profilo profilo, std::optional<std::int32_t> anno)
    : FinestraAnni(QStringLiteral("stato"), {kFiltri.begin(), kFiltri.end()}), profilo_(std::move(profilo)) {
  setWindowTitle(QStringLiteral("Stato degli invii"));
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(sopra());
  colonna->addWidget(scelte());
  scriviScelte();
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

void FinestraStato::annoScelto() {
  risposta_->dici({});
  leggi(anni().currentData().toInt());
}

std::uint64_t FinestraStato::quante(std::size_t scelta) const {
  if (stato_ == nullptr) return 0;
  return scelta == 0 ? stato_->voci.size() : stato_->quante.at(scelta - 1);
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
    if (scelta() > 0 && static_cast<std::size_t>(di(q).operazione) != scelta() - 1) return false;
    return ricerca().passa(q);
  };
  voci_->scelta = [this](auto quale) { mostraCaselle(quale); };
  ricerca().serve(voci_);
  divisore.addWidget(voci_);
  auto* const sotto = new QWidget(&divisore);
  auto* const colonna = new QVBoxLayout(sotto);
  colonna->setContentsMargins(0, 0, 0, 0);
  cambiate_ = new Frase(sotto);
  colonna->addWidget(cambiate_);
  const auto casella = [this](std::size_t q) -> const lettura::CasellaDiversa& {
    return stato_->voci[*voci_->corrente()].caselle[q];
  };
  caselle_ = new Tabella(QStringLiteral("strumenti_caselle_stato"),
                         QStringLiteral("Caselle cambiate dopo l'accettazione"),
                         {{"modulo", "Modulo",
                           [casella](std::size_t q) {
                             return casella(q).campo.starts_with("DA") ? QStringLiteral("dati")
                                                                       : QString::number(casella(q).modulo);
                           }},
                          {"codice", "Codice", [casella](std::size_t q) { return qs(casella(q).campo); }},
                          {.chiave = "accettato",
                           .titolo = "Accettato",
                           .testo = [casella](std::size_t q) { return qs(casella(q).vecchio); },
                           .importi = true},
                          {.chiave = "conti",
                           .titolo = "Nei conti",
                           .testo = [casella](std::size_t q) { return qs(casella(q).nuovo); },
                           .importi = true},
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
