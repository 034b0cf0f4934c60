#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "apps/strumenti/confronto.h"
#include "apps/strumenti/finestra.h"

class QCheckBox;
class QPushButton;
class QVBoxLayout;

namespace cu::strumenti {

class Frase;
class Ricerca;
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
  void componiFiltri();
  void leggi(bool comunque = false);
  void mostra();
  void mostraCaselle(std::optional<std::size_t> quale);
  void diceConteggi();

  QString vecchio_;
  QString nuovo_;
  std::optional<Profilo> profilo_;
  std::shared_ptr<const Confronto> confronto_;
  std::vector<CasellaConfrontata> caselleMostrate_;

  Frase* testa_ = nullptr;
  Frase* avviso_ = nullptr;
  QPushButton* comunque_ = nullptr;
  Ricerca* ricerca_ = nullptr;
  QCheckBox* soloDiverse_ = nullptr;
  Tabella* righe_ = nullptr;
  Frase* vuoto_ = nullptr;
  Tabella* caselle_ = nullptr;
};

}  // namespace cu::strumenti
