#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QString>
#include <QVariant>
#include <cstddef>
#include <functional>
#include <vector>

namespace cu::strumenti {

// A column of a table whose rows lie elsewhere.
struct Colonna {
  using Testo = std::function<QString(std::size_t riga)>;
  const char* chiave;  // for what is remembered of it; empty for one that only fills the table
  const char* titolo;
  Testo testo;
  bool aDestra = false;
  std::function<QVariant(std::size_t riga)> ordine = {};  // the text where it is empty
  Testo detto = {};                                       // for a screen reader; the text where it is empty
  int massima = 240;                                      // of its first width, in normal letters
  // Of the last column: it is as wide as its longest text, and scrolled to, where it does not fit.
  bool intera = false;
  // What a person writes into a cell, and where the editor begins; a column without is only read.
  std::function<void(std::size_t riga, const QString& testo)> scrivi = {};
  Testo daScrivere = {};
  std::function<bool(std::size_t riga)> scrivibile = {};  // every row where it is empty
  bool importi = false;                                   // amounts among other texts: they are at the right
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
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 protected:
  bool filterAcceptsRow(int riga, const QModelIndex& parent) const override;
};

}  // namespace cu::strumenti
