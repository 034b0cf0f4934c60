#include "sqlite/row_order.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <optional>

#include "base/collation.h"
#include "base/text.h"

namespace cu::sqlite {
namespace {

// A row of fewer columns takes about as much here as in the engine.
constexpr std::size_t kWide = 100;

// The place of a column in the result; none where it is not there.
std::optional<std::size_t> placeInResult(const Select& select, const Expr& term) {
  if (term.kind != ExprKind::Column) return std::nullopt;
  std::size_t place = 0;
  for (const SelectItem& item : select.items) {
    if (!item.star) {
      const bool alias = term.qualifier.empty() && equalsNoCase(item.alias, term.name);
      const bool same = item.expr->kind == ExprKind::Column && !term.qualifier.empty() &&
                        equalsNoCase(item.expr->qualifier, term.qualifier) &&
                        equalsNoCase(item.expr->name, term.name);
      if (alias || same) return place;
      ++place;
      continue;
    }
    std::size_t ofSource = place;
    for (const Source& source : select.from) {
      if (!item.qualifier.empty() && !equalsNoCase(item.qualifier, source.name())) continue;
      const std::size_t column = source.info->find(term.name);
      if (!term.qualifier.empty() && equalsNoCase(source.name(), term.qualifier) &&
          column != TableInfo::kNone)
        return ofSource + column;
      ofSource += source.info->columns.size();
    }
    place += item.width;
  }
  return std::nullopt;
}

int cellRank(const CellView& cell) {
  if (cell.isNull()) return 0;
  return cell.type() == ValueType::Text ? 2 : 1;
}

template <class T>
int sign(const T& a, const T& b) {
  return a < b ? -1 : b < a ? 1 : 0;
}

int compareCells(const CellView& a, const CellView& b) {
  if (const int ranks = sign(cellRank(a), cellRank(b)); ranks != 0 || a.isNull()) return ranks;
  if (a.type() == ValueType::Text) return compareItalian(a.text(), b.text());
  if (a.type() == ValueType::Integer && b.type() == ValueType::Integer) return sign(a.integer(), b.integer());
  return sign(a.decimal(), b.decimal());
}

}  // namespace

std::vector<OrderColumn> orderOfRows(const Select& select) {
  // Of a single table an index may have the order.
  if (select.from.size() < 2 || select.output.size() < kWide || select.distinct || select.aggregated)
    return {};
  std::vector<OrderColumn> order;
  for (const OrderTerm& term : select.orderBy) {
    const std::optional<std::size_t> place = placeInResult(select, *term.expr);
    if (!place) return {};
    const ValueKind kind = select.output[*place].kind;
    if (kind != ValueKind::Text && kind != ValueKind::Integer) return {};
    order.push_back({*place, term.descending});
  }
  return order;
}

void sortRows(RowStore& rows, std::size_t first, const std::vector<OrderColumn>& order) {
  const std::size_t count = rows.size() - first;
  if (count < 2 || order.empty()) return;
  std::size_t columns = 0;
  for (const OrderColumn& each : order) columns = std::max(columns, each.column + 1);
  std::vector<CellView> cells(columns);
  std::vector<CellView> keys;
  keys.reserve(count * order.size());
  for (std::size_t i = 0; i < count; ++i) {
    rows.readFirst(first + i, columns, cells.data());
    for (const OrderColumn& each : order) keys.push_back(cells[each.column]);
  }
  std::vector<std::uint32_t> places(count);
  std::iota(places.begin(), places.end(), 0U);
  std::stable_sort(places.begin(), places.end(), [&](std::uint32_t a, std::uint32_t b) {
    const CellView* const left = &keys[a * order.size()];
    const CellView* const right = &keys[b * order.size()];
    for (std::size_t i = 0; i < order.size(); ++i) {
      const int result = compareCells(left[i], right[i]);
      if (result != 0) return order[i].descending ? result > 0 : result < 0;
    }
    return false;
  });
  rows.reorder(first, places);
}

}  // namespace cu::sqlite
