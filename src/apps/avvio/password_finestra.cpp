#include "apps/avvio/password_finestra.h"

#include <QApplication>
#include <QInputDialog>
#include <QThread>
#include <map>
#include <mutex>
#include <optional>

#include "apps/comune/password.h"
#include "base/error.h"
#include "odbc/connection_text.h"

namespace cu {
namespace {

// Windows read and write in threads of their own.
class Tenute {
 public:
  std::optional<std::string> di(const std::string& origine) {
    const std::scoped_lock chiuso(porta_);
    const auto sua = password_.find(origine);
    if (sua == password_.end()) return std::nullopt;
    return sua->second;
  }
  void tieni(const std::string& origine, const std::string& password) {
    const std::scoped_lock chiuso(porta_);
    password_[origine] = password;
  }
  void dimentica(const std::string& origine) {
    const std::scoped_lock chiuso(porta_);
    password_.erase(origine);
  }

 private:
  std::mutex porta_;
  std::map<std::string, std::string> password_;
};

Tenute& tenute() {
  static Tenute quelle;
  return quelle;
}

bool conFinestre() {
  const QString piattaforma = QGuiApplication::platformName();
  return piattaforma != QStringLiteral("offscreen") && piattaforma != QStringLiteral("minimal") &&
         QThread::currentThread() == qApp->thread();
}

std::string chiesta(const Profilo::Database& database) {
  const odbc::ConnectionText indirizzo(database.origine);
  const QString server = QString::fromStdString(indirizzo.value({"Server", "ServerName", "DSN"}));
  const QString utente = QString::fromStdString(indirizzo.value({"UID", "User"}));
  bool data = false;
  const QString password = QInputDialog::getText(
      nullptr, QStringLiteral("Password del database"),
      QStringLiteral(
          "Password dell'utente «%1» sul server «%2».\nServe a questo avvio: non viene scritta da nessuna "
          "parte.")
          .arg(utente, server),
      QLineEdit::Password, {}, &data);
  if (!data) {
    throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "", "La password del database non è stata data.");
  }
  return password.toStdString();
}

}  // namespace

void chiediPasswordInFinestra() {
  usaFontePassword([](const Profilo::Database& database) -> std::optional<std::string> {
    if (auto tenuta = tenute().di(database.origine)) return tenuta;
    if (alTerminale() || !conFinestre()) return std::nullopt;
    const std::string data = chiesta(database);
    tieniPassword(database.origine, data);
    return data;
  });
}

void tieniPassword(const std::string& origine, const std::string& password) {
  tenute().tieni(origine, password);
}

void dimenticaPassword(const std::string& origine) { tenute().dimentica(origine); }

bool passwordTenuta(const std::string& origine) { return tenute().di(origine).has_value(); }

}  // namespace cu
