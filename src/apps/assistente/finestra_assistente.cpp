#include "apps/assistente/finestra_assistente.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "apps/assistente/finestra_storico.h"
#include "apps/assistente/pagina_colonne.h"
#include "apps/assistente/pagina_documenti.h"
#include "apps/assistente/pagina_esito.h"
#include "apps/assistente/pagina_lettura.h"
#include "apps/assistente/pagina_prova.h"
#include "apps/assistente/pagina_righe.h"
#include "apps/assistente/pagina_soggetti.h"
#include "apps/assistente/pagina_sorgente.h"
#include "apps/importazione/mappe_personali.h"
#include "apps/strumenti/frase.h"
#include "suite/orologio.h"

namespace cu::assistente {
namespace {

constexpr QSize kDimensioneAssistente(1080, 640);

// Holds a page: one that is taller than the window is scrolled, and does not make the window grow.
class ZonaPagina : public QScrollArea {
 public:
  ZonaPagina(QWidget* parent, QWidget* pagina) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(pagina);
  }
  QSize minimumSizeHint() const override {
    constexpr int kRighe = 10;
    return {widget()->minimumSizeHint().width(), kRighe * fontMetrics().height()};
  }
};

constexpr std::size_t posto(Passo passo) { return static_cast<std::size_t>(passo); }

}  // namespace

FinestraAssistente::FinestraAssistente(Profilo profilo, const QStringList& file)
    : Finestra(QStringLiteral("importazione")),
      profilo_(std::move(profilo)),
      assistente_({.database = profilo_.database,
                   .azienda = profilo_.sessione.azienda,
                   .cartellaMappe = cartellaMappe(),
                   .utente = "cuwizard",
                   .oggi = orologio(profilo_)->today()}) {
  setWindowTitle(QStringLiteral("Importa da tabelle e fatture"));
  auto* const colonna = new QVBoxLayout(this);
  auto* const mezzo = new QHBoxLayout;
  mezzo->addWidget(passi());
  mezzo->addWidget(contenuto(), 1);
  colonna->addLayout(mezzo, 1);
  colonna->addWidget(attesa());
  colonna->addWidget(pulsanti());
  strumenti::accettaFile(this, [this](const QStringList& lasciati) { aggiungi(lasciati); });
  ricordaPosto({}, kDimensioneAssistente);
  aggiungi(file);
  prosegui();
}

QWidget* FinestraAssistente::passi() {
  passi_ = new QListWidget(this);
  passi_->setAccessibleName(QStringLiteral("Passi"));
  passi_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  passi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  passi_->setSpacing(3);
  for (std::size_t i = 0; i < kPassi; ++i) passi_->addItem(QString());
  passi_->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("✓ 4  Percipienti")) + 40);
  connect(passi_, &QListWidget::itemActivated, this, [this] { vaiAlPasso(passi_->currentRow()); });
  connect(passi_, &QListWidget::itemClicked, this, [this] { vaiAlPasso(passi_->currentRow()); });
  return passi_;
}

template <class P>
P* FinestraAssistente::registra(P* pagina) {
  pagina->cambiata = [this] {
    sospeso_ = false;
    prosegui();
  };
  pagina->errore = [this](const QString& testo) { mostraErrore(testo); };
  pagine_->addWidget(new ZonaPagina(pagine_, pagina));
  return pagina;
}

QWidget* FinestraAssistente::contenuto() {
  auto* const riquadro = new QWidget(this);
  auto* const colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  titolo_ = new strumenti::Frase(riquadro);
  titolo_->setIndent(kIntornoFuoco);
  QFont grande = titolo_->font();
  grande.setBold(true);
  titolo_->setFont(grande);
  colonna->addWidget(titolo_);
  pagine_ = new QStackedWidget(riquadro);
  colonna->addWidget(pagine_, 1);
  risposta_ = new strumenti::Frase(riquadro);
  risposta_->setIndent(kIntornoFuoco);
  risposta_->hide();
  colonna->addWidget(risposta_);
  auto* const sorgente = registra(new PaginaSorgente(pagine_, assistente_));
  sorgente->aggiungiTabelle = [this] { aggiungiTabelle(); };
  delPasso_[posto(Passo::Sorgente)] = sorgente;
  delPasso_[posto(Passo::Lettura)] = registra(new PaginaLettura(pagine_, assistente_));
  delPasso_[posto(Passo::Colonne)] = registra(new PaginaColonne(pagine_, assistente_));
  documenti_ = registra(new PaginaDocumenti(pagine_, assistente_));
  pagamenti_ = registra(new PaginaRighe(pagine_, assistente_, intake::Elenco::Compensi, true));
  delPasso_[posto(Passo::Percipienti)] = registra(new PaginaSoggetti(pagine_, assistente_));
  delPasso_[posto(Passo::Prova)] = registra(new PaginaProva(pagine_, assistente_));
  auto* const esito = registra(new PaginaEsito(pagine_, assistente_));
  esito->apriStorico = [this] { apriStorico(); };
  esito->ricomincia = [this] {
    assistente_.ricomincia();
    arrivato_ = true;
    prosegui();
  };
  delPasso_[posto(Passo::Esito)] = esito;
  return riquadro;
}

