#include "desktop/grid_search.h"

#include <array>

#include "desktop/grid_model.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

enum Match : std::size_t { Begins, Has, Field, Lacks };
constexpr std::size_t kMatches = 3;

class RowSearch {
 public:
  RowSearch(const GridModel& model, const QString& what, int column)
      : model_(model), wanted_(folded(what)), column_(column) {}
  bool any() const { return !wanted_.isEmpty() && model_.rowCount() > 0; }

  Match match(int row) const {
    const qsizetype found = folded(model_.text(row, column_)).indexOf(wanted_);
    if (found >= 0) return found == 0 ? Begins : Has;
    return field(row).isEmpty() ? Lacks : Field;
  }
  RowFound found(int row) const {
    if (row < 0) return {};
    return {row, match(row) == Field ? field(row) : QString()};
  }

 private:
  QString field(int row) const {
    for (const SearchedField& each : model_.searched()) {
      const QString text = model_.fieldText(row, each.field);
      if (folded(text).startsWith(wanted_)) return shown(each.name) + u' ' + text;
    }
    return {};
  }

  const GridModel& model_;
  QString wanted_;
  int column_;
};

}  // namespace

RowFound findRow(const GridModel& model, const QString& what, int column, int from) {
  const RowSearch search(model, what, column);
  if (!search.any()) return {};
  std::array<int, kMatches> first{-1, -1, -1};
  for (int step = 0; step < model.rowCount(); ++step) {
    const int row = (from + step) % model.rowCount();
    const Match match = search.match(row);
    if (match == Begins) return search.found(row);
    if (match != Lacks && first.at(match) < 0) first.at(match) = row;
  }
  return search.found(first[Has] >= 0 ? first[Has] : first[Field]);
}

RowFound findNextRow(const GridModel& model, const QString& what, int column, int row) {
  const RowSearch search(model, what, column);
  if (!search.any()) return {};
  const Match here = row < 0 || row >= model.rowCount() ? Lacks : search.match(row);
  if (here == Lacks) return findRow(model, what, column, row + 1);
  std::array<int, kMatches> first{-1, -1, -1};
  for (int of = 0; of < model.rowCount(); ++of) {
    const Match match = of == row ? here : search.match(of);
    if (match == here && of > row) return search.found(of);
    if (match != Lacks && first.at(match) < 0) first.at(match) = of;
  }
  // The first of the next kind that there is, at last of the same.
  for (std::size_t step = 1; step < kMatches; ++step) {
    const int next = first.at((here + step) % kMatches);
    if (next >= 0) return search.found(next);
  }
  return search.found(first.at(here));
}

}  // namespace cu::desktop
