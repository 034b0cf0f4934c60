#pragma once

#include <functional>
#include <vector>

#include "apps/strumenti/finestra.h"
#include "intake/storico.h"

class QPushButton;

namespace cu::strumenti {
class Frase;
class Tabella;
}  // namespace cu::strumenti

namespace cu::assistente {

// The imports of a database, and the way to take one back.
class FinestraStorico : public strumenti::Finestra {
 public:
  explicit FinestraStorico(Profilo profilo);
  // A batch was taken back.
  std::function<void(std::int32_t lotto)> annullata;

 protected:
  QString occupata() const override;
  QString capitolo() const override;

 private:
  void leggi();
  void mostra();
  void abilita();
  const intake::Lotto* corrente() const;
  void prova();
  void annulla(std::int32_t lotto);
  void compi(const QString& che, std::function<void()> lavoro, std::function<void()> fatto);

  Profilo profilo_;
  std::vector<intake::Lotto> lotti_;  // the last one first
  strumenti::Frase* frase_;
  strumenti::Tabella* tabella_ = nullptr;
  strumenti::Frase* risposta_;
  QPushButton* annulla_ = nullptr;
  bool scrive_ = false;
};

}  // namespace cu::assistente
