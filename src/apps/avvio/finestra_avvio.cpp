#include "apps/avvio/finestra_avvio.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

#include "apps/assistente/importazione_guidata.h"
#include "apps/avvio/gestione_aperta.h"
#include "apps/avvio/messaggio_avvio.h"
#include "apps/comune/parole_database.h"
#include "apps/esame/operazioni_registro.h"
#include "apps/strumenti/copia_archivio.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/strumenti.h"
#include "desktop/file_dialog.h"
#include "desktop/look_menu.h"
#include "desktop/section.h"
#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu {
namespace {

constexpr std::int32_t kContiIndividuali = 246;
constexpr std::int32_t kCertificazioni = 247;
constexpr int kUtenteMassimo = 999999;

}  // namespace

FinestraAvvio::FinestraAvvio(const SceltaAvvio& scelta, const CartelleAvvio& cartelle)
    : cartelle_(cartelle),
      database_(scelta.database),
      casellaDatabase_(new QLineEdit(this)),
      dimostrativo_(new QPushButton(QStringLiteral("&Dimostrativo"), this)),
      recenti_(new QPushButton(QStringLiteral("Rece&nti"), this)),
      aziende_(new QComboBox(this)),
      utente_(new QSpinBox(this)),
      moduli_(
          new QCheckBox(QStringLiteral("Moduli pubblicati per &ogni anno dal 2019 (non ufficiali)"), this)),
      funzioni_(new QButtonGroup(this)),
      documenti_(new QLineEdit(this)),
      avviso_(new QLabel(this)) {
  setWindowTitle(QStringLiteral("Avvio"));
  auto* colonna = new QVBoxLayout(this);
  componiModi(*colonna, scelta.funzione);
  componiModulo(*colonna, scelta);
  componiPulsanti(*colonna);
  desktop::tellWhole(*casellaDatabase_);
  desktop::tellWhole(*documenti_);
  desktop::tellWhole(*aziende_);
  desktop::addGuideKeys(this, [this](const QString& quale) {
    desktop::openGuide(guida_, this, cartelle_.guida,
                       quale.isEmpty() ? QStringLiteral("Avviare la procedura") : quale);
  });
  setMinimumWidth(640);
  leggiAziende();
  const int ultima = aziende_->findData(scelta.azienda);
  if (ultima >= 0) aziende_->setCurrentIndex(ultima);
  // Without any company there is one thing to do.
  (elenco_.empty() && gestisci_->isEnabled() ? datiPropri_ : avvia_)->setFocus();
}

FinestraAvvio::~FinestraAvvio() = default;

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
  const auto conPulsanti = [this](QLineEdit* casella, std::initializer_list<QPushButton*> pulsanti) {
    casella->setReadOnly(true);
    auto* riga = new QHBoxLayout;
    riga->addWidget(casella, 1);
    for (QPushButton* pulsante : pulsanti) {
      pulsante->setAutoDefault(false);
      riga->addWidget(pulsante);
    }
    return riga;
  };
  auto* sfogliaDatabase = new QPushButton(QStringLiteral("&Sfoglia..."), this);
  sfogliaDatabase->setAccessibleName(QStringLiteral("Sfoglia il database"));
  auto* sfogliaDocumenti = new QPushButton(QStringLiteral("S&foglia..."), this);
  sfogliaDocumenti->setAccessibleName(QStringLiteral("Sfoglia i documenti ministeriali"));
  utente_->setRange(1, kUtenteMassimo);
  utente_->setValue(scelta.utente);
  const auto etichetta = [this](const char* testo, QWidget* di) {
    auto* fatta = new QLabel(QString::fromUtf8(testo), this);
    fatta->setBuddy(di);
    return fatta;
  };
  modulo->addRow(etichetta("Da&tabase", sfogliaDatabase),
                 conPulsanti(casellaDatabase_, {recenti_, dimostrativo_, sfogliaDatabase}));
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
  aziende_->setAccessibleName(QStringLiteral("Azienda"));
  utente_->setAccessibleName(QStringLiteral("Utente"));
  documenti_->setAccessibleName(QStringLiteral("Documenti ministeriali"));
  documenti_->setPlaceholderText(QStringLiteral("cartella con istruzioni e note di compilazione"));
  documenti_->setText(scelta.documentiMinisteriali);
  colonna.addLayout(modulo);
  avviso_->setTextFormat(Qt::PlainText);
  avviso_->setWordWrap(true);
  colonna.addWidget(avviso_);
  connect(sfogliaDatabase, &QPushButton::clicked, this, [this] { scegliDatabase(); });
  connect(sfogliaDocumenti, &QPushButton::clicked, this, [this] { scegliDocumenti(); });
  connect(dimostrativo_, &QPushButton::clicked, this, [this] { usaDatabase({}); });
}

