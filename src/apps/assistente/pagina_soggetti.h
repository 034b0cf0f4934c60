#pragma once

#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/riepiloghi.h"

namespace cu::assistente {

// Whom the rows of payments mean, and the choice among several.
class PaginaSoggetti : public PaginaPiano {
 public:
  PaginaSoggetti(QWidget* parent, Assistente& assistente);

 protected:
  std::size_t prendi() override;

 private:
  QString dettiConteggi() const;
  void mostraScelta();
  void scegli(std::int32_t id);

  std::vector<SoggettoPiano> soggetti_;
  strumenti::Frase* frase_;
  RiquadroScelta* candidati_ = nullptr;
};

}  // namespace cu::assistente
