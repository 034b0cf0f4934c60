#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <QStringList>
#include <optional>
#include <vector>

#include "data/recordset.h"
#include "desktop/input_drain.h"
#include "desktop/matches.h"

class QLabel;
class QLineEdit;
class QTableView;

namespace cu::desktop {

// The rows of a search list whose code and description contain all words typed, in any order; case and
// accents are ignored. The best come first: a code or description that is the text itself, one that begins
// with it, rows with words that begin with the words typed, and the others; equal ones stay in the list's
// order.
class SearchModel : public QAbstractTableModel {
 public:
  SearchModel(Recordset& rows, QStringList captions, QObject* parent = nullptr);
  void narrow(const QString& typed);
  // Where the text of a column has the words typed, for each word its first place that begins a word or any
  // other.
  std::vector<Stretch> matched(const QString& text) const;
  std::size_t total() const { return keys_.size(); }
  std::int64_t record(int row) const;
  std::string code(int row) const { return text(row, 1); }
  std::string description(int row) const { return text(row, 2); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Key {
    QString code;
    QString description;
  };
  std::string text(int row, std::size_t field) const;
  // From 0 for the best; nullopt for a row without one of the words.
  std::optional<std::size_t> rank(const Key& key) const;

  Recordset& rows_;
  QStringList captions_;
  std::vector<Key> keys_;
  std::vector<std::uint32_t> passing_;   // indexes from 0, in the list's order
  std::vector<std::uint32_t> matching_;  // the same, the best first
  QString narrowed_;
  QStringList words_;
  mutable std::vector<CellView> cells_;
};

// A search list: the user types to search, and chooses with the arrows and Enter or by a double click.
class SearchDialog : public QDialog {
 public:
  SearchDialog(QWidget* parent, const QString& title, Recordset& rows, const QStringList& captions,
               const QString& typed);
  // Keys pressed before the list was shown; they are processed when it is.
  void typeAhead(Keys keys);
  struct Chosen {
    std::int64_t record = 0;
    std::string code;
    std::string description;
  };
  const std::optional<Chosen>& chosen() const { return chosen_; }
  SearchModel& model() { return model_; }
  QLineEdit* box() const { return box_; }
  QTableView* table() const { return table_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void take();
  void narrow(const QString& typed);

  SearchModel model_;
  QLineEdit* box_;
  QTableView* table_;
  QLabel* count_;
  std::optional<Chosen> chosen_;
};

}  // namespace cu::desktop
