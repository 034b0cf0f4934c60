#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "apps/strumenti/finestra.h"
#include "apps/strumenti/lavoro.h"
#include "apps/strumenti/stato_letto.h"

class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;

namespace cu::strumenti {

class Tabella;

// Where each certificate of a year is between the accounts and the authority, and what follows.
class FinestraStato : public Finestra {
 public:
  explicit FinestraStato(Profilo profilo);
  bool lavora() const { return lavoro_.inCorso(); }

 protected:
  QString occupata() const override;

 private:
  QWidget* sopra();
  QWidget* operazioni();
  QWidget* pulsanti();
  void scriviFiltri();
  void componiTabelle(QSplitter& divisore);
  // Runs a work of this window; one at a time.
  void esegui(const QString& che, std::function<void()> lavoro, std::function<void()> fatto, bool scrive);
  void leggi(std::optional<std::int32_t> anno);
  void mostra();
  void mostraCaselle(std::optional<std::size_t> quale);
  void diceFrase();
  void abilita();
  void segnaInviato();
  void leggiRicevuta();
  void scriviCorrezioni();
  void aggiungiTabelle();

  Profilo profilo_;
  std::shared_ptr<const StatoLetto> stato_;
  std::vector<QString> cercati_;
  QString cercato_;
  std::optional<std::size_t> operazione_;  // the one that is shown; all of them without it
  bool scrive_ = false;

  QLabel* frase_ = nullptr;
  QWidget* attesa_ = nullptr;
  QLabel* attende_ = nullptr;
  QComboBox* anni_ = nullptr;
  QLineEdit* cerca_ = nullptr;
  QButtonGroup* filtri_ = nullptr;
  Tabella* voci_ = nullptr;
  QLabel* cambiate_ = nullptr;
  Tabella* caselle_ = nullptr;
  QPushButton* inviato_ = nullptr;
  QPushButton* ricevuta_ = nullptr;
  QPushButton* correzioni_ = nullptr;
  QPushButton* tabelle_ = nullptr;
  QPushButton* ricarica_ = nullptr;
  Lavoro lavoro_;
};

}  // namespace cu::strumenti
