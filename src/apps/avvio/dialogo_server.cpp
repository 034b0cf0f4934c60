#include "apps/avvio/dialogo_server.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <exception>
#include <thread>

#include "apps/avvio/password_finestra.h"
#include "base/error.h"
#include "desktop/hint.h"
#include "desktop/text.h"
#include "odbc/connection_text.h"

namespace cu {
namespace {

constexpr const char* kFreeTds = "FreeTDS";
constexpr const char* kMicrosoft = "ODBC Driver 18 for SQL Server";
constexpr int kPortaMassima = 65535;

std::string scrittoIn(const QLineEdit& casella) { return casella.text().trimmed().toStdString(); }

// Here the server is typed, and no profile has it.
QString senzaProfilo(QString testo) {
  const QString profilo = QStringLiteral("Verificare l'indirizzo nel profilo e la rete");
  const QString qui = QStringLiteral("Verificare il nome del server, scritto qui sopra, e la rete");
  testo.replace(profilo + QStringLiteral(", o aumentare login_timeout"), qui);
  return testo.replace(profilo, qui);
}

// Runs the work in a thread of its own while the window is drawn; its exception rises here.
void attendi(const std::function<void()>& lavoro) {
  std::exception_ptr errore;
  QEventLoop attesa;
  std::thread altrove([&] {
    try {
      lavoro();
    } catch (...) {
      errore = std::current_exception();
    }
    QMetaObject::invokeMethod(&attesa, &QEventLoop::quit, Qt::QueuedConnection);
  });
  attesa.exec(QEventLoop::ExcludeUserInputEvents);
  altrove.join();
  if (errore) std::rethrow_exception(errore);
}

}  // namespace

DialogoServer::DialogoServer(const ServerAvvio& prima, QWidget* parent)
    : QDialog(parent),
      driver_(new QComboBox(this)),
      indirizzo_(new QLineEdit(this)),
      porta_(new QLineEdit(this)),
      database_(new QLineEdit(this)),
      delSistema_(new QCheckBox(QStringLiteral("Accesso con l'utente del s&istema, senza password"), this)),
      utente_(new QLineEdit(this)),
      password_(new QLineEdit(this)),
      cifrata_(new QCheckBox(QStringLiteral("Connessione ci&frata"), this)),
      avviso_(new QLabel(this)) {
  setWindowTitle(QStringLiteral("Database su un server"));
  componi(prima);
  aggiorna();
  (indirizzo_->text().isEmpty() ? indirizzo_ : password_)->setFocus();
}

void DialogoServer::componi(const ServerAvvio& prima) {
  auto* const colonna = new QVBoxLayout(this);
  auto* const spiega = new QLabel(
      QStringLiteral(
          "Il database della suite contabile su Microsoft SQL Server. Indirizzo, nome e utente li dà chi "
          "amministra il server."),
      this);
  spiega->setWordWrap(true);
  colonna->addWidget(spiega);
  driver_->setEditable(true);
  driver_->addItems({QString::fromLatin1(kFreeTds), QString::fromLatin1(kMicrosoft)});
  desktop::setHint(*indirizzo_, QStringLiteral("come contabilita.local"));
  desktop::setHint(*porta_, QStringLiteral("1433"));
  porta_->setValidator(new QIntValidator(1, kPortaMassima, porta_));
  password_->setEchoMode(QLineEdit::Password);
  desktop::setHint(*password_, QStringLiteral("non viene scritta da nessuna parte"));
  auto* const modulo = new QFormLayout;
  modulo->setRowWrapPolicy(QFormLayout::WrapLongRows);
  modulo->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  auto* const luogo = new QHBoxLayout;
  auto* const etichettaPorta = new QLabel(QStringLiteral("P&orta"), this);
  etichettaPorta->setBuddy(porta_);
  luogo->addWidget(indirizzo_, 1);
  luogo->addWidget(etichettaPorta);
  luogo->addWidget(porta_);
  porta_->setFixedWidth(porta_->fontMetrics().horizontalAdvance(QStringLiteral("00000000")));
  auto* const etichettaServer = new QLabel(QStringLiteral("&Server"), this);
  etichettaServer->setBuddy(indirizzo_);
  modulo->addRow(etichettaServer, luogo);
  modulo->addRow(QStringLiteral("&Database"), database_);
  modulo->addRow(QString(), delSistema_);
  modulo->addRow(QStringLiteral("&Utente"), utente_);
  modulo->addRow(QStringLiteral("&Password"), password_);
  modulo->addRow(QString(), cifrata_);
  modulo->addRow(QStringLiteral("D&river ODBC"), driver_);
  colonna->addLayout(modulo);
  avviso_->setTextFormat(Qt::PlainText);
  avviso_->setWordWrap(true);
  avviso_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  colonna->addWidget(avviso_, 1);
  auto* const pulsanti = new QDialogButtonBox(this);
  collega_ = pulsanti->addButton(QStringLiteral("&Collega"), QDialogButtonBox::AcceptRole);
  pulsanti->addButton(QStringLiteral("Annulla"), QDialogButtonBox::RejectRole);
  collega_->setDefault(true);
  colonna->addWidget(pulsanti);
  connect(pulsanti, &QDialogButtonBox::accepted, this, [this] { collega(); });
  connect(pulsanti, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connect(delSistema_, &QCheckBox::toggled, this, [this] { aggiorna(); });

  cifrata_->setChecked(prima.cifrata);
  if (prima.testo.isEmpty()) return;
  const odbc::ConnectionText testo(prima.testo.toStdString());
  const auto valore = [&testo](std::initializer_list<std::string_view> chiavi) {
    return QString::fromStdString(testo.value(chiavi));
  };
  driver_->setEditText(valore({"Driver"}));
  QString indirizzo = valore({"Server"});
  QString porta = valore({"Port"});
  // As scritto() composes it.
  if (indirizzo.startsWith(QStringLiteral("tcp:")) && indirizzo.contains(u',')) {
    porta = indirizzo.section(u',', -1);
    indirizzo = indirizzo.sliced(4).section(u',', 0, -2);
  }
  indirizzo_->setText(indirizzo);
  porta_->setText(porta);
  database_->setText(valore({"Database"}));
  utente_->setText(valore({"UID"}));
  delSistema_->setChecked(testo.signsOnByItself());
}

void DialogoServer::aggiorna() {
  const bool conPassword = !delSistema_->isChecked();
  utente_->setEnabled(conPassword);
  password_->setEnabled(conPassword);
}

QString DialogoServer::mancanza() const {
  if (scrittoIn(*indirizzo_).empty()) return QStringLiteral("Manca il server.");
  if (scrittoIn(*database_).empty()) return QStringLiteral("Manca il nome del database.");
  if (!delSistema_->isChecked() && scrittoIn(*utente_).empty()) return QStringLiteral("Manca l'utente.");
  if (driver_->currentText().trimmed().isEmpty()) return QStringLiteral("Manca il driver ODBC.");
  return {};
}

// Microsoft's driver has the port within the server's name.
ServerAvvio DialogoServer::scritto() const {
  const std::string driver = driver_->currentText().trimmed().toStdString();
  const std::string porta = scrittoIn(*porta_);
  odbc::ConnectionText testo("Driver={}");
  testo.set("Driver", driver);
  if (odbc::familyOf(driver) == odbc::DriverFamily::Microsoft && !porta.empty()) {
    testo.set("Server", "tcp:" + scrittoIn(*indirizzo_) + ',' + porta);
  } else {
    testo.set("Server", scrittoIn(*indirizzo_));
    if (!porta.empty()) testo.set("Port", porta);
  }
  testo.set("Database", scrittoIn(*database_));
  if (delSistema_->isChecked()) {
    testo.set("Trusted_Connection", "yes");
  } else {
    testo.set("UID", scrittoIn(*utente_));
  }
  return {QString::fromStdString(testo.text()), cifrata_->isChecked()};
}

void DialogoServer::collega() {
  avviso_->setText(mancanza());
  if (!avviso_->text().isEmpty()) return;
  const ServerAvvio nuovo = scritto();
  const std::string origine = nuovo.testo.toStdString();
  if (!delSistema_->isChecked()) tieniPassword(origine, password_->text().toStdString());
  avviso_->setText(QStringLiteral("Collegamento in corso…"));
  setEnabled(false);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QString errore;
  try {
    attendi([&] { aziende_ = aziendeDi(nuovo.database()); });
  } catch (const std::exception& quale) {
    errore = senzaProfilo(desktop::lines(quale.what()));
    dimenticaPassword(origine);
  }
  QApplication::restoreOverrideCursor();
  setEnabled(true);
  avviso_->setText(errore);
  if (!errore.isEmpty()) {
    password_->setFocus();
    password_->selectAll();
    return;
  }
  server_ = nuovo;
  accept();
}

}  // namespace cu
