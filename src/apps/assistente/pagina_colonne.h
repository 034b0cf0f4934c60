#pragma once

#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/colonne_scelte.h"

class QLineEdit;
class QListWidgetItem;
class QSplitter;

namespace cu::assistente {

// Which column of the file is which of the list, with what its rows give; and the profiles that keep it.
class PaginaColonne : public Pagina {
 public:
  PaginaColonne(QWidget* parent, Assistente& assistente);
  void mostra() override;
  QWidget* primo() override;

  void caricaProfilo(const QString& percorso);
  void salvaProfilo(const QString& percorso);
  void ricordaProfilo();

 private:
  void componiSopra();
  void componiTabella(QSplitter& divisore);
  void componiPannello(QSplitter& divisore);
  std::size_t file() const;
  const ColonnaScelta* corrente() const;
  void mostraPannello();
  void cambiaFonteCorrente();
  void spuntata(QListWidgetItem* voce);
  void chiediSignificati();
  QString dettiAltriUsi(const std::string& titolo) const;
  void diciUsoTolto(const std::string& titolo);
  QString dettaFonte(const ColonnaScelta& colonna) const;
  QString dettoAvviso() const;
  QString dettiNonUsati() const;

  std::vector<ColonnaScelta> scelte_;
  bool zitta_ = false;
  QComboBox* quale_ = nullptr;
  QPushButton* proponi_ = nullptr;
  strumenti::Frase* avviso_ = nullptr;
  strumenti::Frase* risposta_ = nullptr;
  strumenti::Tabella* colonne_ = nullptr;
  strumenti::Frase* titolo_ = nullptr;
  QListWidget* titoli_ = nullptr;
  QLineEdit* fisso_ = nullptr;
  Scelta<intake::Segno>* segno_ = nullptr;
  QPushButton* significati_ = nullptr;
};

}  // namespace cu::assistente
