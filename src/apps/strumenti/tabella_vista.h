#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVariant>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/column_memory.h"

namespace cu::strumenti {

// A column of a table whose rows lie elsewhere.
struct Colonna {
  using Testo = std::function<QString(std::size_t riga)>;
  const char* chiave;  // for the memory of its width
  const char* titolo;
  Testo testo;
  bool aDestra = false;
  std::function<QVariant(std::size_t riga)> ordine = {};  // the text where it is empty
  Testo detto = {};                                       // for a screen reader; the text where it is empty
  int massima = 240;                                      // of its first width
  // Of the last column: it is as wide as its longest text, and scrolled to, where it does not fit.
  bool intera = false;
  // What a person writes into a cell, and where the editor begins; a column without is only read.
  std::function<void(std::size_t riga, const QString& testo)> scrivi = {};
  Testo daScrivere = {};
  std::function<bool(std::size_t riga)> scrivibile = {};  // every row where it is empty
};

// Reads each cell when it is shown.
class ModelloTabella : public QAbstractTableModel {
 public:
  static constexpr int kOrdine = Qt::UserRole;

  ModelloTabella(std::vector<Colonna> colonne, QObject* parent);
  // The rows are other ones.
  void mostra(std::size_t righe);
  // Rows that are in bold.
  std::function<bool(std::size_t riga)> inGrassetto;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  const std::vector<Colonna>& colonne() const { return colonne_; }

 private:
  std::vector<Colonna> colonne_;
  int righe_ = 0;
};

class FiltroTabella : public QSortFilterProxyModel {
 public:
  explicit FiltroTabella(QObject* parent);
  // Rows that are shown; all of them where it is empty.
  std::function<bool(std::size_t riga)> passa;
  // As a whole: many scattered rows leave faster than one by one.
  void riapplica() { invalidate(); }

 protected:
  bool filterAcceptsRow(int riga, const QModelIndex& parent) const override;
};

// A table of rows with a filter, a current row that stays in sight when it is sorted, the user's widths of
// columns, and Ctrl+C for the highlighted rows.
class Tabella : public QTableView {
 public:
  // `nome` is that of the table in the user's settings, `detta` that for a screen reader.
  Tabella(const QString& nome, const QString& detta, std::vector<Colonna> colonne, QWidget* parent);

  ModelloTabella& modello() { return *modello_; }
  FiltroTabella& filtro() { return *filtro_; }
  // Shows other rows, and highlights the first one where `primaRiga`.
  void mostra(std::size_t righe, bool primaRiga = true);
  // The same rows as they are now: the current one stays so where it is still shown.
  void rimostra(std::size_t righe);
  // Applies the filter again. A highlighted row that is still shown stays so, otherwise the first one is.
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

  // The current row has changed, or the rows themselves.
  std::function<void(std::optional<std::size_t> riga)> scelta;
  // Enter, or a click.
  std::function<void(std::size_t riga)> aperta;

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void larghezze();
  void larghezzaUltima();
  int larghezzaDi(int colonna) const;
  // The column that can be written; -1 for none.
  int scritta() const;
  bool scriviQui(QKeyEvent* event);
  void copia();

  ModelloTabella* modello_;
  FiltroTabella* filtro_;
  desktop::ColumnMemory memoria_;
  std::optional<std::size_t> detta_;
  bool zitta_ = false;
  bool posate_ = false;
  int ultima_ = 0;  // the width that the last column's texts need, where it is to show all of them
};

}  // namespace cu::strumenti
