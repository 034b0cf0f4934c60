#pragma once

#include <QTableView>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "apps/strumenti/modello_vista.h"
#include "desktop/table_commands.h"

namespace cu::strumenti {

// A table of rows with a filter, a current row that stays in sight when it is sorted, and the look and the
// commands of all tables.
class Tabella : public QTableView {
 public:
  // `nome` is that of the table in the user's settings, `detta` that for a screen reader.
  Tabella(const QString& nome, const QString& detta, std::vector<Colonna> colonne, QWidget* parent);

  ModelloTabella& modello() { return *modello_; }
  // There is a search for its rows: words in the empty table say that it has found none.
  void setCercata() { cercata_ = true; }
  FiltroTabella& filtro() { return *filtro_; }
  // Shows other rows, and highlights the first one where `primaRiga`.
  void mostra(std::size_t righe, bool primaRiga = true);
  // The same rows as they are now: the current one stays so where it is still shown.
  void rimostra(std::size_t righe);
  // Applies the filter again. A highlighted row that is still shown stays so, otherwise the first one is,
  // until the filter shows the one before again or the person goes to another.
  void riapplicaFiltro();
  // The current row of the model.
  std::optional<std::size_t> corrente() const;
  void scegli(std::optional<std::size_t> riga);
  // The highlighted rows of the model, in its order.
  std::vector<std::size_t> evidenziate() const;
  std::size_t mostrate() const;
  // The next row below that can be written becomes the current one, where there is one.
  void avanza();
  // Opens the cell of a row that can be written, with the text; it is corrected there.
  void riscrivi(std::size_t riga, const QString& testo);
  // Takes what is being written in a cell.
  void concludi();
  desktop::TableCommands& comandi() { return *comandi_; }

  // The current row has changed, or the rows themselves.
  std::function<void(std::optional<std::size_t> riga)> scelta;
  // Enter, or a click.
  std::function<void(std::size_t riga)> aperta;
  // Enter, a double click, or the first command in the menu of a row, which has this caption.
  void apreCon(const QString& scritta, std::function<void(std::size_t riga)> apri);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void larghezze();
  void larghezzePrime();
  void larghezzaUltima();
  int larghezzaDi(int colonna) const;
  // The column that can be written; -1 for none.
  int scritta() const;
  bool scriviQui(QKeyEvent* event);
  bool siVede(std::size_t riga) const;
  // There are rows, and the search hides all of them.
  bool vuota() const { return cercata_ && modello_->rowCount() > 0 && filtro_->rowCount() == 0; }
  void diceVuota();

  ModelloTabella* modello_;
  FiltroTabella* filtro_;
  desktop::TableCommands* comandi_;
  std::optional<std::size_t> detta_;
  std::optional<std::size_t> tolta_;  // was the current row when the filter hid it
  bool cercata_ = false;
  bool zitta_ = false;
  bool posate_ = false;
  int ultima_ = 0;  // the width that the last column's texts need, where it is to show all of them
};

}  // namespace cu::strumenti
