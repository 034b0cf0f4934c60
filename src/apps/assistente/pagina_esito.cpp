#include "apps/assistente/pagina_esito.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "apps/strumenti/frase.h"

namespace cu::assistente {

PaginaEsito::PaginaEsito(QWidget* parent, Assistente& assistente)
    : Pagina(parent, assistente), frase_(new strumenti::Frase(this)) {
  colonna().addWidget(frase_);
  altra_ = bottone("&Nuova importazione", [this] {
    if (ricomincia) ricomincia();
  });
  auto* const riga = new QHBoxLayout;
  riga->addWidget(altra_);
  riga->addWidget(bottone("Storico e ann&ullamento…", [this] {
    if (apriStorico) apriStorico();
  }));
  riga->addStretch(1);
  colonna().addLayout(riga);
  colonna().addStretch(1);
}

QWidget* PaginaEsito::primo() { return altra_; }

void PaginaEsito::mostra() {
  const auto& importata = stato().importata();
  if (!importata || stato().piano() == nullptr) return;
  const intake::Piano& piano = *stato().piano();
  if (stato().tornataIndietro() && importata->esito.lotto) {
    frase_->dici(
        QStringLiteral("− L'importazione %1 è stata annullata: l'archivio è tornato com'era prima. Ciò che "
                       "aveva scritto non c'è più.")
            .arg(*importata->esito.lotto));
    return;
  }
  QString testo = QStringLiteral("✓ ") + qs(dettoEsito(piano, importata->esito, Migliaia::ConPunto));
  if (!piano.conti.empty())
    testo += u' ' + quante(piano.conti.size(), "conto ricostruito.", "conti ricostruiti.");
  if (piano.elenco == intake::Elenco::Compensi && !piano.percipienti.empty())
    testo += u' ' + quante(piano.percipienti.size(), "percipiente nuovo.", "percipienti nuovi.");
  if (importata->esito.lotto) {
    testo +=
        QStringLiteral(
            "\n\nSe è stata uno sbaglio, l'importazione %1 si annulla dallo storico, finché nulla di ciò che "
            "ha scritto è stato cambiato o usato da altri dati.")
            .arg(*importata->esito.lotto);
  }
  if (piano.elenco == intake::Elenco::Percipienti)
    testo += QStringLiteral("\n\nOra si possono importare i compensi pagati a questi percipienti.");
  if (piano.elenco == intake::Elenco::Aziende)
    testo += QStringLiteral("\n\nOra si possono importare i percipienti di ogni azienda.");
  frase_->dici(testo);
}

}  // namespace cu::assistente