// The menu is filled as it opens: a database may be gone, or another one in use.
void FinestraAvvio::componiRecenti() {
  auto* const menu = new QMenu(recenti_);
  recenti_->setMenu(menu);
  recenti_->setEnabled(!databaseRecenti().isEmpty());
  connect(menu, &QMenu::aboutToShow, this, [this, menu] {
    menu->clear();
    for (const QString& database : databaseRecenti()) {
      const QFileInfo file(database);
      QAction* const voce = menu->addAction(QStringLiteral("%1 (%2)")
                                                .arg(file.fileName(), file.absolutePath())
                                                .replace(u'&', QStringLiteral("&&")));
      voce->setEnabled(database != database_);
      connect(voce, &QAction::triggered, this, [this, database] { usaDatabase(database); });
    }
  });
}

void FinestraAvvio::usaDatabase(const QString& database) {
  database_ = database;
  leggiAziende();
}

QString FinestraAvvio::vociAzienda(const AziendaAvvio& azienda) const {
  QString voce = QString::fromStdString(azienda.nome);
  if (!azienda.codiceFiscale.empty())
    voce += QStringLiteral(" - ") + QString::fromStdString(azienda.codiceFiscale);
  QString anno = annoRicordato(database_, azienda.azienda);
  if (anno.isEmpty()) anno = QString::fromStdString(azienda.ultimoAnno);
  return anno.isEmpty() ? voce : voce + QStringLiteral(" - anno ") + anno;
}

