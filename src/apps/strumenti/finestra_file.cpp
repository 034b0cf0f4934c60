#include "apps/strumenti/finestra_file.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include "apps/strumenti/frase.h"
#include "apps/strumenti/ricerca.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/page_view.h"

namespace cu::strumenti {
namespace {

constexpr int kAttesaDisegno = 120;  // milliseconds without another choice
constexpr QSize kDimensioneFile(1320, 780);

}  // namespace

FinestraFile::FinestraFile(const QString& percorso, std::optional<Profilo> profilo)
    : Finestra(QStringLiteral("file")), profilo_(std::move(profilo)) {
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(testa());
  auto* const lati = new QSplitter(Qt::Horizontal, this);
  lati->setChildrenCollapsible(false);
  sinistri_ = new QSplitter(Qt::Vertical, lati);
  sinistri_->setChildrenCollapsible(false);
  sinistri_->addWidget(sinistra());
  // On a low screen the three parts scroll.
  auto* const scorre = new QScrollArea(lati);
  scorre->setFrameShape(QFrame::NoFrame);
  scorre->setWidgetResizable(true);
  scorre->setFocusPolicy(Qt::NoFocus);
  scorre->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  alti_ = new QSplitter(Qt::Vertical, scorre);
  alti_->setChildrenCollapsible(false);
  alti_->addWidget(destra());
  caselle_ = new Tabella(QStringLiteral("strumenti_caselle"), QStringLiteral("Caselle della certificazione"),
                         colonneCaselle(), alti_);
  caselle_->scelta = [this](auto quale) {
    if (quale && caselle_->hasFocus()) segnaCasella(*quale);
  };
  caselle_->aperta = [this](std::size_t quale) { segnaCasella(quale); };
  alti_->addWidget(caselle_);
  alti_->addWidget(sotto_ = sotto());
  scorre->setWidget(alti_);
  scorre->setMinimumWidth(alti_->minimumSizeHint().width() + scorre->fontMetrics().height());
  lati->addWidget(scorre);
  lati->setStretchFactor(0, 5);
  lati->setStretchFactor(1, 4);
  lati->setSizes({700, 620});
  alti_->setStretchFactor(0, 1);
  alti_->setSizes({330, 110, 250});
  colonna->addWidget(lati, 1);

  auto* const pulsanti = new QHBoxLayout;
  componiPulsanti(*pulsanti);
  colonna->addLayout(pulsanti);
  disegno_.setSingleShot(true);
  disegno_.setInterval(kAttesaDisegno);
  connect(&disegno_, &QTimer::timeout, this, [this] { disegnaCertificato(); });
  accettaFile(this, [this](const QStringList& file) { apri(file.first()); });
  ricordaPosto({lati, alti_}, kDimensioneFile);
  apri(percorso);
}

// In a low window the findings are below the certificates, so that there is room for the form.
void FinestraFile::disponi(bool bassa) {
  if (bassa == bassa_) return;
  bassa_ = bassa;
  if (bassa) {
    divisi_ = alti_->saveState();
    sinistri_->addWidget(sotto_);
    sinistri_->setStretchFactor(0, 1);
    alti_->setSizes({height(), 0});
  } else {
    alti_->addWidget(sotto_);
    alti_->restoreState(divisi_);
  }
  sotto_->show();
}

void FinestraFile::resizeEvent(QResizeEvent* event) {
  Finestra::resizeEvent(event);
  // In a window that is lower still both columns could not be whole: there the right one scrolls.
  constexpr int kRigheBassa = 44;
  constexpr int kRigheMinime = 30;
  const int righe = height() / fontMetrics().height();
  disponi(righe < kRigheBassa && righe >= kRigheMinime);
}

// What is remembered of the parts is that of a high window.
void FinestraFile::closeEvent(QCloseEvent* event) {
  const bool bassa = bassa_;
  disponi(false);
  Finestra::closeEvent(event);
  if (!event->isAccepted()) disponi(bassa);
}

void FinestraFile::componiPulsanti(QHBoxLayout& riga) {
  riga.addWidget(pulsante(
      "&Apri…", [this] { chiedeFile(); }, QKeySequence::Open));
  riga.addWidget(conFile_ = pulsante("Con&fronta con…", [this] { confrontaFile(); }));
  riga.addWidget(conConti_ = pulsante("Confronta con i con&ti…", [this] { confrontaConti(); }));
  conConti_->setVisible(profilo_.has_value());
  riga.addStretch(1);
  riga.addWidget(esporta_ = pulsante("E&sporta…", [this] { esporta(); }));
  riga.addWidget(pulsante(
      "&Ricarica", [this] { apri(percorso_); }, QKeySequence(Qt::Key_F5)));
  riga.addWidget(pulsante("&Chiudi", [this] { close(); }));
}

QWidget* FinestraFile::testa() {
  auto* const riquadro = new QWidget(this);
  auto* const colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  testa_ = new Frase(riquadro);
  avviso_ = new Frase(riquadro);
  for (QWidget* uno :
       {static_cast<QWidget*>(testa_), static_cast<QWidget*>(avviso_), static_cast<QWidget*>(attesa())})
    colonna->addWidget(uno);
  return riquadro;
}

QWidget* FinestraFile::sinistra() {
  auto* const riquadro = new QWidget(this);
  auto* const colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  ricerca_ = new Ricerca(riquadro);
  soloRilievi_ = new QCheckBox(QStringLiteral("Solo con ri&lievi"), ricerca_);
  quanti_ = new QLabel(ricerca_);
  ricerca_->metti(soloRilievi_);
  ricerca_->metti(quanti_);
  ricerca_->cambiata = [this] { mostraTesta(); };
  connect(soloRilievi_, &QCheckBox::toggled, ricerca_, &Ricerca::applica);
  colonna->addWidget(ricerca_);
  certificati_ = new Tabella(QStringLiteral("strumenti_certificati"), QStringLiteral("Certificazioni"),
                             colonneCertificati(), riquadro);
  certificati_->filtro().passa = [this](std::size_t riga) { return passa(riga); };
  certificati_->scelta = [this](auto quale) { mostraCertificato(quale); };
  ricerca_->serve(certificati_);
  colonna->addWidget(certificati_, 1);
  return riquadro;
}

QWidget* FinestraFile::destra() {
  modulo_ = new desktop::PageView(this);
  return modulo_;
}

QWidget* FinestraFile::sotto() {
  auto* const riquadro = new QWidget(this);
  auto* const colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  auto* const riga = new QHBoxLayout;
  auto* const etichetta = new QLabel(QStringLiteral("Rilie&vi"), riquadro);
  diChi_ = new QComboBox(riquadro);
  diChi_->addItems({QStringLiteral("della certificazione scelta"), QStringLiteral("tutti")});
  diChi_->setAccessibleName(QStringLiteral("Quali rilievi mostrare"));
  etichetta->setBuddy(diChi_);
  riga->addWidget(etichetta);
  riga->addWidget(diChi_);
  riga->addStretch(1);
  colonna->addLayout(riga);
  altri_ = new Frase(riquadro);
  colonna->addWidget(altri_);
  rilievi_ =
      new Tabella(QStringLiteral("strumenti_rilievi"), QStringLiteral("Rilievi"), colonneRilievi(), riquadro);
  rilievi_->filtro().passa = [this](std::size_t rilievo) {
    if (diChi_->currentIndex() == 1 || file_ == nullptr) return true;
    const auto quale = certificatoDelRilievo(rilievo);
    return !quale || quale == quale_;
  };
  rilievi_->scelta = [this](auto quale) {
    mostraTratto(quale);
    if (quale && rilievi_->hasFocus() && certificatoDelRilievo(*quale) == quale_) segnaRilievo(*quale);
  };
  rilievi_->aperta = [this](std::size_t quale) { vaiAlRilievo(quale); };
  connect(diChi_, &QComboBox::currentIndexChanged, this, [this] { filtraRilievi(); });
  colonna->addWidget(rilievi_, 1);
  detto_ = new Frase(riquadro);
  colonna->addWidget(detto_);
  tratto_ = new QPlainTextEdit(riquadro);
  tratto_->setReadOnly(true);
  tratto_->setTabChangesFocus(true);
  tratto_->setLineWrapMode(QPlainTextEdit::NoWrap);
  tratto_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  tratto_->setFixedHeight(tratto_->fontMetrics().height() * 3 + 12);
  tratto_->setAccessibleName(QStringLiteral("Il tratto della riga"));
  tratto_->hide();
  detto_->hide();
  colonna->addWidget(tratto_);
  return riquadro;
}

void FinestraFile::apri(const QString& percorso) {
  if (lavora()) return;
  percorso_ = percorso;
  setWindowTitle(QFileInfo(percorso).fileName());
  testa_->dici(QStringLiteral("Lettura di %1").arg(percorso));
  avviso_->dici({});
  auto letto = std::make_shared<FileEsaminato>();
  esegui({.che = QStringLiteral("Lettura del file…"),
          .lavoro =
              [this, letto, dove = percorso.toStdString()] {
                *letto = FileEsaminato::leggi(
                    dove, [this](const char* che, std::uint64_t fatto, std::uint64_t totale) {
                      lavoro().avanza(che, fatto, totale);
                    });
              },
          .finito =
              [this, letto](const Lavoro::Esito& esito) {
                const bool riletto = file_ != nullptr && qs(file_->percorso()) == percorso_;
                if (esito.errore.isEmpty() && !esito.interrotto) {
                  file_ = letto;
                } else if (!riletto) {
                  file_ = std::make_shared<FileEsaminato>();
                }
                mostra();
                if (esito.interrotto) {
                  avviso_->dici(
                      QStringLiteral("La lettura è stata interrotta. Con Ricarica (F5) si ricomincia."));
                } else if (!esito.errore.isEmpty()) {
                  avviso_->dici(esito.errore);
                }
              }});
}

}  // namespace cu::strumenti
