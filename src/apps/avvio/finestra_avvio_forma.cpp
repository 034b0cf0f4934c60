// The layout of the start window, and its size.

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/avvio/finestra_avvio.h"
#include "apps/strumenti/copia_archivio.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/strumenti.h"
#include "desktop/about.h"
#include "desktop/flow_row.h"
#include "desktop/hint.h"
#include "desktop/look_menu.h"
#include "desktop/section.h"
#include "desktop/text.h"

namespace cu {
namespace {

constexpr std::int32_t kContiIndividuali = 246;
constexpr std::int32_t kCertificazioni = 247;
constexpr int kUtenteMassimo = 999999;
constexpr int kLarghezzaAvvio = 700;
constexpr int kCorniceAvvio = 24;  // the title and the frame of the window, about
constexpr int kCasellaMinima = 120;
constexpr int kLettereAzienda = 20;

}  // namespace

void FinestraAvvio::componiInizio(QVBoxLayout& colonna) {
  auto* const inizio = new desktop::Section(QStringLiteral("Per cominciare"), this);
  auto* const righe = new QGridLayout(inizio);
  righe->setColumnStretch(0, 1);
  const auto riga = [&](const char* testo, const char* pulsante, auto fai) {
    auto* const spiega = new QLabel(QString::fromUtf8(testo), inizio);
    spiega->setWordWrap(true);
    const int quale = righe->rowCount();
    righe->addWidget(spiega, quale, 0, 1, pulsante == nullptr ? 2 : 1);
    if (pulsante == nullptr) return spiega;
    auto* const fatto = new QPushButton(QString::fromUtf8(pulsante), inizio);
    fatto->setAutoDefault(false);
    righe->addWidget(fatto, quale, 1);
    connect(fatto, &QPushButton::clicked, this, fai);
    return spiega;
  };
  prova_ = riga("", nullptr, [] {});
  dettaProva();
  riga("Per tenere qui i propri dati: aziende, percipienti e compensi, scritti a mano o importati.",
       "Nuovo arc&hivio…", [this] { nuovoArchivio(); });
  riga("Con i dati della suite contabile: il suo database, su un server.", "Collega server...",
       [this] { scegliServer(server_); });
  colonna.addWidget(inizio);
}

void FinestraAvvio::dettaProva() {
  if (prova_ == nullptr) return;
  prova_->setText(
      database_.isEmpty() && !staAlServer()
          ? QStringLiteral("Per provare: sotto è già scelto un database dimostrativo, con "
                           "un'azienda inventata. Basta premere «Avvia».")
          : QStringLiteral("Per provare: «Dimostrativo», qui sotto, riprende il database di prova, "
                           "con un'azienda inventata."));
}

void FinestraAvvio::componiModi(QVBoxLayout& colonna, std::int32_t scelta) {
  auto* modi = new desktop::Section(QStringLiteral("Che cosa stampare"), this);
  auto* righe = new QVBoxLayout(modi);
  const auto modo = [&](const char* testo, std::int32_t funzione) {
    auto* scelto = new QRadioButton(QString::fromUtf8(testo), modi);
    funzioni_->addButton(scelto, funzione);
    scelto->setChecked(funzione == scelta);
    righe->addWidget(scelto);
  };
  modo("&Certificazioni dei compensi e Certificazione Unica", kCertificazioni);
  modo("Conti &individuali", kContiIndividuali);
  if (funzioni_->checkedId() < 0) funzioni_->button(kCertificazioni)->setChecked(true);
  colonna.addWidget(modi);
}

void FinestraAvvio::componiModulo(QVBoxLayout& colonna, const SceltaAvvio& scelta) {
  auto* modulo = new QFormLayout;
  modulo->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  modulo->setRowWrapPolicy(QFormLayout::WrapLongRows);
  const auto conPulsanti = [](QLineEdit* casella, std::initializer_list<QPushButton*> pulsanti) {
    casella->setReadOnly(true);
    casella->setMinimumWidth(kCasellaMinima);
    auto* riga = new QHBoxLayout;
    riga->addWidget(casella, 1, Qt::AlignTop);
    auto* fila = new desktop::FlowRow;
    for (QPushButton* pulsante : pulsanti) {
      pulsante->setAutoDefault(false);
      fila->addWidget(pulsante);
    }
    riga->addLayout(fila);
    return riga;
  };
  collega_ = new QPushButton(QStringLiteral("Colle&ga server..."), this);
  sfoglia_ = new QPushButton(QStringLiteral("&Sfoglia..."), this);
  sfoglia_->setAccessibleName(QStringLiteral("Sfoglia il database"));
  auto* sfogliaDocumenti = new QPushButton(QStringLiteral("S&foglia..."), this);
  sfogliaDocumenti->setAccessibleName(QStringLiteral("Sfoglia i documenti ministeriali"));
  utente_->setRange(1, kUtenteMassimo);
  utente_->setValue(scelta.utente);
  const auto etichetta = [this](const char* testo, QWidget* di) {
    auto* fatta = new QLabel(QString::fromUtf8(testo), this);
    fatta->setBuddy(di);
    return fatta;
  };
  modulo->addRow(etichetta("Da&tabase", sfoglia_),
                 conPulsanti(casellaDatabase_, {recenti_, dimostrativo_, sfoglia_, collega_}));
  componiRecenti();
  modulo->addRow(QStringLiteral("A&zienda"), aziende_);
  modulo->addRow(QStringLiteral("&Utente"), utente_);
  connect(moduli_, &QCheckBox::clicked, this, [this](bool scelti) { scegliModuli(scelti); });
  moduli_->setToolTip(
      desktop::sentenceTip(QStringLiteral("I compensi dal 2019 al 2025 nei moduli pubblicati per il loro "
                                          "anno. Quei moduli sono noti da altri programmi e "
                                          "da elenchi, non da un testo ufficiale: ciò che non è attestato "
                                          "non si scrive, e il controllo lo elenca. Senza "
                                          "la spunta quegli anni si scrivono nel modello del 2018.")));
  auto* const spiegati = new QLabel(QStringLiteral("Ciò che non è attestato non si scrive.\n"
                                                   "Senza la spunta vale il modello del 2018."),
                                    this);
  spiegati->setForegroundRole(QPalette::PlaceholderText);
  auto* const anni = new QVBoxLayout;
  anni->setSpacing(0);
  anni->addWidget(moduli_);
  anni->addWidget(spiegati);
  modulo->addRow(etichetta("Moduli", moduli_), anni);
  modulo->addRow(etichetta("Documenti &ministeriali", sfogliaDocumenti),
                 conPulsanti(documenti_, {sfogliaDocumenti}));
  casellaDatabase_->setAccessibleName(QStringLiteral("Database"));
  aziende_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  aziende_->setMinimumContentsLength(kLettereAzienda);
  aziende_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  aziende_->setAccessibleName(QStringLiteral("Azienda"));
  utente_->setAccessibleName(QStringLiteral("Utente"));
  documenti_->setAccessibleName(QStringLiteral("Documenti ministeriali"));
  desktop::setHint(*documenti_, QStringLiteral("cartella con istruzioni e note di compilazione"));
  documenti_->setText(scelta.documentiMinisteriali);
  colonna.addLayout(modulo);
  avviso_->setTextFormat(Qt::PlainText);
  avviso_->setWordWrap(true);
  avviso_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  colonna.addWidget(avviso_);
  connect(collega_, &QPushButton::clicked, this, [this] { scegliServer(server_); });
  connect(sfoglia_, &QPushButton::clicked, this, [this] { scegliDatabase(); });
  connect(sfogliaDocumenti, &QPushButton::clicked, this, [this] { scegliDocumenti(); });
  connect(dimostrativo_, &QPushButton::clicked, this, [this] { usaDatabase({}); });
}

void FinestraAvvio::componiRecenti() {
  auto* const menu = new QMenu(recenti_);
  recenti_->setMenu(menu);
  recenti_->setEnabled(!databaseRecenti().isEmpty());
  connect(menu, &QMenu::aboutToShow, this, [this, menu] {
    menu->clear();
    for (const QString& database : databaseRecenti()) {
      if (database.startsWith(kRecenteServer)) {
        const ServerAvvio suo{database.sliced(kRecenteServer.size()), true};
        QAction* const voce = menu->addAction(suo.nome().replace(u'&', QStringLiteral("&&")));
        voce->setEnabled(suo.testo != server_.testo);
        connect(voce, &QAction::triggered, this, [this, suo] { scegliServer(suo); });
        continue;
      }
      const QFileInfo file(database);
      QAction* const voce = menu->addAction(QStringLiteral("%1 (%2)")
                                                .arg(file.fileName(), file.absolutePath())
                                                .replace(u'&', QStringLiteral("&&")));
      voce->setEnabled(database != database_);
      connect(voce, &QAction::triggered, this, [this, database] { usaDatabase(database); });
    }
  });
}

void FinestraAvvio::componiPulsanti(QVBoxLayout& colonna) {
  piede_ = new QWidget(this);
  auto* const riga = new QHBoxLayout(piede_);
  riga->setContentsMargins(0, 0, 0, 0);
  auto* const altri = new desktop::FlowRow;
  const auto altro = [&](const char* testo) {
    auto* const pulsante = new QPushButton(QString::fromUtf8(testo), piede_);
    pulsante->setAutoDefault(false);
    altri->addWidget(pulsante);
    return pulsante;
  };
  strumenti_ = altro("St&rumenti");
  componiStrumenti();
  datiPropri_ = altro("Dati &propri");
  componiDatiPropri();
  auto* const aspetto = altro("Asp&etto");
  auto* const menu = new QMenu(aspetto);
  desktop::fillLookMenu(*menu);
  aspetto->setMenu(menu);
  salva_ = altro("Sa&lva come profilo…");
  const auto* const informazioni = altro("Inform&azioni");
  riga->addLayout(altri, 1);
  auto* const pulsanti = new QDialogButtonBox(piede_);
  avvia_ = pulsanti->addButton(QStringLiteral("A&vvia"), QDialogButtonBox::AcceptRole);
  pulsanti->addButton(QStringLiteral("Annulla"), QDialogButtonBox::RejectRole);
  avvia_->setDefault(true);
  riga->addWidget(pulsanti, 0, Qt::AlignBottom);
  colonna.addWidget(piede_);
  connect(pulsanti, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connect(pulsanti, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connect(salva_, &QPushButton::clicked, this, [this] { salvaComeProfilo(); });
  connect(informazioni, &QPushButton::clicked, this, [this] { desktop::showAbout(this); });
}

void FinestraAvvio::componiStrumenti() {
  auto* const menu = new QMenu(strumenti_);
  const QAction* const apri = menu->addAction(QStringLiteral("&Apri un file telematico…"));
  const QAction* const confronta = menu->addAction(QStringLiteral("&Confronta due file…"));
  stato_ = menu->addAction(QStringLiteral("&Stato degli invii…"));
  quadro_ = menu->addAction(QStringLiteral("&Quadro delle aziende…"));
  menu->addSeparator();
  copia_ = menu->addAction(QStringLiteral("Copia di sicure&zza…"));
  const QAction* const ripristino = menu->addAction(QStringLiteral("&Ripristina una copia…"));
  strumenti_->setMenu(menu);
  connect(apri, &QAction::triggered, this, [this] {
    const QString scelto = strumenti::scegliFile(this, QStringLiteral("Apri un file telematico"));
    if (!scelto.isEmpty()) strumenti::apriFile(scelto, profilo());
  });
  connect(confronta, &QAction::triggered, this, [this] {
    const QString vecchio = strumenti::scegliFile(this, QStringLiteral("Il file vecchio"));
    if (vecchio.isEmpty()) return;
    const QString nuovo = strumenti::scegliFile(this, QStringLiteral("Il file nuovo"), vecchio);
    if (!nuovo.isEmpty()) strumenti::apriConfronto(vecchio, nuovo);
  });
  connect(stato_, &QAction::triggered, this, [this] {
    if (const auto scelto = profilo()) strumenti::apriStato(*scelto);
  });
  connect(quadro_, &QAction::triggered, this, [this] {
    if (const auto scelto = profilo()) strumenti::apriTabellone(*scelto);
  });
  connect(copia_, &QAction::triggered, this,
          [this] { strumenti::faiCopia(this, scelta().suo(cartelle_.databaseDimostrativo())); });
  connect(ripristino, &QAction::triggered, this, [this] { ripristina(); });
  strumenti::accettaFile(this, [this](const QStringList& file) {
    for (const QString& uno : file) strumenti::apriFile(uno, profilo());
  });
}

void FinestraAvvio::componiDatiPropri() {
  auto* const menu = new QMenu(datiPropri_);
  gestisci_ = menu->addAction(QStringLiteral("&Aziende, percipienti e compensi…"));
  importa_ = menu->addAction(QStringLiteral("&Importa da tabelle e fatture…"));
  const QAction* const nuovo = menu->addAction(QStringLiteral("&Nuovo archivio…"));
  datiPropri_->setMenu(menu);
  connect(gestisci_, &QAction::triggered, this, [this] { gestisci(); });
  connect(importa_, &QAction::triggered, this, [this] { importa(); });
  connect(nuovo, &QAction::triggered, this, [this] { nuovoArchivio(); });
}

QSize FinestraAvvio::misura() const {
  const QMargins margini = layout()->contentsMargins();
  const int aiLati = margini.left() + margini.right();
  const QSize schermo = screen()->availableSize() - QSize(kCorniceAvvio, kCorniceAvvio);
  const int voluto =
      std::max({kLarghezzaAvvio, contenuto_->minimumSizeHint().width(), piede_->sizeHint().width()}) + aiLati;
  const int largo = std::min(schermo.width(), voluto);
  const int alto = contenuto_->layout()->totalHeightForWidth(largo - aiLati) +
                   piede_->layout()->totalHeightForWidth(largo - aiLati) + layout()->spacing() +
                   margini.top() + margini.bottom();
  return {largo, std::min(schermo.height(), alto)};
}

// A longer text is not left below the edge.
void FinestraAvvio::avvisa(const QString& testo) {
  avviso_->setText(testo);
  if (!testo.isEmpty() && isVisible()) resize(width(), std::max(height(), misura().height()));
}

// Larger letters take more room; the layouts learn of them first.
void FinestraAvvio::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  QTimer::singleShot(0, this, [this] {
    if (isVisible()) resize(misura());
  });
}

}  // namespace cu
