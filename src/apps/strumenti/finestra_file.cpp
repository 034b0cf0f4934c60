#include "apps/strumenti/finestra_file.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "apps/strumenti/casella_cerca.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/page_view.h"
#include "desktop/text.h"

namespace cu::strumenti {
namespace {

constexpr int kAttesaDisegno = 120;  // milliseconds without another choice
constexpr QSize kDimensioneFile(1320, 720);

}  // namespace

FinestraFile::FinestraFile(const QString& percorso, std::optional<Profilo> profilo)
    : Finestra(QStringLiteral("file")), profilo_(std::move(profilo)), lavoro_(nullptr) {
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(testa());
  auto* const lati = new QSplitter(Qt::Horizontal, this);
  lati->setChildrenCollapsible(false);
  auto* const sinistra = new QWidget(lati);
  auto* const elenco = new QVBoxLayout(sinistra);
  elenco->setContentsMargins(0, 0, 0, 0);
  elenco->addWidget(ricerca());
  certificati_ = new Tabella(QStringLiteral("strumenti_certificati"), QStringLiteral("Certificazioni"),
                             colonneCertificati(), sinistra);
  certificati_->filtro().passa = [this](std::size_t riga) { return passa(riga); };
  certificati_->scelta = [this](auto quale) { mostraCertificato(quale); };
  elenco->addWidget(certificati_, 1);
  lati->addWidget(sinistra);
  // On a low screen the three parts scroll.
  auto* const scorre = new QScrollArea(lati);
  scorre->setFrameShape(QFrame::NoFrame);
  scorre->setWidgetResizable(true);
  scorre->setFocusPolicy(Qt::NoFocus);
  auto* const alti = new QSplitter(Qt::Vertical, scorre);
  alti->setChildrenCollapsible(false);
  alti->addWidget(destra());
  caselle_ = new Tabella(QStringLiteral("strumenti_caselle"), QStringLiteral("Caselle della certificazione"),
                         colonneCaselle(), alti);
  alti->addWidget(caselle_);
  alti->addWidget(sotto());
  scorre->setWidget(alti);
  lati->addWidget(scorre);
  lati->setStretchFactor(0, 5);
  lati->setStretchFactor(1, 4);
  lati->setSizes({700, 620});
  alti->setStretchFactor(0, 1);
  alti->setSizes({360, 120, 160});
  colonna->addWidget(lati, 1);

  auto* const pulsanti = new QHBoxLayout;
  pulsanti->addWidget(pulsante(
      "&Apri…", [this] { chiedeFile(); }, QKeySequence::Open));
  pulsanti->addWidget(conFile_ = pulsante("Con&fronta con…", [this] { confrontaFile(); }));
  pulsanti->addWidget(conConti_ = pulsante("Confronta con i con&ti…", [this] { confrontaConti(); }));
  conConti_->setVisible(profilo_.has_value());
  pulsanti->addStretch(1);
  pulsanti->addWidget(esporta_ = pulsante("E&sporta…", [this] { esporta(); }));
  pulsanti->addWidget(pulsante(
      "&Ricarica", [this] { apri(percorso_); }, QKeySequence(Qt::Key_F5)));
  pulsanti->addWidget(pulsante("&Chiudi", [this] { close(); }));
  colonna->addLayout(pulsanti);

  disegno_.setSingleShot(true);
  disegno_.setInterval(kAttesaDisegno);
  connect(&disegno_, &QTimer::timeout, this, [this] { disegnaCertificato(); });
  lavoro_.avanzamento = [this](std::uint64_t fatto, std::uint64_t totale) {
    constexpr int kMille = 1000;
    barra_->setRange(0, totale == 0 ? 0 : kMille);
    if (totale > 0) barra_->setValue(static_cast<int>(fatto * kMille / totale));
  };
  accettaFile(this, [this](const QStringList& file) { apri(file.first()); });
  ricordaPosto({lati, alti}, kDimensioneFile);
  apri(percorso);
}

QWidget* FinestraFile::testa() {
  auto* const riquadro = new QWidget(this);
  auto* const colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  const auto scritta = [&] {
    auto* const fatta = new QLabel(riquadro);
    fatta->setTextFormat(Qt::PlainText);
    fatta->setWordWrap(true);
    fatta->setTextInteractionFlags(Qt::TextSelectableByMouse);
    colonna->addWidget(fatta);
    return fatta;
  };
  testa_ = scritta();
  avviso_ = scritta();
  attesa_ = new QWidget(riquadro);
  auto* const riga = new QHBoxLayout(attesa_);
  riga->setContentsMargins(0, 0, 0, 0);
  barra_ = new QProgressBar(attesa_);
  barra_->setAccessibleName(QStringLiteral("Lettura del file"));
  riga->addWidget(barra_, 1);
  riga->addWidget(pulsante("Interr&ompi", [this] { lavoro_.annulla(); }));
  colonna->addWidget(attesa_);
  return riquadro;
}

QWidget* FinestraFile::ricerca() {
  auto* const riquadro = new QWidget(this);
  auto* const riga = new QHBoxLayout(riquadro);
  riga->setContentsMargins(0, 0, 0, 0);
  auto* const etichetta = new QLabel(QStringLiteral("C&erca"), riquadro);
  cerca_ = new CasellaCerca(riquadro);
  cerca_->setClearButtonEnabled(true);
  cerca_->setPlaceholderText(QStringLiteral("codice fiscale, nome o causale"));
  cerca_->setAccessibleName(QStringLiteral("Cerca fra le certificazioni"));
  etichetta->setBuddy(cerca_);
  soloRilievi_ = new QCheckBox(QStringLiteral("Solo con ri&lievi"), riquadro);
  quanti_ = new QLabel(riquadro);
  riga->addWidget(etichetta);
  riga->addWidget(cerca_, 1);
  riga->addWidget(soloRilievi_);
  riga->addWidget(quanti_);
  const auto filtra = [this] {
    cercato_ = desktop::folded(cerca_->text().trimmed());
    certificati_->riapplicaFiltro();
    mostraTesta();
  };
  connect(cerca_, &QLineEdit::textChanged, this, filtra);
  connect(cerca_, &QLineEdit::returnPressed, this, [this] { certificati_->setFocus(); });
  connect(soloRilievi_, &QCheckBox::toggled, this, filtra);
  auto* const trova = new QShortcut(QKeySequence::Find, this);
  connect(trova, &QShortcut::activated, this, [this] {
    cerca_->setFocus();
    cerca_->selectAll();
  });
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
  diChi_->addItems({QStringLiteral("della certificazione"), QStringLiteral("di tutto il file")});
  diChi_->setAccessibleName(QStringLiteral("Quali rilievi mostrare"));
  etichetta->setBuddy(diChi_);
  altri_ = new QLabel(riquadro);
  altri_->setTextFormat(Qt::PlainText);
  altri_->setMinimumWidth(0);
  riga->addWidget(etichetta);
  riga->addWidget(diChi_);
  riga->addWidget(altri_, 1);
  colonna->addLayout(riga);
  rilievi_ =
      new Tabella(QStringLiteral("strumenti_rilievi"), QStringLiteral("Rilievi"), colonneRilievi(), riquadro);
  rilievi_->filtro().passa = [this](std::size_t rilievo) {
    if (diChi_->currentIndex() == 1 || file_ == nullptr) return true;
    return quale_.has_value() && file_->certificatoDi(file_->rilievi()[rilievo].riga) == quale_;
  };
  rilievi_->scelta = [this](auto quale) { mostraTratto(quale); };
  rilievi_->aperta = [this](std::size_t quale) { vaiAlRilievo(quale); };
  connect(diChi_, &QComboBox::currentIndexChanged, this, [this] { filtraRilievi(); });
  colonna->addWidget(rilievi_, 1);
  detto_ = new QLabel(riquadro);
  detto_->setTextFormat(Qt::PlainText);
  detto_->setWordWrap(true);
  detto_->setTextInteractionFlags(Qt::TextSelectableByMouse);
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
  if (lavoro_.inCorso()) return;
  percorso_ = percorso;
  setWindowTitle(QFileInfo(percorso).fileName());
  testa_->setText(QStringLiteral("Lettura di %1").arg(percorso));
  avviso_->hide();
  attesa_->show();
  barra_->setRange(0, 0);
  auto letto = std::make_shared<FileEsaminato>();
  lavoro_.avvia(
      [this, letto, dove = percorso.toStdString()] {
        *letto = FileEsaminato::leggi(
            dove, [this](std::uint64_t fatto, std::uint64_t totale) { lavoro_.avanza(fatto, totale); });
      },
      [this, letto](const Lavoro::Esito& esito) {
        attesa_->hide();
        const bool riletto = file_ != nullptr && qs(file_->percorso()) == percorso_;
        if (esito.errore.isEmpty() && !esito.interrotto) {
          file_ = letto;
        } else if (!riletto) {
          file_ = std::make_shared<FileEsaminato>();
        }
        mostra();
        if (esito.interrotto) {
          avviso_->setText(QStringLiteral("La lettura è stata interrotta. Con Ricarica (F5) si ricomincia."));
        } else if (!esito.errore.isEmpty()) {
          avviso_->setText(esito.errore);
        }
        avviso_->setVisible(!avviso_->text().isEmpty());
      });
}

}  // namespace cu::strumenti
