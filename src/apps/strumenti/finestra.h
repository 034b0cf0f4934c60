#pragma once

#include <QKeySequence>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/reading_windows.h"
#include "lettura/rilievi.h"
#include "suite/profilo.h"

class QPushButton;
class QSplitter;

namespace cu::strumenti {

// What the windows have in common: they belong to themselves, keep their place and their splitters for the
// next time, and close with Esc.
class Finestra : public QWidget {
 public:
  explicit Finestra(const QString& nome);
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
  void mostraErrore(const QString& testo);
  QPushButton* pulsante(const char* testo, const std::function<void()>& azione, QKeySequence tasto = {});
  bool conferma(const QString& testo);

 private:
  QString nome_;
  QList<QSplitter*> divisori_;
  QPointer<desktop::HelpWindow> aiuto_;
};

// The files that are dropped on a widget.
void accettaFile(QWidget* widget, std::function<void(const QStringList& file)> ricevi);
// The dialog for a telematic file; empty where none was chosen.
QString scegliFile(QWidget* parent, const QString& titolo, const QString& vicino = {});

// "✖ errore", "⚠ avviso": a sign and a word.
QString detto(lettura::Gravita gravita);
// "✖ 2  ⚠ 8", and the same in words for a screen reader.
QString segni(std::size_t errori, std::size_t avvisi);
QString segniDetti(std::size_t errori, std::size_t avvisi);
inline QString qs(const std::string& testo) { return QString::fromStdString(testo); }
// "1.234,50"; empty for zero.
QString importoMostrato(std::int64_t centesimi);

}  // namespace cu::strumenti
