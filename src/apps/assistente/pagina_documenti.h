#pragma once

#include <memory>
#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/documenti_mostrati.h"

class QCheckBox;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace cu::strumenti {
class Frase;
class Tabella;
}  // namespace cu::strumenti

namespace cu::assistente {

// What was read of each invoice, and what a person decides where the document does not say it.
class PaginaDocumenti : public Pagina {
 public:
  PaginaDocumenti(QWidget* parent, Assistente& assistente);
  void mostra() override;
  QWidget* primo() override;

 private:
  void componiSopra(QVBoxLayout& colonna);
  void componiTabella(QVBoxLayout& colonna);
  void componiDecisioni(QVBoxLayout& colonna);
  QPushButton* bottone(const char* testo, const std::function<void()>& azione);
  const DocumentoMostrato* corrente() const;
  std::vector<std::size_t> evidenziati() const;
  void decidi(const std::vector<std::size_t>& righe, const std::function<void(intake::Decisione&)>& come);
  QString dettiDocumenti() const;
  QString dettiIgnorati() const;
  void mostraScelte();
  void riempiCausali();
  void mostraDocumento();
  void scegliProposta();
  void usaCausale();
  void ricorda();

  std::shared_ptr<const intake::Piano> piano_;
  std::vector<DocumentoMostrato> documenti_;
  bool soloDaVedere_ = false;
  strumenti::Frase* frase_ = nullptr;
  QComboBox* quali_ = nullptr;
  QComboBox* forfettari_ = nullptr;
  QPushButton* ricorda_ = nullptr;
  QCheckBox* altrui_ = nullptr;
  QCheckBox* illeggibili_ = nullptr;
  strumenti::Frase* risposta_ = nullptr;
  strumenti::Tabella* tabella_ = nullptr;
  strumenti::Frase* detto_ = nullptr;
  QWidget* scelta_ = nullptr;
  QComboBox* proposte_ = nullptr;
  QWidget* perCausale_ = nullptr;
  QComboBox* causali_ = nullptr;
  QCheckBox* tutti_ = nullptr;
  QPushButton* riprendi_ = nullptr;
};

}  // namespace cu::assistente
