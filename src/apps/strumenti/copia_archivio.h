#pragma once

#include <QWidget>
#include <functional>

#include "suite/profilo.h"

class QPushButton;

namespace cu::desktop {
class QtFrontEnd;
}  // namespace cu::desktop

// Copies of an embedded database and their way back, in windows.
namespace cu::strumenti {

class Frase;

// Whether copies of the database are this program's business; those of a server are not.
bool siCopia(const Profilo::Database& database);

// Asks where, and copies; whether there is a new copy. A work in a dialog of its own.
bool faiCopia(QWidget* parent, const Profilo::Database& database);
// Once the file is chosen. A file that exists was confirmed to be replaced.
bool copiaIn(QWidget* parent, const Profilo::Database& database, const QString& file);

// Asks for a copy, asks again, and puts it in the place of the database; whether it was.
bool ripristinaCopia(QWidget* parent, const Profilo::Database& database);
bool ripristinaDa(QWidget* parent, const Profilo::Database& database, const QString& copia);

// "oggi alle 10:30", "il 05/03/2027 alle 10:30"; empty where none is known.
QString dettaUltimaCopia(const Profilo::Database& database);

// The offer of a copy before something that writes: when the last one was made, and the button. Hidden for a
// server.
class RigaCopia : public QWidget {
 public:
  // `stretto`: the button below the sentence.
  RigaCopia(QWidget* parent, Profilo::Database database, bool stretto = false);
  QPushButton* pulsante() const { return copia_; }
  // What the button does; without it faiCopia.
  std::function<void()> azione;
  void aggiorna();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  Profilo::Database database_;
  Frase* frase_;
  QPushButton* copia_;
};

// Adds to the wizard's window the menu entry, and the offer below what its main action will do. Before its
// forms are shown.
void offriCopie(desktop::QtFrontEnd& schermo, const Profilo::Database& database);

}  // namespace cu::strumenti
