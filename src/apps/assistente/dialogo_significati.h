#pragma once

#include "apps/importazione/colonne_scelte.h"
#include "apps/strumenti/finestra.h"

class QTableWidget;

namespace cu::assistente {

// What the texts of a column mean: beside each different one a text of the list, or nothing where it is one.
class DialogoSignificati : public strumenti::Dialogo {
 public:
  static constexpr std::size_t kMassimo = 200;  // texts that are shown

  DialogoSignificati(QWidget* parent, const intake::Colonna& colonna, const Significati& significati);
  Significati significati() const;

 private:
  Significati prima_;
  QTableWidget* tabella_;
};

}  // namespace cu::assistente
