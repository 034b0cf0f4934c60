#include "apps/assistente/pagina_colonne.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "apps/assistente/dialogo_significati.h"
#include "apps/importazione/mappe_personali.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"
#include "intake/corrispondenza.h"

namespace cu::assistente {
namespace {

constexpr int kTitolo = Qt::UserRole;  // the heading that an entry stands for

QStringList nomiDi(const std::vector<std::string_view>& colonne) {
  QStringList nomi;
  for (const std::string_view una : colonne) nomi += qs(std::string(una));
  return nomi;
}

}  // namespace

PaginaColonne::PaginaColonne(QWidget* parent, Assistente& assistente) : Pagina(parent, assistente) {
  componiSopra();
  auto* const divisore = new QSplitter(Qt::Vertical, this);
  divisore->setChildrenCollapsible(false);
  componiTabella(*divisore);
  componiPannello(*divisore);
  divisore->setStretchFactor(0, 3);
  divisore->setStretchFactor(1, 1);
  colonna().addWidget(divisore, 1);
}

QString PaginaColonne::dettaFonte(const ColonnaScelta& colonna) const {
  if (colonna.costante) {
    return colonna.costante->empty() ? QStringLiteral("non importata")
                                     : QStringLiteral("«%1» in ogni riga").arg(qs(*colonna.costante));
  }
  QStringList titoli;
  for (const std::string& uno : colonna.intestazioni) titoli += qs(uno);
  QString testo = titoli.join(QStringLiteral(" + "));
  if (colonna.segno == intake::Segno::Positivo) testo += QStringLiteral(", senza segno");
  if (colonna.segno == intake::Segno::Inverso) testo += QStringLiteral(", segno inverso");
  return testo;
}

void PaginaColonne::componiTabella(QSplitter& divisore) {
  const auto di = [this](std::size_t q) -> const ColonnaScelta& { return scelte_[q]; };
  colonne_ = new strumenti::Tabella(
      QStringLiteral("assistente_colonne"), QStringLiteral("Colonne da importare"),
      {{.chiave = "nome",
        .titolo = "Colonna",
        .testo =
            [di](std::size_t q) {
              const bool sempre = di(q).colonna->obbligo == intake::Obbligo::Sempre;
              return qs(std::string(di(q).colonna->nome)) + (sempre ? QStringLiteral(" *") : QString());
            },
        .ordine = [](std::size_t q) { return QVariant(qlonglong(q)); }},
       {.chiave = "fonte",
        .titolo = "Dal file",
        .testo = [this, di](std::size_t q) { return dettaFonte(di(q)); }},
       {.chiave = "valori",
        .titolo = "Righe",
        .testo =
            [di](std::size_t q) { return di(q).presente() ? strumenti::conteggio(di(q).valori) : QString(); },
        .aDestra = true,
        .ordine = [di](std::size_t q) { return QVariant(qlonglong(di(q).valori)); }},
       {.chiave = "esempi",
        .titolo = "Come viene letta",
        .testo =
            [di](std::size_t q) {
              if (di(q).respinti > 0) {
                return QStringLiteral("✖ %1: %2")
                    .arg(quante(di(q).respinti, "valore non si legge", "valori non si leggono"),
                         qs(di(q).primoRespinto));
              }
              QStringList esempi;
              for (const std::string& uno : di(q).esempi) esempi += qs(uno);
              QString detti = esempi.join(QStringLiteral("; "));
              if (di(q).estremi.empty()) return detti;
              return qs(di(q).estremi) + QStringLiteral(": ") + detti;
            }}},
      &divisore);
  colonne_->scelta = [this](auto) { mostraPannello(); };
  colonne_->modello().inGrassetto = [di](std::size_t q) { return di(q).presente(); };
  divisore.addWidget(colonne_);
}

void PaginaColonne::componiPannello(QSplitter& divisore) {
  auto* const pannello = new QWidget(&divisore);
  auto* const righe = new QVBoxLayout(pannello);
  righe->setContentsMargins(0, 0, 0, 0);
  titolo_ = new strumenti::Frase(pannello);
  righe->addWidget(titolo_);
  auto* const accanto = new QHBoxLayout;
  titoli_ = new QListWidget(pannello);
  titoli_->setAccessibleName(QStringLiteral("Colonne del file"));
  titoli_->setMinimumHeight(fontMetrics().height() * 4);
  accanto->addWidget(titoli_, 1);
  auto* const modulo = new QFormLayout;
  fisso_ = new QLineEdit(pannello);
  fisso_->setAccessibleName(QStringLiteral("Valore uguale in ogni riga"));
  segno_ = new Scelta<intake::Segno>(pannello, "Segno dell'importo",
                                     {{"come scritto", intake::Segno::ComeScritto},
                                      {"senza segno", intake::Segno::Positivo},
                                      {"inverso", intake::Segno::Inverso}});
  significati_ = bottone(
      "Si&gnificati…", [this] { chiediSignificati(); }, "Che cosa significano i testi di questa colonna");
  modulo->addRow(etichetta("&Uguale in ogni riga", fisso_, pannello), fisso_);
  modulo->addRow(etichetta("Seg&no", segno_, pannello), segno_);
  modulo->addRow(QString(), significati_);
  accanto->addLayout(modulo, 1);
  righe->addLayout(accanto, 1);
  divisore.addWidget(pannello);
  connect(titoli_, &QListWidget::itemChanged, this, [this](QListWidgetItem* voce) { spuntata(voce); });
  connect(fisso_, &QLineEdit::editingFinished, this, [this] {
    const ColonnaScelta* const una = corrente();
    if (una == nullptr || zitta_) return;
    if (fisso_->text().trimmed().toStdString() != una->costante.value_or("")) cambiaFonteCorrente();
  });
  segno_->scelto = [this](intake::Segno) { cambiaFonteCorrente(); };
}

QWidget* PaginaColonne::primo() { return colonne_; }

std::size_t PaginaColonne::file() const {
  return static_cast<std::size_t>(std::max(0, quale_->currentIndex()));
}

const ColonnaScelta* PaginaColonne::corrente() const {
  const auto quale = colonne_->corrente();
  return quale && *quale < scelte_.size() ? &scelte_[*quale] : nullptr;
}

// The first thing that stops the import.
QString PaginaColonne::dettoAvviso() const {
  const std::string impedimento = stato().impedimento();
  if (impedimento.empty()) {
    return QStringLiteral(
               "Le colonne con l'asterisco sono obbligatorie; in grassetto quelle trovate nel file.") +
           dettiNonUsati();
  }
  return QStringLiteral("✖ ") + qs(impedimento) + dettiNonUsati();
}

// The columns of the file that nothing is made of.
QString PaginaColonne::dettiNonUsati() const {
  const intake::Lettura* const lettura = stato().lettura(file());
  if (lettura == nullptr) return {};
  QStringList titoli;
  for (const intake::Messaggio& uno : lettura->messaggi) {
    if (uno.codice == intake::Codice::C03) titoli += qs(uno.colonna);
  }
  if (titoli.isEmpty()) return {};
  return QStringLiteral("\nNel file non usate: %1.").arg(titoli.join(QStringLiteral(", ")));
}

void PaginaColonne::mostra() {
  const int prima = std::max(0, quale_->currentIndex());
  quale_->clear();
  for (const FileScelto& uno : stato().file()) quale_->addItem(qs(uno.nome));
  quale_->setCurrentIndex(std::min(prima, quale_->count() - 1));
  quale_->setVisible(quale_->count() > 1);
  const intake::Lettura* const lettura = stato().lettura(file());
  scelte_.clear();
  if (lettura != nullptr && stato().file()[file()].tabella != nullptr) {
    scelte_ = colonneScelte(stato().file()[file()], *lettura);
  }
  colonne_->rimostra(scelte_.size());
  avviso_->dici(dettoAvviso());
  proponi_->setEnabled(!scelte_.empty() && conProposte(stato().file()[file()], scelte_).has_value());
  mostraPannello();
}

void PaginaColonne::mostraPannello() {
  const ColonnaScelta* const una = corrente();
  for (QWidget* uno : std::initializer_list<QWidget*>{titoli_, fisso_, segno_, significati_})
    uno->setEnabled(una != nullptr);
  zitta_ = true;
  titoli_->clear();
  if (una != nullptr) {
    const std::string nome(una->colonna->nome);
    titolo_->dici(una->colonna->ammessi.empty()
                      ? qs(nome)
                      : QStringLiteral("%1: %2").arg(qs(nome), qs(std::string(una->colonna->ammessi))));
    for (const std::string& titolo : intake::titoliDistinti(*stato().file()[file()].tabella)) {
      if (titolo.empty()) continue;
      auto* const voce = new QListWidgetItem(qs(titolo) + dettiAltriUsi(titolo), titoli_);
      voce->setData(kTitolo, qs(titolo));
      voce->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
      const auto& sue = una->intestazioni;
      voce->setCheckState(std::find(sue.begin(), sue.end(), titolo) != sue.end() ? Qt::Checked
                                                                                 : Qt::Unchecked);
      if (voce->checkState() == Qt::Checked) titoli_->scrollToItem(voce);
    }
    fisso_->setText(qs(una->costante.value_or("")));
    segno_->metti(una->segno);
    segno_->setEnabled(una->colonna->tipo == intake::TipoColonna::Importo && una->intestazioni.size() == 1);
    significati_->setEnabled(!una->intestazioni.empty() && una->colonna->tipo != intake::TipoColonna::Data);
  }
  zitta_ = false;
}

// A column that is not made of several ones has the last one that was chosen.
void PaginaColonne::spuntata(QListWidgetItem* voce) {
  const ColonnaScelta* const una = corrente();
  if (zitta_ || una == nullptr) return;
  zitta_ = true;
  risposta_->dici({});
  if (voce->checkState() == Qt::Checked) {
    diciUsoTolto(voce->data(kTitolo).toString().toStdString());
    fisso_->clear();
    for (int i = 0; i < titoli_->count() && !unisceColonne(*una->colonna); ++i) {
      if (titoli_->item(i) != voce) titoli_->item(i)->setCheckState(Qt::Unchecked);
    }
  }
  zitta_ = false;
  cambiaFonteCorrente();
}

// "   (usata per Onorario)"
QString PaginaColonne::dettiAltriUsi(const std::string& titolo) const {
  const AltriUsi usi = altriUsi(scelte_, *corrente()->colonna, titolo);
  const QStringList nomi = nomiDi(usi.tengono) + nomiDi(usi.perdono);
  if (nomi.isEmpty()) return {};
  return QStringLiteral("   (usata per %1)").arg(nomi.join(QStringLiteral(", ")));
}

void PaginaColonne::diciUsoTolto(const std::string& titolo) {
  const intake::Colonna& colonna = *corrente()->colonna;
  const AltriUsi usi = altriUsi(scelte_, colonna, titolo);
  QString testo;
  if (!usi.perdono.empty()) {
    testo =
        QStringLiteral("⚠ La colonna «%1» del file era usata per %2: ora dà %3, e %2 resta senza.")
            .arg(qs(titolo), nomiDi(usi.perdono).join(QStringLiteral(", ")), qs(std::string(colonna.nome)));
  } else if (!usi.tengono.empty()) {
    testo = QStringLiteral("⚠ La colonna «%1» del file è usata anche per %2.")
                .arg(qs(titolo), nomiDi(usi.tengono).join(QStringLiteral(", ")));
  }
  risposta_->dici(testo);
}

void PaginaColonne::cambiaFonteCorrente() {
  const ColonnaScelta* const una = corrente();
  if (una == nullptr || stato().lettura(file()) == nullptr) return;
  intake::Fonte fonte;
  const QString fisso = fisso_->text().trimmed();
  if (!fisso.isEmpty()) fonte.costante = fisso.toStdString();
  for (int i = 0; i < titoli_->count() && fisso.isEmpty(); ++i) {
    if (titoli_->item(i)->checkState() == Qt::Checked)
      fonte.colonne.push_back(titoli_->item(i)->data(kTitolo).toString().toStdString());
  }
  constexpr std::array kSegniPossibili = {intake::Segno::ComeScritto, intake::Segno::Positivo,
                                          intake::Segno::Inverso};
  fonte.segno = kSegniPossibili.at(static_cast<std::size_t>(std::max(0, segno_->currentIndex())));
  intake::Mappatura mappatura = stato().file()[file()].mappatura;
  cambiaFonte(mappatura, una->colonna->indice, std::move(fonte));
  stato().cambiaMappatura(file(), mappatura);
  cambia();
}

void PaginaColonne::chiediSignificati() {
  const ColonnaScelta* const una = corrente();
  if (una == nullptr) return;
  const intake::Colonna& colonna = *una->colonna;
  DialogoSignificati dialogo(this, colonna,
                             testiDi(stato().file()[file()], *una, DialogoSignificati::kMassimo));
  if (dialogo.exec() != QDialog::Accepted) return;
  intake::Mappatura mappatura = stato().file()[file()].mappatura;
  for (const auto& [testo, significato] : dialogo.significati()) {
    cambiaSignificato(mappatura, colonna.indice, testo, significato);
  }
  stato().cambiaMappatura(file(), mappatura);
  cambia();
}

}  // namespace cu::assistente
