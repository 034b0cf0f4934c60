#include "apps/assistente/pagina_soggetti.h"

#include <QVBoxLayout>
#include <array>

#include "apps/assistente/colonne_tabella.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::assistente {

PaginaSoggetti::PaginaSoggetti(QWidget* parent, Assistente& assistente)
    : PaginaPiano(parent, assistente), frase_(new strumenti::Frase(this)) {
  colonna().addWidget(frase_);
  const auto di = [this](std::size_t q) -> const SoggettoPiano& { return soggetti_[q]; };
  tabella_ = new strumenti::Tabella(
      QStringLiteral("assistente_soggetti"), QStringLiteral("Percipienti dei compensi"),
      {{.chiave = "stato",
        .titolo = "Stato",
        .testo = [di](std::size_t q) { return qs(detto(di(q).stato)); }},
       {.chiave = "codice", .titolo = "Codice", .testo = [di](std::size_t q) { return qs(di(q).chiave); }},
       {.chiave = "nome", .titolo = "Nome", .testo = [di](std::size_t q) { return qs(di(q).nome); }},
       colonnaNumero("righe", "Righe", [di](std::size_t q) { return di(q).righe.size(); }),
       colonnaImporto("lordo", "Lordo", [di](std::size_t q) { return di(q).lordo; }),
       colonnaVuota()},
      this);
  tabella_->scelta = [this](auto) { mostraScelta(); };
  colonna().addWidget(tabella_, 1);
  candidati_ = new RiquadroScelta(this, "Qua&le", "Percipienti possibili");
  candidati_->scelto = [this](int id) { scegli(id); };
  colonna().addWidget(candidati_);
}

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

std::size_t PaginaSoggetti::prendi() {
  soggetti_ = soggettiDelPiano(piano());
  frase_->dici(dettiConteggi());
  return soggetti_.size();
}

void PaginaSoggetti::mostraScelta() {
  const auto quale = tabella_->corrente();
  candidati_->mostra(quale && *quale < soggetti_.size()
                         ? vociDi(soggetti_[*quale].candidati, stato().fatture())
                         : std::vector<RiquadroScelta::Voce>());
}

void PaginaSoggetti::scegli(std::int32_t id) {
  const auto quale = tabella_->corrente();
  if (!quale || *quale >= soggetti_.size()) return;
  stato().scegliPercipiente(soggetti_[*quale].righe, id);
  cambia();
}

}  // namespace cu::assistente
