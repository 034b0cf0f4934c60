#pragma once

#include <memory>
#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/riepiloghi.h"

class QTabWidget;

namespace cu::assistente {

// What the import would do, tried and taken back, and what still stops it.
class PaginaProva : public Pagina {
 public:
  PaginaProva(QWidget* parent, Assistente& assistente);
  void mostra() override;
  QWidget* primo() override;
  // As the buttons do, once the place is chosen.
  void salvaErrori(const QString& cartellaOFile);
  void salvaResoconto(const QString& file);

 private:
  void componiSchede();
  QWidget* avvisi();
  QWidget* note();
  void mostraNote();
  QWidget* somme();
  QWidget* conti();
  QWidget* mancanti();
  QString dettaProva() const;
  QString dateProposte() const;
  void mostraAvvisi();
  void titoliSchede();
  QString cartellaSalvati(std::size_t file) const;
  void chiediErrori();
  void chiediResoconto();

  std::shared_ptr<const intake::Piano> piano_;
  std::vector<AvvisiDiCodice> avvisi_;
  std::vector<SommaAnnoCausale> somme_;
  std::vector<std::string> generali_;
  bool zitta_ = false;
  strumenti::Frase* frase_ = nullptr;
  strumenti::Frase* risposta_ = nullptr;
  QWidget* riquadroDiversi_ = nullptr;
  Scelta<intake::SuDiversi>* diversi_ = nullptr;
  QPushButton* ripeti_ = nullptr;
  QPushButton* errori_ = nullptr;
  QPushButton* resoconto_ = nullptr;
  QTabWidget* schede_ = nullptr;
  QListWidget* listaAvvisi_ = nullptr;
  QListWidget* listaNote_ = nullptr;
  strumenti::Tabella* tabellaSomme_ = nullptr;
  strumenti::Tabella* tabellaConti_ = nullptr;
  strumenti::Tabella* tabellaMancanti_ = nullptr;
};

}  // namespace cu::assistente
