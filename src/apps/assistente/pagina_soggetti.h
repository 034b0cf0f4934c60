#pragma once

#include <memory>
#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/riepiloghi.h"

class QPushButton;

namespace cu::strumenti {
class Frase;
class Tabella;
}  // namespace cu::strumenti

namespace cu::assistente {

// Whom the rows of payments mean, and the choice among several.
class PaginaSoggetti : public Pagina {
 public:
  PaginaSoggetti(QWidget* parent, Assistente& assistente);
  void mostra() override;
  QWidget* primo() override;

 private:
  QString dettiConteggi() const;
  void mostraScelta();
  void scegli();

  std::shared_ptr<const intake::Piano> piano_;
  std::vector<SoggettoPiano> soggetti_;
  strumenti::Frase* frase_;
  strumenti::Tabella* tabella_;
  QWidget* scelta_;
  QComboBox* candidati_;
};

}  // namespace cu::assistente
