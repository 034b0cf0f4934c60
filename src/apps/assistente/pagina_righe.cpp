#include "apps/assistente/pagina_righe.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "apps/assistente/riquadro_date.h"
#include "apps/importazione/riepiloghi.h"
#include "apps/strumenti/casella_cerca.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/hint.h"
#include "desktop/text.h"

namespace cu::assistente {
namespace {

using intake::StatoRiga;

QString cellaDetta(const std::string& testo, ColonnaRiga::Genere genere) {
  switch (genere) {
    case ColonnaRiga::Genere::Data:
      return giornoDaTesto(testo);
    case ColonnaRiga::Genere::Importo:
      return importoDaTesto(testo);
    case ColonnaRiga::Genere::Testo:
      break;
  }
  return qs(testo);
}

QVariant ordineCella(const std::string& testo, ColonnaRiga::Genere genere) {
  if (genere != ColonnaRiga::Genere::Importo) return qs(testo);
  return QVariant(qlonglong(Decimal::parse(testo).value_or(Decimal()).scaled()));
}

}  // namespace

PaginaRighe::PaginaRighe(QWidget* parent, Assistente& assistente, intake::Elenco elenco, bool fatture)
    : PaginaPiano(parent, assistente), fatture_(fatture) {
  if (fatture_) {
    date_ = new RiquadroDate(this, stato());
    date_->cambiata = [this] { cambia(); };
    date_->errore = [this](const QString& testo) { mostraErrore(testo); };
    colonna().addWidget(date_);
  }
  conteggi_ = new strumenti::Frase(this);
  colonna().addWidget(conteggi_);
  componiFiltri();
  componiTabella(elenco);
  if (date_ != nullptr) colonna().addWidget(date_->anni());
  messaggi_ = new strumenti::Frase(this);
  colonna().addWidget(messaggi_);
  componiDecisioni();
}

void PaginaRighe::componiFiltri() {
  auto* const riga = new QHBoxLayout;
  stati_ = new QComboBox(this);
  stati_->setAccessibleName(QStringLiteral("Righe mostrate"));
  stati_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  cerca_ = new strumenti::CasellaCerca(this);
  cerca_->setClearButtonEnabled(true);
  desktop::setHint(*cerca_, QStringLiteral("una parte di ciò che si vede nella riga"));
  cerca_->setAccessibleName(QStringLiteral("Cerca fra le righe"));
  riga->addWidget(etichetta("&Righe", stati_, this));
  riga->addWidget(stati_);
  riga->addWidget(etichetta("&Cerca", cerca_, this));
  riga->addWidget(cerca_, 1);
  colonna().addLayout(riga);
  connect(stati_, &QComboBox::activated, this, [this] {
    const int quale = stati_->currentData().toInt();
    filtro_ = quale < 0 ? std::nullopt : std::optional(static_cast<StatoRiga>(quale));
    tabella_->riapplicaFiltro();
  });
  cerca_->avanti = [this] { tabella_->setFocus(Qt::TabFocusReason); };
  connect(cerca_, &QLineEdit::textChanged, this, [this] {
    cercato_ = desktop::folded(cerca_->text().trimmed());
    tabella_->riapplicaFiltro();
  });
}

void PaginaRighe::componiTabella(intake::Elenco elenco) {
  const auto riga = [this](std::size_t q) -> const intake::RigaPiano& { return piano().righe[q]; };
  std::vector<strumenti::Colonna> colonne = {
      {.chiave = "file",
       .titolo = "File",
       .testo = [this, riga](std::size_t q) { return qs((*piano().letture)[riga(q).posizione.file].file); },
       .massima = 110},
      {.chiave = "riga",
       .titolo = "Riga",
       .testo = [this, riga](std::size_t q) { return strumenti::conteggio(piano().letta(riga(q)).numero); },
       .aDestra = true,
       .ordine = [](std::size_t q) { return QVariant(qlonglong(q)); }},
      {.chiave = "stato",
       .titolo = "Stato",
       .testo = [riga](std::size_t q) { return qs(dettoStato(riga(q).stato)); },
       .detto = [riga](std::size_t q) { return qs(std::string(intake::nome(riga(q).stato))); }}};
  // Documents have their files in the step before.
  if (fatture_) colonne.erase(colonne.begin(), colonne.begin() + 2);
  std::size_t posto = 0;
  for (const ColonnaRiga& una : colonneDelleRighe(elenco)) {
    const auto cella = [this, posto](std::size_t q) -> const std::string& {
      return (*righe_)[q].celle[posto];
    };
    if (fatture_ && una.genere == ColonnaRiga::Genere::Data) {
      colonne.push_back(colonnaPagamento());
      colonne.push_back({.chiave = "confine", .titolo = "Anno", .testo = [this](std::size_t q) {
                           return dettoConfine(pagamenti_[q]);
                         }});
      ++posto;
      continue;
    }
    colonne.push_back({.chiave = una.titolo,
                       .titolo = una.titolo,
                       .testo = [cella, una](std::size_t q) { return cellaDetta(cella(q), una.genere); },
                       .aDestra = una.genere == ColonnaRiga::Genere::Importo,
                       .ordine = [cella, una](std::size_t q) { return ordineCella(cella(q), una.genere); }});
    ++posto;
  }
  colonne.push_back({.chiave = "messaggi",
                     .titolo = "Messaggi",
                     .testo = [this](std::size_t q) { return qs((*righe_)[q].messaggi); },
                     .intera = true});
  tabella_ = new strumenti::Tabella(
      QStringLiteral("assistente_righe_") +
          (fatture_ ? QStringLiteral("fatture") : qs(std::string(intake::nome(elenco)))),
      QStringLiteral("Righe da importare"), std::move(colonne), this);
  tabella_->filtro().passa = [this](std::size_t q) {
    if (!conPiano() || q >= righe_->size()) return false;
    if (filtro_ && piano().righe[q].stato != *filtro_) return false;
    if (cercato_.isEmpty()) return true;
    preparaRicerca();
    return testi_[q].contains(cercato_);
  };
  tabella_->setCercata();
  tabella_->scelta = [this](auto) { mostraRiga(); };
  colonna().addWidget(tabella_, 1);
}

strumenti::Colonna PaginaRighe::colonnaPagamento() {
  return {.chiave = "pagamento",
          .titolo = "Pagamento",
          .testo =
              [this](std::size_t q) {
                return pagamenti_[q].scrivibile ? dettoPagamento(pagamenti_[q]) : QString();
              },
          .ordine = [this](std::size_t q) { return qs(pagamenti_[q].giorno.toIso()); },
          .scrivi = [this](std::size_t q, const QString& testo) { scriviPagamento(q, testo); },
          .daScrivere =
              [this](std::size_t q) {
                const Date giorno = pagamenti_[q].giorno;
                return giorno == Date() ? QString() : qs(giorno.toItalian());
              },
          .scrivibile = [this](std::size_t q) { return pagamenti_[q].scrivibile; }};
}

// An emptied cell gives the date back to where dates come from. The plan is made anew once the editor of the
// cell has closed; what is no date is corrected in the cell.
void PaginaRighe::scriviPagamento(std::size_t riga, const QString& testo) {
  const QString netto = testo.trimmed();
  std::optional<Date> giorno;
  daPrendere_ = true;
  if (!netto.isEmpty()) {
    giorno = giornoScritto(netto.toStdString(), stato().ambiente().oggi.year() + 1);
    if (!giorno) {
      QTimer::singleShot(0, this, [this, riga, netto] {
        daPrendere_ = false;
        if (!isVisible()) return;
        mostraErrore(
            QStringLiteral("«%1» non è una data: si scrive giorno, mese e anno, come 20/3/2017.").arg(netto));
        if (attuale()) tabella_->riscrivi(riga, netto);
      });
      return;
    }
  }
  QTimer::singleShot(0, this, [this, riga, giorno] {
    daPrendere_ = false;
    if (!attuale()) return;
    const std::vector<std::size_t> quali{riga};
    tabella_->avanza();
    stato().decidi(quali, [&](intake::Decisione& decisione) { decisione.pagamento = giorno; });
    cambia();
  });
}

// What can be found of each row, once somebody searches.
void PaginaRighe::preparaRicerca() {
  if (testi_.size() == righe_->size()) return;
  testi_.reserve(righe_->size());
  const auto colonne = colonneDelleRighe(piano().elenco);
  for (const RigaMostrata& una : *righe_) {
    QString testo = qs(una.messaggi);
    for (std::size_t i = 0; i < una.celle.size(); ++i)
      testo += u'\n' + cellaDetta(una.celle[i], colonne[i].genere);
    testi_.push_back(desktop::folded(testo));
  }
}

void PaginaRighe::componiDecisioni() {
  candidati_ = new RiquadroScelta(this, "Qua&le", "Scelte possibili");
  candidati_->scelto = [this](int id) { scegliCandidato(id); };
  colonna().addWidget(candidati_);
  auto* const riga = new QHBoxLayout;
  escludi_ = bottone("Escl&udi le righe evidenziate",
                     [this] { decidi([](intake::Decisione& d) { d.esclusa = true; }); });
  riprendi_ = bottone("Ripren&di le righe evidenziate",
                      [this] { decidi([](intake::Decisione& d) { d.esclusa = false; }); });
  rinuncia_ = bottone(
      "Rinunci&a alle correzioni del conto",
      [this] { decidi([](intake::Decisione& d) { d.sovrascriviConto = true; }); },
      "Il conto diventa la somma dei suoi compensi: ciò che vi è stato corretto a mano va perso");
  riga->addWidget(escludi_);
  riga->addWidget(riprendi_);
  riga->addWidget(rinuncia_);
  riga->addStretch(1);
  colonna().addLayout(riga);
}

// A date that is still open in its cell has the rows shown with it first.
bool PaginaRighe::conclude() {
  tabella_->concludi();
  return !daPrendere_ && (date_ == nullptr || date_->conclude());
}

const intake::RigaPiano* PaginaRighe::corrente() const {
  const auto quale = tabella_->corrente();
  return conPiano() && quale && *quale < piano().righe.size() ? &piano().righe[*quale] : nullptr;
}

std::size_t PaginaRighe::prendi() {
  righe_ = stato().righe();
  testi_.clear();
  if (fatture_) {
    pagamenti_ = pagamentiMostrati(piano());
    date_->mostra();
  }
  mostraConteggi();
  return piano().righe.size();
}

void PaginaRighe::mostraConteggi() {
  const auto quante = piano().conteggi();
  stati_->clear();
  stati_->addItem(QStringLiteral("tutte (%1)").arg(strumenti::conteggio(piano().righe.size())), -1);
  for (std::size_t i = 0; i < quante.size(); ++i) {
    if (quante[i] == 0 && !(filtro_ && static_cast<std::size_t>(*filtro_) == i)) continue;
    stati_->addItem(QStringLiteral("%1 (%2)").arg(qs(dettoStato(static_cast<StatoRiga>(i))),
                                                  strumenti::conteggio(quante[i])),
                    static_cast<int>(i));
  }
  stati_->setCurrentIndex(stati_->findData(filtro_ ? static_cast<int>(*filtro_) : -1));
  conteggi_->dici(qs(dettiConteggi(quante, Migliaia::ConPunto)) + u'.');
}

void PaginaRighe::mostraRiga() {
  const intake::RigaPiano* const riga = corrente();
  const auto quale = tabella_->corrente();
  escludi_->setEnabled(riga != nullptr);
  riprendi_->setVisible(riga != nullptr && attuale() && stato().decisione(*quale).esclusa);
  rinuncia_->setVisible(riga != nullptr && haCodice(*riga, intake::Codice::A02));
  if (riga == nullptr) {
    candidati_->mostra({});
    messaggi_->dici({});
    return;
  }
  QStringList detti;
  for (const std::string& una : riga->spiegazioni) detti += qs(una);
  if (!(*righe_)[*quale].messaggi.empty()) detti += qs((*righe_)[*quale].messaggi);
  messaggi_->dici(detti.join(u'\n'));
  const bool ancheNuovo = fatture_ || piano().elenco == intake::Elenco::Percipienti;
  candidati_->mostra(vociDi(riga->candidati, ancheNuovo && haCodice(*riga, intake::Codice::P09)));
}

void PaginaRighe::scegliCandidato(std::int32_t id) {
  const intake::RigaPiano* const riga = corrente();
  if (riga == nullptr) return;
  const std::vector<std::size_t> quali{*tabella_->corrente()};
  tabella_->setFocus();  // what was pressed is hidden with the choice
  if (haCodice(*riga, intake::Codice::P08)) {
    stato().decidi(quali, [id](intake::Decisione& decisione) { decisione.idComune = id; });
  } else {
    stato().scegliPercipiente(quali, id);
  }
  cambia();
}

void PaginaRighe::decidi(const std::function<void(intake::Decisione&)>& come) {
  const std::vector<std::size_t> quali = tabella_->evidenziate();
  if (quali.empty()) return;
  stato().decidi(quali, come);
  cambia();
}

}  // namespace cu::assistente
