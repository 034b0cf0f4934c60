#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "apps/strumenti/confronto.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/lavoro.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QVBoxLayout;

namespace cu::strumenti {

class Tabella;

// Two files, or a file and the accounts, certificate by certificate and box by box.
class FinestraConfronto : public Finestra {
 public:
  FinestraConfronto(QString vecchio, QString nuovo);
  FinestraConfronto(QString file, Profilo profilo);

 private:
  void componi();
  void componiTesta(QVBoxLayout& colonna);
  Tabella* tabellaRighe(QSplitter& lati);
  Tabella* tabellaCaselle(QSplitter& lati);
  QWidget* filtri();
  void leggi();
  void mostra();
  void mostraCaselle(std::optional<std::size_t> quale);
  void diceConteggi();

  QString vecchio_;
  QString nuovo_;
  std::optional<Profilo> profilo_;
  std::shared_ptr<const Confronto> confronto_;
  std::vector<CasellaConfrontata> caselleMostrate_;
  std::vector<QString> cercati_;
  QString cercato_;

  QLabel* testa_ = nullptr;
  QLabel* avviso_ = nullptr;
  QWidget* attesa_ = nullptr;
  QProgressBar* barra_ = nullptr;
  QLineEdit* cerca_ = nullptr;
  QCheckBox* soloDiverse_ = nullptr;
  Tabella* righe_ = nullptr;
  QLabel* vuoto_ = nullptr;
  Tabella* caselle_ = nullptr;
  Lavoro lavoro_;
};

}  // namespace cu::strumenti
