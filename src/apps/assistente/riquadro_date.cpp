#include "apps/assistente/riquadro_date.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/frase.h"
#include "desktop/file_dialog.h"
#include "desktop/hint.h"

namespace cu::assistente {
namespace {

const QString kUsoDate = QStringLiteral("date_pagamento");

using intake::FontePagamento;

}  // namespace

QString dettoPagamento(const PagamentoMostrato& pagamento) {
  QString giorno = qs(pagamento.giorno.toItalian());
  switch (pagamento.origine) {
    case PagamentoMostrato::Origine::Nessuna:
      return {};
    case PagamentoMostrato::Origine::Manca:
      return QStringLiteral("? manca");
    case PagamentoMostrato::Origine::Proposta:
      return QStringLiteral("≈ %1 (proposta)").arg(giorno);
    case PagamentoMostrato::Origine::Data:
      break;
  }
  return giorno;
}

QString dettoConfine(const PagamentoMostrato& pagamento) {
  if (pagamento.indietro) return QStringLiteral("⚠ dicembre");
  return pagamento.avanti ? QStringLiteral("⚠ gennaio") : QString();
}

RiquadroDate::RiquadroDate(QWidget* parent, Assistente& assistente)
    : QWidget(parent),
      assistente_(assistente),
      fonte_(new Scelta<FontePagamento>(this, "Da dove vengono le date di pagamento",
                                        {{"scritte qui sotto, una per una", FontePagamento::Nessuna},
                                         {"da un file di date", FontePagamento::Tavola},
                                         {"quelle dei documenti, come proposta", FontePagamento::Documento},
                                         {"lo stesso giorno per tutte", FontePagamento::Giorno}})),
      giorno_(new QLineEdit(this)),
      tavola_(new QPushButton(QStringLiteral("&File delle date…"), this)),
      anni_(new strumenti::Frase(parent)) {
  QHBoxLayout* const riga = rigaDi(this);
  giorno_->setAccessibleName(QStringLiteral("Giorno del pagamento"));
  desktop::setHint(*giorno_, QStringLiteral("gg/mm/aaaa"));
  giorno_->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000")) + 40);
  tavola_->setAutoDefault(true);
  tavola_->setToolTip(QStringLiteral(
      "Una tabella con CodiceFiscale o PartitaIva, NumeroDocumento, DataDocumento e DataPagamento"));
  riga->addWidget(etichetta("&Date di pagamento", fonte_, this));
  riga->addWidget(fonte_);
  riga->addWidget(giorno_);
  riga->addWidget(tavola_);
  riga->addStretch(1);
  fonte_->scelto = [this](FontePagamento fonte) { scelta(fonte); };
  connect(tavola_, &QPushButton::clicked, this, [this] { scegliTavola(); });
  connect(giorno_, &QLineEdit::editingFinished, this, [this] { scriviGiorno(); });
}

QWidget* RiquadroDate::anni() const { return anni_; }

// A day and a file are asked for beside the list: the arrow keys pass through its entries.
void RiquadroDate::scelta(FontePagamento fonte) {
  const bool conTavola = fonte == FontePagamento::Tavola && !assistente_.tavolaDate().empty();
  const bool inAttesa = fonte == FontePagamento::Giorno || (fonte == FontePagamento::Tavola && !conTavola);
  if (inAttesa) {
    giorno_->clear();
    assistente_.attendiDate(fonte);
  } else {
    assistente_.scegliDate(fonte);
  }
  mostra();
  if (cambiata) cambiata();
}

void RiquadroDate::scegliTavola() {
  const auto& file = assistente_.file();
  const QString cartella = file.empty() ? QString() : QFileInfo(qs(file.front().percorso)).absolutePath();
  const QString scelto = desktop::fileToOpen(
      this, QStringLiteral("File delle date"), strumenti::cartellaRicordata(kUsoDate, cartella),
      QStringLiteral("Tabelle (*.csv *.tsv *.txt *.xlsx);;Tutti i file (*)"));
  if (scelto.isEmpty()) return;
  strumenti::ricordaCartella(kUsoDate, QFileInfo(scelto).absolutePath());
  usaTavola(scelto);
}

void RiquadroDate::usaTavola(const QString& percorso) {
  QStringList contro;
  try {
    for (const std::string& uno : assistente_.usaTavolaDate(percorso.toStdString())) contro += qs(uno);
  } catch (const std::exception& guasto) {
    contro += QString::fromUtf8(guasto.what());
  }
  constexpr qsizetype kMostrati = 10;
  if (contro.size() > kMostrati) {
    const qsizetype altri = contro.size() - kMostrati;
    contro = contro.first(kMostrati);
    contro += QStringLiteral("… e altri %1.").arg(altri);
  }
  if (contro.isEmpty()) {
    if (cambiata) cambiata();
    return;
  }
  if (errore) errore(QStringLiteral("Il file delle date non si può usare.\n\n") + contro.join(u'\n'));
}

bool RiquadroDate::scriviGiorno() {
  if (!giorno_->isModified()) return true;
  giorno_->setModified(false);
  const auto giorno =
      giornoScritto(giorno_->text().trimmed().toStdString(), assistente_.ambiente().oggi.year() + 1);
  if (!giorno) {
    // The former day is no longer the one that is written.
    assistente_.attendiDate(FontePagamento::Giorno);
    mostra();
    if (cambiata) cambiata();
    if (errore)
      errore(QStringLiteral("«%1» non è una data: si scrive giorno, mese e anno.").arg(giorno_->text()));
    return false;
  }
  giorno_->setText(qs(giorno->toItalian()));
  assistente_.scegliDate(FontePagamento::Giorno, *giorno);
  if (cambiata) cambiata();
  return true;
}

bool RiquadroDate::conclude() { return !giorno_->isVisible() || scriviGiorno(); }

QString RiquadroDate::dettiAnni() const {
  const auto piano = assistente_.piano();
  if (piano == nullptr) return {};
  QStringList righe;
  for (const SommaAnno& una : sommePerAnno(*piano)) {
    QString riga = QStringLiteral("Pagati nel %1: %2, lordo %3, ritenute %4")
                       .arg(una.anno)
                       .arg(quante(una.pagamenti, "compenso", "compensi"), importoDa(una.lordo),
                            importoDa(una.ritenute));
    if (una.alConfine > 0)
      riga += QStringLiteral("; ⚠ %1 in dicembre o gennaio").arg(strumenti::conteggio(una.alConfine));
    if (una.proposti > 0)
      riga += QStringLiteral("; ≈ %1 con la data solo proposta").arg(strumenti::conteggio(una.proposti));
    righe += riga + u'.';
  }
  std::size_t senza = 0;
  const auto pagamenti = pagamentiMostrati(*piano);
  for (std::size_t i = 0; i < pagamenti.size(); ++i) {
    if (pagamenti[i].origine != PagamentoMostrato::Origine::Manca) continue;
    // A row that waits for its reason has not looked for its date yet.
    const intake::RigaPiano& riga = piano->righe[i];
    const bool manca = std::any_of(riga.messaggi.begin(), riga.messaggi.end(),
                                   [](const auto& uno) { return uno.codice == intake::Codice::R12; });
    if (manca && riga.stato == intake::StatoRiga::DaDecidere) ++senza;
  }
  if (senza > 0) {
    righe += QStringLiteral(
                 "? %1 senza data: si scrive nella colonna «Pagamento»; il compenso va nell'anno in "
                 "cui è stato pagato.")
                 .arg(quante(senza, "pagamento", "pagamenti"));
  }
  return righe.join(u'\n');
}

void RiquadroDate::mostra() {
  const intake::OpzioniFatture& opzioni = assistente_.opzioni();
  const FontePagamento fonte = assistente_.dateAttese().value_or(opzioni.fonte);
  fonte_->metti(fonte);
  giorno_->setVisible(fonte == FontePagamento::Giorno);
  if (!giorno_->hasFocus() && opzioni.fonte == FontePagamento::Giorno)
    giorno_->setText(qs(opzioni.giorno.toItalian()));
  tavola_->setVisible(fonte == FontePagamento::Tavola);
  tavola_->setText(assistente_.tavolaDate().empty()
                       ? QStringLiteral("&File delle date…")
                       : QStringLiteral("&File delle date: %1…").arg(qs(assistente_.tavolaDate())));
  anni_->dici(dettiAnni());
}

}  // namespace cu::assistente