void FinestraAvvio::componiPulsanti(QVBoxLayout& colonna) {
  auto* pulsanti = new QDialogButtonBox(this);
  avvia_ = pulsanti->addButton(QStringLiteral("A&vvia"), QDialogButtonBox::AcceptRole);
  pulsanti->addButton(QStringLiteral("Annulla"), QDialogButtonBox::RejectRole);
  avvia_->setDefault(true);
  strumenti_ = pulsanti->addButton(QStringLiteral("St&rumenti"), QDialogButtonBox::ResetRole);
  strumenti_->setAutoDefault(false);
  componiStrumenti();
  datiPropri_ = pulsanti->addButton(QStringLiteral("Dati &propri"), QDialogButtonBox::ResetRole);
  datiPropri_->setAutoDefault(false);
  componiDatiPropri();
  auto* const aspetto = pulsanti->addButton(QStringLiteral("Asp&etto"), QDialogButtonBox::ResetRole);
  aspetto->setAutoDefault(false);
  auto* const menu = new QMenu(aspetto);
  desktop::fillLookMenu(*menu);
  aspetto->setMenu(menu);
  colonna.addWidget(pulsanti);
  connect(pulsanti, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connect(pulsanti, &QDialogButtonBox::rejected, this, [this] { reject(); });
}

// A database that cannot be opened is reported here, so that the user can choose another one.
void FinestraAvvio::leggiAziende() {
  casellaDatabase_->setText(database_.isEmpty() ? QStringLiteral("Dimostrativo") : database_);
  dimostrativo_->setEnabled(!database_.isEmpty());
  aziende_->clear();
  elenco_.clear();
  avviso_->clear();
  avviso_->setToolTip({});
  bool aperto = false;
  moduli_->setChecked(moduliPubblicatiDi(fileDatabase()));
  try {
    if (database_.isEmpty()) preparaDimostrativo(cartelle_);
    elenco_ = aziendeDi(fileDatabase());
    aperto = true;
    if (elenco_.empty()) {
      avviso_->setText(QStringLiteral(
          "Il database non contiene nessuna azienda: con «Dati propri» se ne aggiunge o se ne importa una."));
    }
  } catch (const std::exception& errore) {
    const QFileInfo scelto(database_);
    avviso_->setText(avvisoDatabase(
        database_.isEmpty() ? QStringLiteral("Il database dimostrativo") : scelto.fileName(), errore));
    avviso_->setToolTip(desktop::sentenceTip(QString::fromStdString(dettoInFinestra(errore))));
  }
  for (const AziendaAvvio& azienda : elenco_) {
    aziende_->addItem(vociAzienda(azienda), azienda.azienda);
  }
  avvia_->setEnabled(!elenco_.empty());
  gestisci_->setEnabled(aperto);
  stato_->setEnabled(!elenco_.empty());
  quadro_->setEnabled(!elenco_.empty());
  copia_->setEnabled(aperto);
  importa_->setEnabled(aperto);
}

QString FinestraAvvio::fileDatabase() const {
  return database_.isEmpty() ? cartelle_.databaseDimostrativo() : database_;
}

// An archive that was created before is given the codes of these forms.
void FinestraAvvio::scegliModuli(bool pubblicati) {
  ricordaModuli(fileDatabase(), pubblicati);
  avviso_->clear();
  if (!pubblicati) return;
  try {
    const auto aggiunti = aggiungiCodici(profiloDi(scelta(), cartelle_).database);
    if (aggiunti && *aggiunti > 0) {
      avviso_->setText(
          QStringLiteral("Causali e codici di quei moduli aggiunti all'archivio: %1.").arg(*aggiunti));
    }
  } catch (const std::exception& errore) {
    avviso_->setText(avvisoDatabase(QFileInfo(fileDatabase()).fileName(), errore));
  }
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
  connect(copia_, &QAction::triggered, this, [this] { strumenti::faiCopia(this, databaseScelto()); });
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

void FinestraAvvio::nuovoArchivio() {
  QString file =
      desktop::fileToSave(this, QStringLiteral("Nuovo archivio"), nomeNuovoArchivio(cartelle_.documenti),
                          QStringLiteral("Database (*.db)"), false);
  if (file.isEmpty()) return;
  if (QFileInfo(file).suffix().isEmpty()) file += QStringLiteral(".db");
  try {
    creaArchivioVuoto(file);
  } catch (const std::exception& errore) {
    QMessageBox::warning(this, QStringLiteral("Nuovo archivio"), desktop::lines(errore.what()));
    return;
  }
  database_ = file;
  leggiAziende();
  gestisci();
}

Profilo::Database FinestraAvvio::databaseScelto() const {
  Profilo::Database database;
  database.origine = (database_.isEmpty() ? cartelle_.databaseDimostrativo() : database_).toStdString();
  return database;
}

// Also where the database cannot be used any more.
void FinestraAvvio::ripristina() {
  if (strumenti::ripristinaCopia(this, databaseScelto())) rileggiAziende();
}

// One database is worked on in one place: the start window comes back when the forms are closed.
void FinestraAvvio::gestisci() {
  const Profilo suo = profiloDi(scelta(), cartelle_);
  gestione_ = std::make_unique<GestioneAperta>(suo, cartelle_.guida);
  gestione_->schermo().onAllClosed = [this] { QTimer::singleShot(0, this, [this] { finitaGestione(); }); };
  if (gestione_->apri()) {
    hide();
  } else {
    gestione_.reset();
  }
}

void FinestraAvvio::finitaGestione() {
  gestione_.reset();
  rileggiAziende();
  show();
  activateWindow();
}

void FinestraAvvio::rileggiAziende() {
  const QVariant scelta = aziende_->currentData();
  leggiAziende();
  const int stessa = aziende_->findData(scelta);
  if (stessa >= 0) aziende_->setCurrentIndex(stessa);
}

// Companies may be among what was imported.
void FinestraAvvio::importa() {
  assistente::apriImportazione(profiloDi(scelta(), cartelle_), {}, [questa = QPointer<FinestraAvvio>(this)] {
    if (questa != nullptr) questa->rileggiAziende();
  });
}

std::optional<Profilo> FinestraAvvio::profilo() const {
  if (elenco_.empty()) return std::nullopt;
  return profiloDi(scelta(), cartelle_);
}

void FinestraAvvio::scegliDatabase() {
  const QString scelto = desktop::fileToOpen(this, QStringLiteral("Database"), database_,
                                             QStringLiteral("Database (*.db *.sqlite);;Tutti i file (*)"));
  if (!scelto.isEmpty()) usaDatabase(scelto);
}

void FinestraAvvio::scegliDocumenti() {
  const QString scelta =
      desktop::folderToUse(this, QStringLiteral("Documenti ministeriali"), documenti_->text());
  if (!scelta.isEmpty()) documenti_->setText(scelta);
}

SceltaAvvio FinestraAvvio::scelta() const {
  SceltaAvvio scelta;
  scelta.database = database_;
  const int quale = aziende_->currentIndex();
  if (quale >= 0) {
    scelta.azienda = elenco_[static_cast<std::size_t>(quale)].azienda;
    scelta.filiale = elenco_[static_cast<std::size_t>(quale)].filiale;
  }
  scelta.utente = utente_->value();
  scelta.funzione = funzioni_->checkedId();
  scelta.documentiMinisteriali = documenti_->text();
  scelta.moduliPubblicati = moduli_->isChecked();
  return scelta;
}

}  // namespace cu
