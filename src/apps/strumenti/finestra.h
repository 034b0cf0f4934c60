#pragma once

#include <QDialog>
#include <QKeySequence>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <optional>

#include "apps/strumenti/attesa.h"
#include "apps/strumenti/lavoro.h"
#include "desktop/guide_window.h"
#include "lettura/rilievi.h"
#include "suite/profilo.h"

class QPushButton;
class QSplitter;

namespace cu::strumenti {

// What the windows have in common: they belong to themselves, keep their place and their splitters for the
// next time, close with Esc, and work in a thread, one work at a time, showing how far it is.
class Finestra : public QWidget {
 public:
  explicit Finestra(const QString& nome);
  bool lavora() const { return lavoro_.inCorso(); }
  // Whether one of them is on the screen.
  static bool aperte();
  // The folder of the user's guide, for F1.
  static void guida(const QString& cartella);

 protected:
  // Called by the subclass at the end of its construction.
  void ricordaPosto(std::initializer_list<QSplitter*> divisori, QSize dimensione);
  void closeEvent(QCloseEvent* event) override;
  // A reason not to close now; empty where there is none.
  virtual QString occupata() const { return {}; }
  // Of the user's guide, for F1.
  virtual QString capitolo() const { return QStringLiteral("Controllare e seguire i file telematici"); }
  void mostraErrore(const QString& testo);
  QPushButton* pulsante(const char* testo, const std::function<void()>& azione,
                        const QKeySequence& tasto = {});
  // `azione` is the caption of the button that goes on, `altrimenti` of the one that does not.
  bool conferma(const QString& testo, const QString& azione,
                const QString& altrimenti = QStringLiteral("Annulla"));

  struct Compito {
    QString che;  // "Lettura del file…"
    std::function<void()> lavoro;
    std::function<void(const Lavoro::Esito&)> finito;
    bool interrompibile = true;
    QString interrompi = QStringLiteral("Interrom&pi");  // the caption of the button that does
  };
  void esegui(Compito compito);
  Lavoro& lavoro() { return lavoro_; }
  // To be placed in the window by the subclass.
  Attesa* attesa() { return attesa_; }

 private:
  QString nome_;
  Attesa* attesa_;
  Lavoro lavoro_;
  QList<QSplitter*> divisori_;
  QPointer<desktop::HelpWindow> aiuto_;
};

// A button whose Enter works, whatever has the default.
QPushButton* nuovoPulsante(QWidget* parent, const char* testo, const std::function<void()>& azione);

// The files that are dropped on a widget.
void accettaFile(QWidget* widget, std::function<void(const QStringList& file)> ricevi);
// A dialog of the windows: it keeps its size for the next time.
class Dialogo : public QDialog {
 public:
  Dialogo(QWidget* parent, const QString& nome, const QString& titolo);
  void done(int esito) override;

 protected:
  // Called by the subclass at the end of its construction.
  void ricordaDimensione(QSize dimensione);

 private:
  QString nome_;
};

// The folder that was last used for a purpose, for the next dialog.
QString cartellaRicordata(const QString& uso, const QString& altrimenti = {});
void ricordaCartella(const QString& uso, const QString& cartella);

// The dialog for a telematic file, near another one, in a folder or where the last one was; empty where none
// was chosen.
QString scegliFile(QWidget* parent, const QString& titolo, const QString& vicino = {});

// "✖ errore", "⚠ avviso": a sign and a word.
QString detto(lettura::Gravita gravita);
// "20.000"
QString conteggio(std::uint64_t numero);
// "✖ 2  ⚠ 8", and the same in words for a screen reader.
QString segni(std::size_t errori, std::size_t avvisi);
QString segniDetti(std::size_t errori, std::size_t avvisi);
inline QString qs(const std::string& testo) { return QString::fromStdString(testo); }
// "1.234,50"; empty for zero.
QString importoMostrato(std::int64_t centesimi);

}  // namespace cu::strumenti
