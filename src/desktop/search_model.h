#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/recordset.h"
#include "desktop/further_reader.h"
#include "desktop/matches.h"

namespace cu::desktop {

// The rows of a search list that contain all words typed, in any order, in code, description or further
// columns; case and accents are ignored. The best come first: what is the text itself, codes and descriptions
// that begin with it, further columns that do, rows with words that begin with the words typed, and the
// others; equal ones stay in the list's order. A description counts also with the first further column after
// or before it: surname and first name.
class SearchModel : public QAbstractTableModel {
 public:
  // The captions of code, description and further columns, which are empty until they are added.
  SearchModel(Recordset& rows, QStringList captions, QObject* parent = nullptr);
  void addFurther(FurtherRows further);
  void narrow(const QString& typed);
  // Where the text of a column has the words typed, for each word its first place that begins a word or any
  // other.
  std::vector<Stretch> matched(const QString& text) const;
  std::size_t total() const { return keys_.size(); }
  std::int64_t record(int row) const;
  std::string code(int row) const { return text(row, 1); }
  std::string description(int row) const { return text(row, 2); }
  // The row in view with that record; -1 for none.
  int rowOf(std::int64_t record) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Key {
    QString code;
    QString description;
    const FurtherRow* further = nullptr;
  };
  std::string text(int row, std::size_t field) const;
  const Key& keyOf(int row) const { return keys_[matching_[static_cast<std::size_t>(row)]]; }
  // From 0 for the best; nullopt for a row without one of the words.
  std::optional<std::size_t> rank(const Key& key) const;
  void choose();

  Recordset& rows_;
  QStringList captions_;
  FurtherRows further_;
  std::vector<Key> keys_;
  std::vector<std::uint32_t> passing_;   // indexes from 0, in the list's order
  std::vector<std::uint32_t> matching_;  // the same, the best first
  QString narrowed_;
  QStringList words_;
  mutable std::vector<CellView> cells_;
};

}  // namespace cu::desktop
