#pragma once

#include <QString>
#include <QWidget>
#include <cstddef>
#include <functional>
#include <vector>

class QHBoxLayout;

namespace cu::strumenti {

class CasellaCerca;
class Tabella;

// The search above a table of certificates: a box, and beside it what else chooses among them. Ctrl+F goes to
// the box from anywhere in the window.
class Ricerca : public QWidget {
 public:
  explicit Ricerca(QWidget* parent);
  // Says what can be searched for, and the same for a screen reader.
  void proponi(const QString& testo, const QString& detta);
  // Before the box, or after it.
  void metti(QWidget* widget, bool prima = false);
  // The table whose rows are searched.
  void serve(Tabella* tabella);
  // What can be found of each row.
  void prepara(std::size_t righe, const std::function<std::string(std::size_t riga)>& testo);
  bool passa(std::size_t riga) const;
  void svuota();
  // Applies the filter again, here and where another one has changed.
  void applica();
  // After the filter was applied.
  std::function<void()> cambiata;

 private:
  QHBoxLayout* riga_;
  CasellaCerca* cerca_;
  Tabella* tabella_ = nullptr;
  std::vector<QString> testi_;
  QString cercato_;
  int prima_ = 0;
};

}  // namespace cu::strumenti
