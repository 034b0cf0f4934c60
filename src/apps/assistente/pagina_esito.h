#pragma once

#include "apps/assistente/pagina.h"

namespace cu::assistente {

// What was written, and how it is taken back.
class PaginaEsito : public Pagina {
 public:
  PaginaEsito(QWidget* parent, Assistente& assistente);
  void mostra() override;
  QWidget* primo() override;
  std::function<void()> apriStorico;
  std::function<void()> ricomincia;

 private:
  strumenti::Frase* frase_;
  QPushButton* altra_ = nullptr;
};

}  // namespace cu::assistente
