#include "apps/assistente/pagina_documenti.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "apps/assistente/colonne_tabella.h"
#include "apps/importazione/riepiloghi.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"
#include "intake/archivio_letto.h"

namespace cu::assistente {
namespace {

using Stato = DocumentoMostrato::Stato;

bool daVedere(const DocumentoMostrato& documento) {
  return documento.stato != Stato::Letto && documento.stato != Stato::Escluso;
}

}  // namespace

PaginaDocumenti::PaginaDocumenti(QWidget* parent, Assistente& assistente) : PaginaPiano(parent, assistente) {
  componiSopra();
  componiTabella();
  detto_ = new strumenti::Frase(this);
  colonna().addWidget(detto_);
  componiDecisioni();
}

void PaginaDocumenti::componiSopra() {
  frase_ = new strumenti::Frase(this);
  colonna().addWidget(frase_);
  auto* const riga = new QHBoxLayout;
  quali_ = new QComboBox(this);
  quali_->setAccessibleName(QStringLiteral("Documenti mostrati"));
  quali_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  forfettari_ = new QComboBox(this);
  forfettari_->setAccessibleName(QStringLiteral("Causale dei percipienti in regime forfettario"));
  forfettari_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  forfettari_->setMinimumContentsLength(16);
  ricorda_ = bottone(
      "Ri&corda le causali", [this] { ricorda(); },
      "Le causali scelte qui valgono anche per le prossime fatture di questa azienda");
  riga->addWidget(etichetta("Documen&ti", quali_, this));
  riga->addWidget(quali_);
  riga->addStretch(1);
  riga->addWidget(etichetta("Causale dei &forfettari", forfettari_, this));
  riga->addWidget(forfettari_);
  riga->addWidget(ricorda_);
  colonna().addLayout(riga);
  altrui_ = new QCheckBox(QStringLiteral("Tralascia le fatture dirette ad a&ltri committenti"), this);
  illeggibili_ = new QCheckBox(QStringLiteral("Tralascia i file che non si le&ggono"), this);
  auto* const tralasciati = new QHBoxLayout;
  tralasciati->addWidget(altrui_);
  tralasciati->addWidget(illeggibili_);
  tralasciati->addStretch(1);
  colonna().addLayout(tralasciati);
  risposta_ = new strumenti::Frase(this);
  risposta_->hide();
  colonna().addWidget(risposta_);
  connect(quali_, &QComboBox::activated, this, [this](int quale) {
    soloDaVedere_ = quale == 1;
    tabella_->riapplicaFiltro();
  });
  connect(forfettari_, &QComboBox::activated, this, [this] {
    stato().scegliCausaleForfettari(forfettari_->currentData().toString().toStdString());
    cambia();
  });
  connect(altrui_, &QCheckBox::clicked, this, [this](bool si) {
    stato().tralasciaAltrui(si);
    cambia();
  });
  connect(illeggibili_, &QCheckBox::clicked, this, [this](bool si) {
    stato().tralasciaIllegibili(si);
    cambia();
  });
}

void PaginaDocumenti::componiTabella() {
  const auto di = [this](std::size_t q) -> const DocumentoMostrato& { return documenti_[q]; };
  tabella_ = new strumenti::Tabella(
      QStringLiteral("assistente_documenti"), QStringLiteral("Documenti letti"),
      {{.chiave = "stato",
        .titolo = "Stato",
        .testo = [di](std::size_t q) { return qs(detto(di(q).stato)); },
        .ordine = [di](std::size_t q) { return QVariant(static_cast<int>(di(q).stato)); }},
       {.chiave = "cedente",
        .titolo = "Da chi",
        .testo = [di](std::size_t q) { return qs(di(q).cedente.empty() ? di(q).file : di(q).cedente); },
        .massima = 190},
       {.chiave = "tipo",
        .titolo = "Tipo",
        .testo = [di](std::size_t q) { return qs(di(q).tipo); },
        .massima = 90},
       {.chiave = "numero", .titolo = "Numero", .testo = [di](std::size_t q) { return qs(di(q).numero); }},
       {.chiave = "data",
        .titolo = "Data",
        .testo = [di](std::size_t q) { return qs(di(q).data == Date() ? "" : di(q).data.toItalian()); },
        .ordine = [di](std::size_t q) { return qs(di(q).data.toIso()); }},
       {.chiave = "causale", .titolo = "Caus.", .testo = [di](std::size_t q) { return qs(di(q).causale); }},
       colonnaImporto("lordo", "Lordo", [di](std::size_t q) { return di(q).lordo; }),
       colonnaImporto("imponibile", "Imponibile", [di](std::size_t q) { return di(q).imponibile; }),
       colonnaImporto("ritenute", "Ritenute", [di](std::size_t q) { return di(q).ritenute; }),
       {.chiave = "file",
        .titolo = "File",
        .testo = [di](std::size_t q) { return qs(di(q).file); },
        .intera = true}},
      this);
  tabella_->filtro().passa = [this](std::size_t q) {
    return q < documenti_.size() && (!soloDaVedere_ || daVedere(documenti_[q]));
  };
  tabella_->scelta = [this](auto) { mostraDocumento(); };
  colonna().addWidget(tabella_, 1);
}

void PaginaDocumenti::componiDecisioni() {
  proposte_ = new RiquadroScelta(this, "Come si &legge", "Che cosa può significare il documento");
  proposte_->scelto = [this](int quale) { scegliProposta(static_cast<std::size_t>(quale)); };
  colonna().addWidget(proposte_);
  perCausale_ = new QWidget(this);
  QHBoxLayout* const riga = rigaDi(perCausale_);
  causali_ = new QComboBox(perCausale_);
  causali_->setAccessibleName(QStringLiteral("Causale del documento"));
  causali_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  causali_->setMinimumContentsLength(16);
  tutti_ = new QCheckBox(QStringLiteral("per &ogni documento di questo percipiente"), perCausale_);
  tutti_->setChecked(true);
  riga->addWidget(etichetta("Ca&usale", causali_, perCausale_));
  riga->addWidget(causali_);
  riga->addWidget(tutti_);
  riga->addWidget(bottone("U&sa la causale", [this] { usaCausale(); }));
  riga->addStretch(1);
  colonna().addWidget(perCausale_);
  auto* const esclusi = new QHBoxLayout;
  esclusi->addWidget(bottone("Escl&udi i documenti evidenziati", [this] {
    decidi(evidenziati(), [](intake::Decisione& d) { d.esclusa = true; });
  }));
  riprendi_ = bottone("Ripren&di i documenti evidenziati",
                      [this] { decidi(evidenziati(), [](intake::Decisione& d) { d.esclusa = false; }); });
  esclusi->addWidget(riprendi_);
  esclusi->addStretch(1);
  colonna().addLayout(esclusi);
}

const DocumentoMostrato* PaginaDocumenti::corrente() const {
  const auto quale = tabella_->corrente();
  return quale && *quale < documenti_.size() ? &documenti_[*quale] : nullptr;
}

std::vector<std::size_t> PaginaDocumenti::evidenziati() const {
  std::vector<std::size_t> righe;
  for (const std::size_t quale : tabella_->evidenziate()) {
    if (documenti_.at(quale).riga != intake::kSenzaVoce) righe.push_back(documenti_[quale].riga);
  }
  return righe;
}

QString PaginaDocumenti::dettiIgnorati() const {
  QStringList detti;
  for (const auto& [che, quanti] : stato().ignorati())
    detti += QStringLiteral("%1 %2").arg(strumenti::conteggio(quanti)).arg(qs(che));
  if (detti.isEmpty()) return {};
  return QStringLiteral(" Nelle cartelle e negli archivi anche, senza importarli: %1.")
      .arg(detti.join(QStringLiteral(", ")));
}

QString PaginaDocumenti::dettiDocumenti() const {
  std::array<std::size_t, 5> quanti{};
  for (const DocumentoMostrato& uno : documenti_) ++quanti.at(static_cast<std::size_t>(uno.stato));
  const auto di = [&](Stato quale) { return quanti.at(static_cast<std::size_t>(quale)); };
  QString testo = quante(di(Stato::Letto), "pagamento letto", "pagamenti letti");
  const auto aggiungi = [&](Stato quale, const char* uno, const char* piu) {
    if (di(quale) > 0) testo += QStringLiteral(", ") + quante(di(quale), uno, piu);
  };
  aggiungi(Stato::DaScegliere, "da scegliere", "da scegliere");
  aggiungi(Stato::SenzaCausale, "senza causale", "senza causale");
  aggiungi(Stato::Errore, "errore", "errori");
  aggiungi(Stato::Escluso, "escluso", "esclusi");
  testo += u'.' + dettiIgnorati();
  if (!stato().notaProfilo().empty()) testo += QStringLiteral("\n⚠ ") + qs(stato().notaProfilo());
  if (!stato().profiloFatture().empty())
    testo += QStringLiteral("\nLe causali ricordate per questa azienda sono già messe.");
  return testo;
}

std::size_t PaginaDocumenti::prendi() {
  documenti_ = documentiMostrati(piano());
  mostraScelte();
  frase_->dici(dettiDocumenti());
  return documenti_.size();
}

void PaginaDocumenti::mostraScelte() {
  const auto quantiDaVedere =
      static_cast<std::size_t>(std::count_if(documenti_.begin(), documenti_.end(), daVedere));
  quali_->clear();
  quali_->addItem(QStringLiteral("tutti (%1)").arg(strumenti::conteggio(documenti_.size())));
  quali_->addItem(QStringLiteral("da vedere (%1)").arg(strumenti::conteggio(quantiDaVedere)));
  quali_->setCurrentIndex(soloDaVedere_ ? 1 : 0);
  riempiCausali();
  const auto& righe = piano().righe;
  const bool conAltrui = std::any_of(righe.begin(), righe.end(), [](const intake::RigaPiano& riga) {
    return haCodice(riga, intake::Codice::F06);
  });
  altrui_->setChecked(stato().opzioni().tralasciaAltrui);
  altrui_->setVisible(stato().opzioni().tralasciaAltrui || conAltrui);
  const bool senzaRighe = std::any_of(documenti_.begin(), documenti_.end(), [](const DocumentoMostrato& uno) {
    return uno.riga == intake::kSenzaVoce;
  });
  illeggibili_->setChecked(stato().illegibiliTralasciati());
  illeggibili_->setVisible(stato().illegibiliTralasciati() || senzaRighe);
}

void PaginaDocumenti::riempiCausali() {
  const QString scelta = qs(stato().opzioni().causaleForfettari);
  if (causali_->count() == 0) {
    forfettari_->addItem(QStringLiteral("da scegliere"), QString());
    for (const schede::VoceElenco& una : piano().archivio->elenchi.causali.voci()) {
      const QString codice = qs(una.codice).trimmed();
      const QString nome = una.nome.empty() ? codice : QStringLiteral("%1 - %2").arg(codice, qs(una.nome));
      causali_->addItem(nome, codice);
      forfettari_->addItem(nome, codice);
    }
  }
  forfettari_->setCurrentIndex(std::max(0, forfettari_->findData(scelta)));
}

void PaginaDocumenti::mostraDocumento() {
  const DocumentoMostrato* const documento = corrente();
  const bool conCausale = documento != nullptr && documento->riga != intake::kSenzaVoce &&
                          documento->stato != Stato::Errore && documento->stato != Stato::Escluso;
  perCausale_->setVisible(conCausale);
  std::vector<RiquadroScelta::Voce> proposte;
  if (documento == nullptr) {
    proposte_->mostra({});
    riprendi_->hide();
    detto_->dici({});
    return;
  }
  const bool noto = documento->riga != intake::kSenzaVoce && attuale();
  riprendi_->setVisible(noto && stato().decisione(documento->riga).esclusa);
  QStringList righe{QStringLiteral("File %1").arg(qs(documento->file))};
  for (const std::string& una : documento->spiegazioni) righe += qs(una);
  if (!documento->messaggi.empty()) righe += qs(documento->messaggi);
  detto_->dici(righe.join(u'\n'));
  for (const std::string& una : documento->proposte)
    proposte.emplace_back(qs(una), static_cast<int>(proposte.size()));
  proposte_->mostra(proposte, static_cast<int>(documento->scelta.value_or(0)));
  if (const int sua = causali_->findData(qs(documento->causale)); sua >= 0) causali_->setCurrentIndex(sua);
}

void PaginaDocumenti::decidi(const std::vector<std::size_t>& righe,
                             const std::function<void(intake::Decisione&)>& come) {
  if (righe.empty()) return;
  stato().decidi(righe, come);
  cambia();
}

void PaginaDocumenti::scegliProposta(std::size_t quale) {
  const DocumentoMostrato* const documento = corrente();
  if (documento == nullptr) return;
  tabella_->setFocus();  // what was pressed may be hidden with the choice
  decidi({documento->riga}, [quale](intake::Decisione& decisione) { decisione.proposta = quale; });
}

void PaginaDocumenti::usaCausale() {
  const DocumentoMostrato* const documento = corrente();
  if (documento == nullptr || causali_->currentIndex() < 0) return;
  const std::string causale = causali_->currentData().toString().toStdString();
  if (!tutti_->isChecked() || documento->codice.empty()) {
    decidi({documento->riga}, [&](intake::Decisione& decisione) { decisione.causale = causale; });
    return;
  }
  stato().scegliCausale(documento->codice, causale);
  cambia();
}

void PaginaDocumenti::ricorda() {
  try {
    stato().ricordaCausali();
    risposta_->dici(QStringLiteral(
        "✓ Ricordate: le causali scelte valgono anche per le prossime fatture di questa azienda."));
  } catch (const std::exception& guasto) {
    mostraErrore(QString::fromUtf8(guasto.what()));
  }
}

}  // namespace cu::assistente
