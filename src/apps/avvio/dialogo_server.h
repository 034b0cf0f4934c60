#pragma once

#include <QDialog>
#include <vector>

#include "apps/avvio/scelta_avvio.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace cu {

// Asks for the suite's database on a server, and for the password, and connects before it closes: what is
// accepted works. The password is kept in memory for the program's run (password_finestra.h), and nowhere
// else.
class DialogoServer : public QDialog {
 public:
  DialogoServer(const ServerAvvio& prima, QWidget* parent);

  const ServerAvvio& server() const { return server_; }
  // The address as it is written now.
  ServerAvvio scritto() const;
  // Of the database, as just read.
  const std::vector<AziendaAvvio>& aziende() const { return aziende_; }

 private:
  void componi(const ServerAvvio& prima);
  void collega();
  // What is missing, for the user; empty where nothing is.
  QString mancanza() const;
  void aggiorna();

  ServerAvvio server_;
  std::vector<AziendaAvvio> aziende_;
  QComboBox* driver_;
  QLineEdit* indirizzo_;
  QLineEdit* porta_;
  QLineEdit* database_;
  QCheckBox* delSistema_;
  QLineEdit* utente_;
  QLineEdit* password_;
  QCheckBox* cifrata_;
  QLabel* avviso_;
  QPushButton* collega_;
};

}  // namespace cu
