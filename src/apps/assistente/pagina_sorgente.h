#pragma once

#include "apps/assistente/pagina.h"

class QSpinBox;

namespace cu::assistente {

// What is imported, from which files, and for whom.
class PaginaSorgente : public Pagina {
 public:
  PaginaSorgente(QWidget* parent, Assistente& assistente);
  void mostra() override;
  QWidget* primo() override;
  // The tables of the history are added to the database by the window, which has the means.
  std::function<void()> aggiungiTabelle;

 private:
  void componiScelte();
  void componiFile();
  void chiediEstraneo();
  void mostraDatabase();
  void sfoglia();
  void sfogliaCartella();
  void togli();
  void scriviModello();
  QString dettoTipo(const FileScelto& file) const;
  QString dettaNota(const FileScelto& file) const;

  std::vector<FileScelto> mostrati_;
  Scelta<std::optional<intake::Elenco>>* dati_ = nullptr;
  QComboBox* aziende_ = nullptr;
  QSpinBox* anno_ = nullptr;
  QWidget* riquadroAnno_ = nullptr;
  strumenti::Tabella* file_ = nullptr;
  QPushButton* aggiungi_ = nullptr;
  QPushButton* modello_ = nullptr;
  QPushButton* togli_ = nullptr;
  strumenti::Frase* avviso_ = nullptr;
  QPushButton* tabelle_ = nullptr;
  QPushButton* estraneo_ = nullptr;
};

}  // namespace cu::assistente
