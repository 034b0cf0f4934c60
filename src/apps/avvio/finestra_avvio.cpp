#include "apps/avvio/finestra_avvio.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

#include "apps/assistente/importazione_guidata.h"
#include "apps/avvio/dialogo_server.h"
#include "apps/avvio/gestione_aperta.h"
#include "apps/avvio/messaggio_avvio.h"
#include "apps/avvio/password_finestra.h"
#include "apps/comune/parole_database.h"
#include "apps/esame/operazioni_registro.h"
#include "apps/strumenti/copia_archivio.h"
#include "desktop/file_dialog.h"
#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu {

FinestraAvvio::FinestraAvvio(const SceltaAvvio& scelta, const CartelleAvvio& cartelle)
    : cartelle_(cartelle),
      database_(scelta.database),
      server_(scelta.server),
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
  // On a small screen the choices scroll, and the buttons stay in view.
  auto* const tutto = new QVBoxLayout(this);
  auto* const scorre = new QScrollArea(this);
  scorre->setWidgetResizable(true);
  scorre->setFrameShape(QFrame::NoFrame);
  contenuto_ = new QWidget(scorre);
  auto* const colonna = new QVBoxLayout(contenuto_);
  colonna->setContentsMargins(0, 0, 0, 0);
  if (SceltaAvvio::mai()) componiInizio(*colonna);
  componiModi(*colonna, scelta.funzione);
  componiModulo(*colonna, scelta);
  colonna->addStretch(1);
  scorre->setWidget(contenuto_);
  scorre->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  tutto->addWidget(scorre, 1);
  componiPulsanti(*tutto);
  desktop::tellWhole(*casellaDatabase_);
  desktop::tellWhole(*documenti_);
  desktop::tellWhole(*aziende_);
  desktop::addGuideKeys(this, [this](const QString& quale) {
    desktop::openGuide(guida_, this, cartelle_.guida,
                       quale.isEmpty() ? QStringLiteral("Avviare la procedura") : quale);
  });
  leggiAziende();
  const int ultima = aziende_->findData(scelta.azienda);
  if (ultima >= 0) aziende_->setCurrentIndex(ultima);
  mettiFuoco();
  resize(misura());
}

FinestraAvvio::~FinestraAvvio() = default;

// The toolkit would pass the focus on to «Annulla», where Enter ends the program.
void FinestraAvvio::mettiFuoco() {
  QPushButton* dove = avvia_;
  if (elenco_.empty()) dove = gestisci_->isEnabled() ? datiPropri_ : staAlServer() ? collega_ : sfoglia_;
  dove->setFocus();
}

// Shown until something was started once.
// The menu is filled as it opens: a database may be gone, or another one in use.
void FinestraAvvio::usaDatabase(const QString& database) {
  database_ = database;
  server_ = {};
  leggiAziende();
}

// The dialog has connected already.
void FinestraAvvio::scegliServer(const ServerAvvio& prima) {
  DialogoServer dialogo(prima, this);
  if (dialogo.exec() != QDialog::Accepted) return;
  server_ = dialogo.server();
  database_.clear();
  elenco_ = dialogo.aziende();
  moduli_->setChecked(moduliPubblicatiDi(chiaveDatabase()));
  mostraAziende(true);
}

QString FinestraAvvio::vociAzienda(const AziendaAvvio& azienda) const {
  QString voce = QString::fromStdString(azienda.nome);
  if (!azienda.codiceFiscale.empty())
    voce += QStringLiteral(" - ") + QString::fromStdString(azienda.codiceFiscale);
  QString anno = annoRicordato(staAlServer() ? server_.testo : database_, azienda.azienda);
  if (anno.isEmpty()) anno = QString::fromStdString(azienda.ultimoAnno);
  return anno.isEmpty() ? voce : voce + QStringLiteral(" - anno ") + anno;
}

QString FinestraAvvio::nomeDatabase() const {
  if (staAlServer()) return server_.nome();
  return database_.isEmpty() ? QStringLiteral("Dimostrativo") : database_;
}

QString FinestraAvvio::nomeBreve() const {
  if (staAlServer()) return QStringLiteral("Il database sul server");
  return database_.isEmpty() ? QStringLiteral("Il database dimostrativo") : QFileInfo(database_).fileName();
}

QString FinestraAvvio::chiaveDatabase() const {
  if (staAlServer()) return kRecenteServer + server_.testo;
  return database_.isEmpty() ? cartelle_.databaseDimostrativo() : database_;
}

