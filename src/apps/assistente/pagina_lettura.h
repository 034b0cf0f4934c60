#pragma once

#include "apps/assistente/pagina.h"

class QGridLayout;
class QSpinBox;
class QTableView;

namespace cu::assistente {

class ModelloCelle;

// How the files are read, with their first rows as they are read.
class PaginaLettura : public Pagina {
 public:
  PaginaLettura(QWidget* parent, Assistente& assistente);
  void mostra() override;
  QWidget* primo() override;

 private:
  void componiModi(QGridLayout& griglia);
  void aggiungiModo(QGridLayout& griglia, int riga, int colonna, const char* testo, QWidget* casella);
  void cambiaModo(const std::function<void(intake::Mappatura&)>& come);
  const FileScelto* corrente() const;
  QString dettaLettura(const FileScelto& file) const;

  QComboBox* file_ = nullptr;
  QComboBox* foglio_ = nullptr;
  QSpinBox* titoli_ = nullptr;
  Scelta<std::optional<char>>* separatore_ = nullptr;
  Scelta<tabelle::Caratteri>* caratteri_ = nullptr;
  Scelta<std::optional<char>>* decimali_ = nullptr;
  Scelta<std::optional<char>>* migliaia_ = nullptr;
  Scelta<std::optional<intake::OrdineData>>* date_ = nullptr;
  strumenti::Frase* frase_ = nullptr;
  ModelloCelle* modello_ = nullptr;
  QTableView* celle_ = nullptr;
};

}  // namespace cu::assistente
