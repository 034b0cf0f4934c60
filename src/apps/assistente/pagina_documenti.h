#pragma once

#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/documenti_mostrati.h"

namespace cu::assistente {

// What was read of each invoice, and what a person decides where the document does not say it.
class PaginaDocumenti : public PaginaPiano {
 public:
  PaginaDocumenti(QWidget* parent, Assistente& assistente);

 protected:
  std::size_t prendi() override;

 private:
  void componiSopra();
  void componiTabella();
  void componiDecisioni();
  const DocumentoMostrato* corrente() const;
  std::vector<std::size_t> evidenziati() const;
  void decidi(const std::vector<std::size_t>& righe, const std::function<void(intake::Decisione&)>& come);
  QString dettiDocumenti() const;
  QString dettiIgnorati() const;
  void mostraScelte();
  void riempiCausali();
  void mostraDocumento();
  void scegliProposta(std::size_t quale);
  void usaCausale();
  void ricorda();

  std::vector<DocumentoMostrato> documenti_;
  bool soloDaVedere_ = false;
  strumenti::Frase* frase_ = nullptr;
  QComboBox* quali_ = nullptr;
  QComboBox* forfettari_ = nullptr;
  QPushButton* ricorda_ = nullptr;
  QCheckBox* altrui_ = nullptr;
  QCheckBox* illeggibili_ = nullptr;
  strumenti::Frase* risposta_ = nullptr;
  strumenti::Frase* detto_ = nullptr;
  RiquadroScelta* proposte_ = nullptr;
  QWidget* perCausale_ = nullptr;
  QComboBox* causali_ = nullptr;
  QCheckBox* tutti_ = nullptr;
  QPushButton* riprendi_ = nullptr;
};

}  // namespace cu::assistente
