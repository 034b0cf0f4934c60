#pragma once

#include "apps/assistente/pagina.h"

class QPushButton;

namespace cu::strumenti {
class Frase;
}  // namespace cu::strumenti

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
  QPushButton* altra_;
};

}  // namespace cu::assistente
