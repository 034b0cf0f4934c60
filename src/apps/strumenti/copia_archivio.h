#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

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

// A copy that shall take the place of a database, and the name that the present one gets.
struct Ripristino {
  QString copia;
  std::string tenuto;
};

// Asks for a copy, says what follows from it, and asks again; `inoltre` is said below. None where it is not
// wanted, or where the file cannot be one, which is said. Nothing has changed.
std::optional<Ripristino> chiediRipristino(QWidget* parent, const Profilo::Database& database,
                                           const QString& inoltre = {});
// Once the file is chosen.
std::optional<Ripristino> chiediRipristinoDa(QWidget* parent, const Profilo::Database& database,
                                             const QString& copia, const QString& inoltre = {});
// Does what was asked: a work in a dialog of its own. Whether the copy is in the place; otherwise the dialog
// has said why, and the database is as it was.
bool ripristina(QWidget* parent, const Profilo::Database& database, const Ripristino& scelto);

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

// Adds to the wizard's window the menu entries, and the offer below what its main action will do. Before its
// forms are shown. `ripristina` is given the window: the database is in use while it is open.
void offriCopie(desktop::QtFrontEnd& schermo, const Profilo::Database& database,
                const std::function<void(QWidget* finestra)>& ripristina);

}  // namespace cu::strumenti
