#include "apps/strumenti/finestra_tabellone.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <set>

#include "apps/comune/connessioni.h"
#include "apps/comune/modello_del_profilo.h"
#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/ricerca.h"
#include "apps/strumenti/tabella_vista.h"
#include "base/error.h"
#include "desktop/file_dialog.h"
#include "desktop/grid_export.h"
#include "desktop/table_export.h"
#include "suite/orologio.h"

namespace cu::strumenti {
namespace {

constexpr QSize kDimensioneTabellone(1180, 660);
constexpr std::array<const char*, 5> kScritteScelte = {"&Tutte", "&Da inviare", "In rita&rdo",
                                                       "Dati &mancanti", "&Scartate"};

QString frase(const riscontro::Termine& termine, Date oggi) {
  QString causali;
  for (const std::string& una : termine.causali) causali += (causali.isEmpty() ? "" : ", ") + qs(una);
  QString testo = QStringLiteral("%1 entro il %2")
                      .arg(termine.entro < oggi ? QStringLiteral("⚠ era") : QStringLiteral("•"))
                      .arg(qs(termine.entro.toItalian()));
  if (!termine.condizione.empty()) testo += QStringLiteral(" %1").arg(qs(termine.condizione));
  return testo +
         QStringLiteral(": %1 %2 %3 (fonte: %4)")
             .arg(conteggio(termine.certificazioni),
                  termine.causali.size() == 1 ? QStringLiteral("di causale") : QStringLiteral("di causali"),
                  causali, qs(termine.fonte));
}

// What is late first, then what is due next.
QString breve(const VoceTabellone& voce, Date oggi) {
  const riscontro::Termini& termini = voce.termini;
  QStringList pezzi;
  if (termini.inRitardo > 0) pezzi += QStringLiteral("⚠ in ritardo %1").arg(conteggio(termini.inRitardo));
  if (termini.forseInRitardo > 0) {
    pezzi += QStringLiteral("? forse in ritardo %1").arg(conteggio(termini.forseInRitardo));
  }
  const auto prossimo = std::find_if(termini.tutti.begin(), termini.tutti.end(),
                                     [oggi](const riscontro::Termine& uno) { return !(uno.entro < oggi); });
  if (prossimo != termini.tutti.end()) {
    pezzi += QStringLiteral("entro il %1").arg(qs(prossimo->entro.toItalian()));
  } else if (pezzi.isEmpty() && voce.riga.nuove() > 0) {
    pezzi += QStringLiteral("scadenza non nota");
  }
  return pezzi.join(QStringLiteral(", "));
}

// By the first date; without one last.
QVariant ordineScadenza(const VoceTabellone& voce) {
  constexpr int kMai = 1 << 24;
  return voce.termini.tutti.empty() ? kMai : voce.termini.tutti.front().entro.serial();
}

}  // namespace

FinestraTabellone::FinestraTabellone(Profilo profilo)
    : FinestraAnni(QStringLiteral("tabellone"), {kScritteScelte.begin(), kScritteScelte.end()}),
      profilo_(std::move(profilo)),
      oggi_(orologio(profilo_)->today()) {
  setWindowTitle(QStringLiteral("Quadro delle aziende"));
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(sopra());
  ricerca().proponi(QStringLiteral("nome o codice fiscale dell'azienda"),
                    QStringLiteral("Cerca fra le aziende"));
  colonna->addWidget(scelte());
  scriviScelte();
  frase_ = new Frase(this);
  colonna->addWidget(frase_);
  componiTabella();
  colonna->addWidget(tabella_, 1);
  dettaglio_ = new Frase(this);
  dettaglio_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  colonna->addWidget(dettaglio_);
  colonna->addWidget(attesa());
  colonna->addWidget(pulsanti());
  ricordaPosto({}, kDimensioneTabellone);
  leggi();
}

void FinestraTabellone::annoScelto() {
  scriviScelte();
  ricerca().applica();
}

bool FinestraTabellone::corrisponde(const VoceTabellone& voce, Scelta scelta) {
  switch (scelta) {
    case Scelta::Tutte:
      return true;
    case Scelta::DaInviare:
      return voce.riga.nuove() + voce.riga.correzioni > 0;
    case Scelta::InRitardo:
      return voce.termini.inRitardo + voce.termini.forseInRitardo > 0;
    case Scelta::Mancanti:
      return voce.riga.mancanti > 0;
    case Scelta::Scartate:
      break;
  }
  return voce.riga.scartate > 0;
}

bool FinestraTabellone::nellAnno(const VoceTabellone& voce) const {
  const int anno = anni().currentData().toInt();
  return anno == 0 || voce.riga.anno == anno;
}

// Of the year that is shown.
std::uint64_t FinestraTabellone::quante(std::size_t scelta) const {
  if (voci_ == nullptr) return 0;
  return static_cast<std::uint64_t>(std::count_if(voci_->begin(), voci_->end(), [&](const auto& voce) {
    return nellAnno(voce) && corrisponde(voce, static_cast<Scelta>(scelta));
  }));
}

void FinestraTabellone::componiTabella() {
  const auto di = [this](std::size_t q) -> const VoceTabellone& { return (*voci_)[q]; };
  const auto numero = [di](const char* chiave, const char* titolo,
                           const std::function<std::size_t(const VoceTabellone&)>& quale) {
    return Colonna{chiave, titolo, [di, quale](std::size_t q) { return conteggio(quale(di(q))); }, true,
                   [di, quale](std::size_t q) { return QVariant(qulonglong(quale(di(q)))); }};
  };
  tabella_ = new Tabella(
      QStringLiteral("strumenti_tabellone"), QStringLiteral("Anni delle aziende"),
      {{"azienda", "Azienda", [di](std::size_t q) { return qs(di(q).azienda.nome); }},
       {"codice", "Codice fiscale", [di](std::size_t q) { return qs(di(q).azienda.codiceFiscale); }},
       {"anno", "Anno", [di](std::size_t q) { return QString::number(di(q).riga.anno); }, true},
       {"scadenza",
        "Scadenza",
        [this, di](std::size_t q) { return breve(di(q), oggi_); },
        false,
        [di](std::size_t q) { return ordineScadenza(di(q)); },
        {},
        320},
       numero("conti", "Conti", [](const VoceTabellone& v) { return v.riga.conti; }),
       numero("mancanti", "Mancanti", [](const VoceTabellone& v) { return v.riga.mancanti; }),
       numero("scritte", "Scritte", [](const VoceTabellone& v) { return v.riga.scritte; }),
       numero("inviate", "Inviate", [](const VoceTabellone& v) { return v.riga.inviate; }),
       numero("accettate", "Accettate", [](const VoceTabellone& v) { return v.riga.accettate; }),
       numero("scartate", "Scartate", [](const VoceTabellone& v) { return v.riga.scartate; }),
       numero("nuove", "Da inviare", [](const VoceTabellone& v) { return v.riga.nuove(); }),
       numero("correzioni", "Correzioni", [](const VoceTabellone& v) { return v.riga.correzioni; }),
       // The last column takes the space that is left.
       {"", "", [](std::size_t) { return QString(); }}},
      this);
  tabella_->filtro().passa = [this, di](std::size_t q) {
    return voci_ != nullptr && q < voci_->size() && nellAnno(di(q)) &&
           corrisponde(di(q), static_cast<Scelta>(scelta())) && ricerca().passa(q);
  };
  tabella_->scelta = [this](auto quale) { dettaglia(quale); };
  tabella_->apreCon(QStringLiteral("Apri l'azienda"), [this](std::size_t quale) { apri(quale); });
  ricerca().serve(tabella_);
}

QWidget* FinestraTabellone::pulsanti() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->addWidget(apri_ = pulsante("A&pri l'azienda", [this] {
                    if (const auto quale = tabella_->corrente()) apri(*quale);
                  }));
  apri_->setToolTip(QStringLiteral("Apre lo stato degli invii dell'azienda e dell'anno"));
  riga->addWidget(esporta_ = pulsante("Esp&orta…", [this] { esporta(); }));
  riga->addStretch(1);
  riga->addWidget(ricarica_ = pulsante(
                      "Ri&carica", [this] { leggi(); }, QKeySequence(Qt::Key_F5)));
  riga->addWidget(pulsante("C&hiudi", [this] { close(); }));
  return riquadro;
}