// Their columns are those of the list.
PaginaRighe* FinestraAssistente::righeDi(intake::Elenco elenco) {
  PaginaRighe*& sua = righe_[static_cast<std::size_t>(elenco)];
  if (sua == nullptr) sua = registra(new PaginaRighe(pagine_, assistente_, elenco));
  return sua;
}

Pagina* FinestraAssistente::paginaDelPasso() {
  const bool compensi = assistente_.elenco() == intake::Elenco::Compensi;
  const Passo passo = assistente_.passo();
  if (assistente_.fatture() && passo == Passo::Colonne) return documenti_;
  if (assistente_.fatture() && passo == Passo::Compensi) return pagamenti_;
  if (passo == Passo::Compensi || (passo == Passo::Percipienti && !compensi))
    return righeDi(assistente_.elenco());
  return delPasso_[posto(passo)];
}

QWidget* FinestraAssistente::pulsanti() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->addWidget(pulsante("&Storico…", [this] { apriStorico(); }));
  riga->addStretch(1);
  riga->addWidget(riprova_ = pulsante("Ri&prova", [this] {
                    sospeso_ = false;
                    prosegui();
                  }));
  riga->addWidget(indietro_ = pulsante("Ind&ietro", [this] { indietro(); }));
  riga->addWidget(avanti_ = pulsante("A&vanti", [this] { avanti(); }));
  riga->addWidget(importa_ = pulsante("I&mporta", [this] { importa(); }));
  riga->addWidget(pulsante("C&hiudi", [this] { close(); }));
  return riquadro;
}

QString FinestraAssistente::occupata() const {
  if (!lavora() || !scrive_) return {};
  return QStringLiteral(
      "È in corso una scrittura. La finestra si può chiudere appena è finita, o dopo averla annullata.");
}

// Esc cancels what is being worked out, and closes the window otherwise; a writing is cancelled by its
// button.
bool FinestraAssistente::event(QEvent* event) {
  const bool tasto = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
  if (tasto && lavora() && !scrive_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    if (event->type() == QEvent::KeyPress) lavoro().annulla();
    event->accept();
    return true;
  }
  return Finestra::event(event);
}

// Esc closes a window: what was chosen so far is not given up by a key too many.
void FinestraAssistente::closeEvent(QCloseEvent* event) {
  const Passo passo = assistente_.passo();
  const bool aMeta = passo != Passo::Sorgente && passo != Passo::Esito && occupata().isEmpty();
  if (aMeta &&
      !conferma(QStringLiteral("Non è ancora stato importato nulla. Chiudendo, le scelte fatte fin qui "
                               "vanno perse."),
                QStringLiteral("C&hiudi lo stesso"))) {
    event->ignore();
    return;
  }
  Finestra::closeEvent(event);
}

QString FinestraAssistente::capitolo() const {
  return assistente_.fatture() ? QStringLiteral("Importare da fatture elettroniche")
                               : QStringLiteral("Importare da tabelle");
}

void FinestraAssistente::aggiungi(const QStringList& file) {
  if (file.isEmpty() || (lavora() && scrive_) || assistente_.passo() == Passo::Esito) return;
  std::vector<std::string> percorsi;
  for (const QString& uno : file) percorsi.push_back(uno.toStdString());
  assistente_.vai(Passo::Sorgente);
  assistente_.aggiungi(percorsi);
  sospeso_ = false;
  prosegui();
}

void FinestraAssistente::avanti() {
  if (lavora() || !assistente_.puoAvanzare()) return;
  // A day that was only written has its payments shown first.
  if (!paginaDelPasso()->conclude() || lavora()) return;
  assistente_.avanti();
  arrivato_ = true;
  risposta_->dici({});
  prosegui();
}

void FinestraAssistente::indietro() {
  if (lavora() || !assistente_.puoTornare()) return;
  assistente_.indietro();
  arrivato_ = true;
  sospeso_ = false;
  risposta_->dici({});
  prosegui();
}

void FinestraAssistente::vaiAlPasso(int quale) {
  const auto passo = static_cast<Passo>(quale);
  const bool avanti = passo > assistente_.passo();
  const bool puo = !lavora() && quale >= 0 && passo != assistente_.passo() &&
                   (!avanti || (passo <= assistente_.raggiunto() && paginaDelPasso()->conclude()));
  if (!puo || lavora()) {
    mostraPassi();
    return;
  }
  if (avanti) {
    meta_ = passo;
  } else {
    assistente_.vai(passo);
  }
  arrivato_ = true;
  sospeso_ = false;
  risposta_->dici({});
  prosegui();
}

void FinestraAssistente::apriStorico() {
  if (storico_ == nullptr) storico_ = new FinestraStorico(profilo_);
  storico_->annullata = [this, mia = QPointer<FinestraAssistente>(this)](std::int32_t lotto) {
    if (mia == nullptr) return;
    if (assistente_.passo() == Passo::Esito) {
      assistente_.annullata(lotto);
      if (!lavora()) mostra();
      return;
    }
    if (lavora()) return;
    assistente_.rileggiDatabase();
    assistente_.ripetiPiano();
    prosegui();
  };
  storico_->show();
  storico_->raise();
  storico_->activateWindow();
}

}  // namespace cu::assistente
