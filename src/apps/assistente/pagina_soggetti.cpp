#include "apps/assistente/pagina_soggetti.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::assistente {

PaginaSoggetti::PaginaSoggetti(QWidget* parent, Assistente& assistente)
    : Pagina(parent, assistente),
      frase_(new strumenti::Frase(this)),
      scelta_(new QWidget(this)),
      candidati_(new QComboBox(scelta_)) {
  auto* const colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(frase_);
  const auto di = [this](std::size_t q) -> const SoggettoPiano& { return soggetti_[q]; };
  tabella_ = new strumenti::Tabella(
      QStringLiteral("assistente_soggetti"), QStringLiteral("Percipienti dei compensi"),
      {{.chiave = "stato",
        .titolo = "Stato",
        .testo = [di](std::size_t q) { return qs(detto(di(q).stato)); }},
       {.chiave = "codice", .titolo = "Codice", .testo = [di](std::size_t q) { return qs(di(q).chiave); }},
       {.chiave = "nome", .titolo = "Nome", .testo = [di](std::size_t q) { return qs(di(q).nome); }},
       {.chiave = "righe",
        .titolo = "Righe",
        .testo = [di](std::size_t q) { return strumenti::conteggio(di(q).righe.size()); },
        .aDestra = true,
        .ordine = [di](std::size_t q) { return QVariant(qlonglong(di(q).righe.size())); }},
       {.chiave = "onorari",
        .titolo = "Onorari",
        .testo = [di](std::size_t q) { return importoDa(di(q).onorari); },
        .aDestra = true,
        .ordine = [di](std::size_t q) { return QVariant(qlonglong(di(q).onorari.scaled())); }},
       {.chiave = "vuota", .titolo = "", .testo = [](std::size_t) { return QString(); }}},
      this);
  tabella_->scelta = [this](auto) { mostraScelta(); };
  colonna->addWidget(tabella_, 1);
  auto* const riga = new QHBoxLayout(scelta_);
  riga->setContentsMargins(0, 0, 0, 0);
  candidati_->setAccessibleName(QStringLiteral("Percipienti possibili"));
  candidati_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  auto* const conferma = new QPushButton(QStringLiteral("Sce&gli"), scelta_);
  conferma->setAutoDefault(true);
  riga->addWidget(etichetta("Qua&le", candidati_, scelta_));
  riga->addWidget(candidati_, 1);
  riga->addWidget(conferma);
  colonna->addWidget(scelta_);
  connect(conferma, &QPushButton::clicked, this, [this] { scegli(); });
}

QWidget* PaginaSoggetti::primo() { return tabella_; }

QString PaginaSoggetti::dettiConteggi() const {
  using Stato = SoggettoPiano::Stato;
  std::array<std::size_t, 6> quanti{};
  for (const SoggettoPiano& uno : soggetti_) ++quanti.at(static_cast<std::size_t>(uno.stato));
  const auto di = [&](Stato stato) { return quanti.at(static_cast<std::size_t>(stato)); };
  QString testo = quante(di(Stato::Trovato), "percipiente in archivio", "percipienti in archivio");
  if (di(Stato::Assente) > 0) {
    testo += QStringLiteral(", %1 non in archivio").arg(di(Stato::Assente));
  }
  if (di(Stato::Nuovo) > 0) testo += QStringLiteral(", %1 proposti come nuovi").arg(di(Stato::Nuovo));
  if (di(Stato::DaScegliere) > 0) testo += QStringLiteral(", %1 da scegliere").arg(di(Stato::DaScegliere));
  if (di(Stato::InConflitto) > 0)
    testo += QStringLiteral(", %1 con codici in conflitto").arg(di(Stato::InConflitto));
  testo += u'.';
  if (di(Stato::Nuovo) > 0) {
    testo += QStringLiteral(
        " Quelli nuovi si aggiungono all'archivio insieme ai loro compensi, con i dati che le fatture "
        "hanno.");
  }
  if (di(Stato::Assente) > 0) {
    testo += QStringLiteral(
        " Quelli che non sono in archivio si importano prima, come percipienti; le loro righe si possono "
        "anche "
        "escludere nel passo seguente.");
  }
  return testo;
}

void PaginaSoggetti::mostra() {
  const auto nuovo = stato().piano();
  if (nuovo == nullptr || nuovo == piano_) return;
  piano_ = nuovo;
  const auto prima = tabella_->corrente();
  soggetti_ = soggettiDelPiano(*piano_);
  tabella_->mostra(soggetti_.size());
  if (prima && *prima < soggetti_.size()) tabella_->scegli(prima);
  frase_->dici(dettiConteggi());
  mostraScelta();
}

void PaginaSoggetti::mostraScelta() {
  const auto quale = tabella_->corrente();
  const bool una = quale && *quale < soggetti_.size() && !soggetti_[*quale].candidati.empty();
  scelta_->setVisible(una);
  candidati_->clear();
  if (!una) return;
  for (const intake::Candidato& uno : soggetti_[*quale].candidati) candidati_->addItem(qs(uno.testo), uno.id);
  if (stato().fatture()) candidati_->addItem(QStringLiteral("nessuno di questi: un percipiente nuovo"), 0);
}

void PaginaSoggetti::scegli() {
  const auto quale = tabella_->corrente();
  if (!quale || *quale >= soggetti_.size() || candidati_->currentIndex() < 0) return;
  const std::int32_t scelto = candidati_->currentData().toInt();
  stato().decidi(soggetti_[*quale].righe, [scelto](intake::Decisione& decisione) {
    decisione.idAnagrafica = scelto;
    decisione.nuovoPercipiente = scelto == 0;
  });
  cambia();
}

}  // namespace cu::assistente
