#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "apps/strumenti/file_esaminato.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/lavoro.h"
#include "apps/strumenti/modulo_disegnato.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;

namespace cu::desktop {
class PageView;
}

namespace cu::strumenti {

class Tabella;
struct Colonna;

// What a telematic file holds: its certificates, each on the form and by its cells, and what is wrong with
// it.
class FinestraFile : public Finestra {
 public:
  // Without a profile the accounts are not known. Reading begins at once.
  FinestraFile(const QString& percorso, std::optional<Profilo> profilo);

  bool legge() const { return lavoro_.inCorso(); }
  void apri(const QString& percorso);
  // Chooses the certificate of a finding and shows its cell.
  void vaiAlRilievo(std::size_t rilievo);

 private:
  QWidget* testa();
  QWidget* ricerca();
  QWidget* destra();
  QWidget* sotto();
  std::vector<Colonna> colonneCertificati();
  std::vector<Colonna> colonneRilievi();
  std::vector<Colonna> colonneCaselle();

  void mostra();
  void mostraTesta();
  void mostraCertificato(std::optional<std::size_t> quale);
  void disegnaCertificato();
  void filtraRilievi();
  void mostraTratto(std::optional<std::size_t> rilievo);
  void diceRilievi();
  void chiedeFile();
  void confrontaFile();
  void confrontaConti();
  void esporta();
  bool passa(std::size_t certificato) const;

  QString percorso_;
  std::optional<Profilo> profilo_;
  std::shared_ptr<const FileEsaminato> file_;
  std::vector<QString> cercati_;  // what the search looks at, of each certificate
  QString cercato_;
  std::optional<std::size_t> quale_;
  std::optional<lettura::Certificato> certificato_;
  std::vector<CasellaMostrata> caselleMostrate_;
  QTimer disegno_;

  QLabel* testa_ = nullptr;
  QLabel* avviso_ = nullptr;
  QWidget* attesa_ = nullptr;
  QProgressBar* barra_ = nullptr;
  QLineEdit* cerca_ = nullptr;
  QCheckBox* soloRilievi_ = nullptr;
  QLabel* quanti_ = nullptr;
  Tabella* certificati_ = nullptr;
  desktop::PageView* modulo_ = nullptr;
  Tabella* caselle_ = nullptr;
  QComboBox* diChi_ = nullptr;
  QLabel* altri_ = nullptr;
  Tabella* rilievi_ = nullptr;
  QLabel* detto_ = nullptr;
  QPlainTextEdit* tratto_ = nullptr;
  QPushButton* conFile_ = nullptr;
  QPushButton* conConti_ = nullptr;
  QPushButton* esporta_ = nullptr;
  Lavoro lavoro_;  // ends before what it uses
};

}  // namespace cu::strumenti