// An archive that was created before is given the codes of these forms.
void FinestraAvvio::scegliModuli(bool pubblicati) {
  ricordaModuli(chiaveDatabase(), pubblicati);
  avvisa({});
  if (!pubblicati) return;
  try {
    const auto aggiunti = aggiungiCodici(profiloDi(scelta(), cartelle_).database);
    if (aggiunti && *aggiunti > 0) {
      avvisa(QStringLiteral("Causali e codici di quei moduli aggiunti all'archivio: %1.").arg(*aggiunti));
    }
  } catch (const std::exception& errore) {
    avvisa(avvisoDatabase(nomeBreve(), errore));
  }
}

// A database that cannot be opened is reported here, so that the user can choose another one.
void FinestraAvvio::leggiAziende() {
  elenco_.clear();
  moduli_->setChecked(moduliPubblicatiDi(chiaveDatabase()));
  const Profilo::Database suo = scelta().suo(cartelle_.databaseDimostrativo());
  // At the start nobody waits for a server, or is asked for its password.
  if (staAlServer() && !passwordTenuta(suo.origine)) {
    mostraAziende(false);
    avvisa(QStringLiteral(
        "Il database è su un server: con «Collega server...» si dà la password e si comincia."));
    return;
  }
  try {
    if (database_.isEmpty() && !staAlServer()) preparaDimostrativo(cartelle_);
    elenco_ = aziendeDi(suo);
    mostraAziende(true);
  } catch (const std::exception& errore) {
    mostraAziende(false);
    avvisa(avvisoDatabase(nomeBreve(), errore));
    avviso_->setToolTip(desktop::sentenceTip(QString::fromStdString(dettoInFinestra(errore))));
  }
}

void FinestraAvvio::mostraAziende(bool aperto) {
  casellaDatabase_->setText(nomeDatabase());
  dettaProva();
  dimostrativo_->setEnabled(!database_.isEmpty() || staAlServer());
  avviso_->clear();
  avviso_->setToolTip({});
  if (aperto && elenco_.empty()) {
    avvisa(QStringLiteral(
        "Il database non contiene nessuna azienda: con «Dati propri» se ne aggiunge o se ne importa una."));
  }
  aziende_->clear();
  for (const AziendaAvvio& azienda : elenco_) {
    aziende_->addItem(vociAzienda(azienda), azienda.azienda);
  }
  const bool pronto = focusWidget() == avvia_;
  avvia_->setEnabled(!elenco_.empty());
  salva_->setEnabled(!elenco_.empty());
  gestisci_->setEnabled(aperto);
  stato_->setEnabled(!elenco_.empty());
  quadro_->setEnabled(!elenco_.empty());
  copia_->setEnabled(aperto && !staAlServer());
  importa_->setEnabled(aperto);
  if (pronto && elenco_.empty()) mettiFuoco();
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
  usaDatabase(file);
  gestisci();
}

// Also where the database cannot be used any more.
void FinestraAvvio::ripristina() {
  if (staAlServer()) {
    avvisa(QStringLiteral("Le copie di un database su un server si fanno e si ripristinano sul server."));
    return;
  }
  const Profilo::Database suo = scelta().suo(cartelle_.databaseDimostrativo());
  const auto scelto = strumenti::chiediRipristino(this, suo);
  if (scelto && strumenti::ripristina(this, suo, *scelto)) rileggiAziende();
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

void FinestraAvvio::salvaComeProfilo() {
  QString file = desktop::fileToSave(this, QStringLiteral("Salva come profilo"),
                                     cartelle_.documenti + QStringLiteral("/profilo.toml"),
                                     QStringLiteral("Profili (*.toml)"));
  if (file.isEmpty()) return;
  if (QFileInfo(file).suffix().isEmpty()) file += QStringLiteral(".toml");
  try {
    salvaProfilo(scelta(), cartelle_, file);
  } catch (const std::exception& errore) {
    QMessageBox::warning(this, QStringLiteral("Salva come profilo"), desktop::lines(errore.what()));
    return;
  }
  avvisa(
      QStringLiteral("Il profilo è in %1: con «cuwizard --profile» si parte da queste scelte, e cuctl lavora "
                     "senza finestra. Lo può leggere solo chi lo ha salvato; di un server non contiene la "
                     "password.")
          .arg(QDir::toNativeSeparators(file)));
}

// Larger letters take more room; the layouts learn of them first.
SceltaAvvio FinestraAvvio::scelta() const {
  SceltaAvvio scelta;
  scelta.database = database_;
  scelta.server = server_;
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
