#pragma once

#include <functional>

#include "apps/strumenti/attesa.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/lavoro.h"

namespace cu::strumenti {

class Frase;

// A work that blocks the window it belongs to: how far it is and the button that interrupts it, then what it
// has done or why it has not, until the person has read it.
class DialogoLavoro : public Dialogo {
 public:
  struct Compito {
    QString che;                                 // "Copia in corso…"
    std::function<QString(Lavoro& lavoro)> fai;  // in a thread of its own; what was done, as a sentence
    QString interrotto;                          // what is left after an interruption
  };
  DialogoLavoro(QWidget* parent, const QString& nome, const QString& titolo, Compito compito);
  ~DialogoLavoro() override;

  bool riuscito() const { return riuscito_; }
  bool inCorso() const { return lavoro_.inCorso(); }
  QString testo() const;
  // As Esc and the close box do: the work ends after its step.
  void reject() override;

 private:
  void finito(const QString& testo, bool riuscito);

  Frase* frase_;
  Attesa* attesa_;
  QPushButton* chiudi_;
  QString fatto_;
  bool riuscito_ = false;
  Lavoro lavoro_;
};

}  // namespace cu::strumenti