void FinestraTabellone::leggi() {
  if (lavora()) return;
  auto lette = std::make_shared<std::vector<VoceTabellone>>();
  esegui({.che = QStringLiteral("Lettura delle aziende…"),
          .lavoro =
              [this, lette, profilo = profilo_, oggi = oggi_] {
                RichiestaTabellone richiesta{
                    .richieste = {}, .anno = {}, .oggi = oggi, .modello = modelloDi(profilo)};
                richiesta.avanza = [this](std::size_t righe, std::size_t quante) {
                  lavoro().avanza("Lettura delle aziende", quante, righe);
                };
                *lette = leggiTabellone(leggiDatabase({profilo.database}, &apriPerLeggere), richiesta);
              },
          .finito =
              [this, lette](const Lavoro::Esito& esito) {
                if (esito.errore.isEmpty() && !esito.interrotto) {
                  voci_ = lette;
                  mostra();
                } else if (voci_ == nullptr) {
                  frase_->dici(esito.interrotto
                                   ? QStringLiteral("La lettura è stata interrotta. Con Ricarica (F5) si "
                                                    "ricomincia.")
                                   : QStringLiteral("Le aziende non si possono leggere."));
                }
                abilita();
                if (!esito.errore.isEmpty()) mostraErrore(esito.errore);
              }});
  abilita();
}

