#pragma once

#include <QDate>
#include <functional>
#include <vector>

#include "apps/esame/operazioni_registro.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/stato_letto.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace cu::strumenti {

// Which file was sent, and when.
class DialogoInviato : public Dialogo {
 public:
  // `cartella` is where the file is looked for at first.
  DialogoInviato(QWidget* parent, QDate oggi, const QString& cartella);
  QString file() const;
  QDate giorno() const;
  void scegli(const QString& file);

 private:
  void controlla();

  QLineEdit* file_;
  QLineEdit* giorno_;
  QLabel* nota_;
  QPushButton* segna_;
};

// What the rows of a receipt change. It is accepted only where the plan can be applied.
class DialogoRicevuta : public Dialogo {
 public:
  DialogoRicevuta(QWidget* parent, const QString& nome, const riscontro::PianoRicevuta& piano);

 private:
  riscontro::PianoRicevuta piano_;
};

// The files that were written, with their checks.
class DialogoCorrezioni : public Dialogo {
 public:
  DialogoCorrezioni(QWidget* parent, const EsitoCorreggi& esito,
                    const std::function<void(const QString& file)>& apri);
};

}  // namespace cu::strumenti
