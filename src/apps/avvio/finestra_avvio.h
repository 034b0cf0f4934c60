#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "apps/avvio/scelta_avvio.h"
#include "desktop/guide_window.h"

class QAction;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QVBoxLayout;

namespace cu {

class GestioneAperta;

// Replaces the suite's launcher: choice of company, user, database and print. The windows for telematic files
// that it opens stay open without it: it is shown without blocking other windows.
class FinestraAvvio : public QDialog {
 public:
  FinestraAvvio(const SceltaAvvio& scelta, const CartelleAvvio& cartelle);
  ~FinestraAvvio() override;
  SceltaAvvio scelta() const;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void componiInizio(QVBoxLayout& colonna);
  void dettaProva();
  void componiModi(QVBoxLayout& colonna, std::int32_t scelta);
  void componiModulo(QVBoxLayout& colonna, const SceltaAvvio& scelta);
  void componiPulsanti(QVBoxLayout& colonna);
  void scegliDatabase();
  void usaDatabase(const QString& database);
  void scegliServer(const ServerAvvio& prima);
  bool staAlServer() const { return !server_.testo.isEmpty(); }
  void componiRecenti();
  QString vociAzienda(const AziendaAvvio& azienda) const;
  void scegliDocumenti();
  void leggiAziende();
  void mostraAziende(bool aperto);
  // Where one continues: at the start, or where what is missing for it is found.
  void mettiFuoco();
  // As a person knows it.
  QString nomeDatabase() const;
  QString nomeBreve() const;
  void salvaComeProfilo();
  void avvisa(const QString& testo);
  // As large as its content requires, where the screen has room.
  QSize misura() const;
  // The database as settings are kept for it: a file, or "odbc:" with the text of a server.
  QString chiaveDatabase() const;
  void scegliModuli(bool pubblicati);
  void componiStrumenti();
  void componiDatiPropri();
  void nuovoArchivio();
  void gestisci();
  void finitaGestione();
  void ripristina();
  void rileggiAziende();
  void importa();
  // Of the present choice; none where the database cannot be used.
  std::optional<Profilo> profilo() const;

  CartelleAvvio cartelle_;
  QString database_;
  ServerAvvio server_;
  QWidget* contenuto_ = nullptr;
  QWidget* piede_ = nullptr;
  QLineEdit* casellaDatabase_;
  QPushButton* dimostrativo_;
  QPushButton* recenti_;
  QPushButton* sfoglia_ = nullptr;
  QPushButton* collega_ = nullptr;
  QComboBox* aziende_;
  QSpinBox* utente_;
  QCheckBox* moduli_;
  QButtonGroup* funzioni_;
  QLineEdit* documenti_;
  QLabel* avviso_;
  QLabel* prova_ = nullptr;  // of the first start alone
  QPushButton* avvia_;
  QPushButton* strumenti_;
  QPushButton* datiPropri_;
  QPushButton* salva_ = nullptr;
  QAction* stato_ = nullptr;
  QAction* quadro_ = nullptr;
  QAction* copia_ = nullptr;
  QAction* gestisci_ = nullptr;
  QAction* importa_ = nullptr;
  std::unique_ptr<GestioneAperta> gestione_;
  std::vector<AziendaAvvio> elenco_;
  QPointer<desktop::HelpWindow> guida_;
};

}  // namespace cu