void FinestraTabellone::mostraAnni() {
  const QVariant prima = anni().count() > 0 ? anni().currentData() : QVariant();
  std::set<std::int32_t, std::greater<>> trovati;
  for (const VoceTabellone& voce : *voci_) trovati.insert(voce.riga.anno);
  anni().clear();
  anni().addItem(QStringLiteral("Tutti"), 0);
  for (const std::int32_t anno : trovati) anni().addItem(QString::number(anno), anno);
  // At first the newest year: the one that is worked on.
  const int quale = prima.isValid() ? anni().findData(prima) : (trovati.empty() ? 0 : 1);
  anni().setCurrentIndex(std::max(0, quale));
}

void FinestraTabellone::mostra() {
  mostraAnni();
  ricerca().prepara(voci_->size(), [this](std::size_t q) {
    const AziendaTrovata& azienda = (*voci_)[q].azienda;
    return azienda.nome + "\n" + azienda.codiceFiscale;
  });
  scriviScelte();
  tabella_->mostra(voci_->size());
  tabella_->setFocus();
  diceFrase();
}

void FinestraTabellone::abilita() {
  const bool libera = !lavora();
  const bool piena = voci_ != nullptr && !voci_->empty();
  apri_->setEnabled(tabella_->corrente().has_value());
  esporta_->setEnabled(libera && piena);
  ricarica_->setEnabled(libera);
  anni().setEnabled(piena);
}

void FinestraTabellone::diceFrase() {
  if (voci_ == nullptr) return;
  QString frase;
  if (voci_->empty()) {
    frase = QStringLiteral("In questo database non ci sono conti.");
  } else if (!voci_->front().registro) {
    frase = QStringLiteral(
        "Questo database non ha ancora le tabelle per seguire gli invii: nulla vi risulta scritto. Lo stato "
        "degli invii di un'azienda le aggiunge.");
  } else if (tabella_->mostrate() == 0) {
    frase = QStringLiteral("Nessuna azienda corrisponde alla scelta.");
  }
  frase_->dici(frase);
  abilita();
}

// What the line has no room for.
void FinestraTabellone::dettaglia(std::optional<std::size_t> quale) {
  abilita();
  if (!quale || voci_ == nullptr || *quale >= voci_->size()) {
    dettaglio_->dici({});
    return;
  }
  const VoceTabellone& voce = (*voci_)[*quale];
  const QString di = QStringLiteral("%1, %2").arg(qs(voce.azienda.nome)).arg(voce.riga.anno);
  if (voce.riga.nuove() == 0) {
    dettaglio_->dici(di + QStringLiteral(": nessuna certificazione nuova da inviare."));
    return;
  }
  QString testo = di + QStringLiteral(": da inviare %1").arg(conteggio(voce.riga.nuove()));
  if (voce.termini.tutti.empty()) {
    testo += QStringLiteral("; di quest'anno la scadenza non è nota.");
  }
  for (const riscontro::Termine& termine : voce.termini.tutti) testo += u'\n' + frase(termine, oggi_);
  dettaglio_->dici(testo);
}

void FinestraTabellone::apri(std::size_t quale) {
  const VoceTabellone& voce = (*voci_)[quale];
  Profilo suo = profilo_;
  suo.sessione.azienda = voce.azienda.azienda;
  suo.sessione.filiale = voce.azienda.filiale;
  auto* const finestra = new FinestraStato(std::move(suo), voce.riga.anno);
  finestra->setWindowTitle(QStringLiteral("Stato degli invii - %1").arg(qs(voce.azienda.nome)));
  finestra->show();
  finestra->raise();
  finestra->activateWindow();
}

void FinestraTabellone::esporta() {
  const QString dove =
      desktop::fileToSave(this, QStringLiteral("Esporta il quadro"), QStringLiteral("aziende.csv"),
                          QStringLiteral("Tabella CSV (*.csv);;Foglio elettronico (*.xlsx)"));
  if (dove.isEmpty()) return;
  try {
    desktop::writeTable(desktop::tableAsShown(*tabella_->model(), tabella_->comandi().columnsSeen()), dove);
  } catch (const Error& errore) {
    mostraErrore(qs(errore.description()));
  }
}

}  // namespace cu::strumenti
