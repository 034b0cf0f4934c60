#include "reporting/table.h"

#include <algorithm>

#include "reporting/italian.h"
#include "reporting/palette.h"

namespace cu::reporting {
namespace {

constexpr double kPadding = 0.85;  // mm, inside a cell
constexpr double kRowGap = 1.3;    // mm, around the lines of a row
constexpr double kGroupGap = 0.8;  // mm, below a group
constexpr double kCaptionGap = 1.2;
constexpr double kRounding = 1e-6;
constexpr double kTitleShare = 0.35;

Align alignOf(const ReportColumn& column) {
  switch (column.format) {
    case ColumnFormat::Amount:
      return Align::Right;
    case ColumnFormat::Date:
    case ColumnFormat::Integer:
    case ColumnFormat::Text:
      return Align::Left;
  }
  return Align::Left;
}

}  // namespace

ColumnValue::ColumnValue(const ReportColumn& column, const Rows& rows) : format_(column.format) {
  if (column.terms.front().field.find('{') != std::string::npos) {
    template_.emplace_back(column.terms.front().field, rows);
    return;
  }
  for (const Term& term : column.terms) terms_.push_back({rows.place(term.field), term.negative});
}

Decimal ColumnValue::amount(const Rows& rows) const {
  Decimal sum;
  if (format_ != ColumnFormat::Amount) return sum;
  for (const Place& term : terms_) {
    const Decimal value = rows.at(term.place).decimal();
    sum = term.negative ? sum - value : sum + value;
  }
  return sum;
}

QString ColumnValue::text(const Rows& rows) const {
  if (isTemplate()) return template_.front().of(rows);
  switch (format_) {
    case ColumnFormat::Amount:
      return italianAmount(amount(rows));
    case ColumnFormat::Date:
      return italianDate(cell(rows).date());
    case ColumnFormat::Integer:
      return cell(rows).isNull() ? QString() : QString::number(cell(rows).integer());
    case ColumnFormat::Text:
      return fromUtf8(cell(rows).toText());
  }
  return {};
}

Table::Table(Canvas& canvas, const ReportDefinition& definition, Rows& rows, std::size_t firstGroup,
             Area area, double points, std::function<double()> newPage)
    : canvas_(canvas),
      definition_(definition),
      rows_(rows),
      firstGroup_(firstGroup),
      area_(area),
      newPage_(std::move(newPage)),
      body_{points, false, kInk},
      strong_{points, true, kInk},
      caption_{points - 0.8, true, kAccent} {
  double shares = 0;
  for (const ReportColumn& column : definition.columns) shares += column.width;
  double left = area.x;
  std::size_t lines = 1;
  for (const ReportColumn& column : definition.columns) {
    values_.emplace_back(column, rows);
    lefts_.push_back(left);
    const double width = area.width * column.width / shares;
    // Captions that fill right-aligned columns would touch the next column's left-aligned one.
    const double apart = alignOf(column) == Align::Right ? kCaptionGap : 0;
    captions_.push_back(canvas.wrap(fromUtf8(column.caption), caption_, width - 2 * kPadding - apart));
    lines = std::max(lines, static_cast<std::size_t>(captions_.back().size()));
    left += width;
  }
  lefts_.push_back(left);
  for (const ReportGroup& group : definition.groups) {
    std::vector<std::size_t>& places = keys_.emplace_back();
    for (const std::string& key : group.key) places.push_back(rows.place(key));
    titles_.emplace_back(group.title, rows);
    notes_.emplace_back(group.note, rows);
  }
  headHeight_ = static_cast<double>(lines) * canvas.lineHeight(caption_) + 2 * kPadding;
  rowHeight_ = canvas.lineHeight(body_) + kRowGap;
  sums_.resize(definition.columns.size());
}

double Table::head(double y) {
  canvas_.fill({area_.x, y, area_.width, headHeight_}, kTint);
  canvas_.line(area_.x, y, area_.x + area_.width, y, kAccent, 0.4);
  canvas_.line(area_.x, y + headHeight_, area_.x + area_.width, y + headHeight_, kAccent, 0.2);
  for (std::size_t i = 0; i < captions_.size(); ++i) {
    const double height = static_cast<double>(captions_[i].size()) * canvas_.lineHeight(caption_);
    canvas_.lines(lefts_[i] + kPadding, y + headHeight_ - kPadding - height,
                  lefts_[i + 1] - lefts_[i] - 2 * kPadding, captions_[i], caption_,
                  alignOf(definition_.columns[i]));
  }
  return y + headHeight_ + 0.6;
}

// Begins a new page when the height no longer fits.
void Table::need(double height, bool withinGroups) {
  if (y_ + height <= area_.bottom + kRounding) return;
  y_ = head(newPage_());
  if (!withinGroups) return;
  for (std::size_t i = 0; i < groups_.size(); ++i) heading(groups_[i], firstGroup_ + i, true);
}

std::string Table::keyOf(std::size_t level) const {
  std::string key;
  for (const std::size_t place : keys_[level]) key += rows_.at(place).toText() + '\n';
  return key;
}

void Table::open(std::size_t level) {
  OpenGroup group{titles_[level].of(rows_), notes_[level].of(rows_), 0, {}};
  group.totals.resize(definition_.columns.size());
  // The heading, the headings below it and one row are kept together.
  need(static_cast<double>(definition_.groups.size() - level) * 2.4 * rowHeight_ + rowHeight_ + textsHeight_ +
           behind_,
       true);
  if (!groups_.empty()) ++groups_.back().below;
  heading(group, level, false);
  groups_.push_back(std::move(group));
}

void Table::heading(const OpenGroup& group, std::size_t level, bool again) {
  const bool outer = level == firstGroup_ && firstGroup_ + 1 < definition_.groups.size();
  const QString title = again ? group.title + " (segue)" : group.title;
  const TextStyle style{outer ? body_.points + 1.5 : body_.points, true, outer ? kAccent : kInk};
  const TextStyle quiet{body_.points - 0.3, false, kMuted};
  y_ += outer ? 2.2 : 0.9;
  const double indent = outer ? 0 : kPadding;
  const double room = area_.width - 2 * indent;
  // Title and note on one line where both fit, otherwise the note below.
  const double wide = canvas_.textWidth(title, style);
  const double noteWidth = group.note.isEmpty() ? 0 : canvas_.textWidth(group.note, quiet) + 4;
  if (wide + noteWidth <= room) {
    const double base = y_ + canvas_.ascent(style);
    canvas_.text(area_.x + indent, base, room, title, style);
    canvas_.text(area_.x + indent + wide + 4, base, room - wide - 4 + 0.5, group.note, quiet);
    y_ += canvas_.lineHeight(style);
  } else {
    y_ = canvas_.lines(area_.x + indent, y_, room, canvas_.wrap(title, style, room), style);
    y_ = canvas_.lines(area_.x + indent, y_, room, canvas_.wrap(group.note, quiet, room), quiet);
  }
  y_ += 0.5;
  if (outer) canvas_.line(area_.x, y_, area_.x + area_.width, y_, kAccent, 0.25);
}

void Table::close(std::size_t level) {
  const bool summed = totalled_[level];
  // Totals that do not fit below the tallest row are on another page, under the group's name.
  if (summed) need(totalHeight(), true);
  const OpenGroup group = std::move(groups_.back());
  groups_.pop_back();
  if (summed) totals(fromUtf8(definition_.groups[level].total), group.totals, level == firstGroup_);
  y_ += kGroupGap;
}

double Table::room(std::size_t column) const { return lefts_[column + 1] - lefts_[column] - 2 * kPadding; }

void Table::measureRow() {
  textsHeight_ = rowHeight_;
  texts_.assign(values_.size(), {});
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (definition_.columns[i].format != ColumnFormat::Text) continue;
    texts_[i] = canvas_.wrap(values_[i].text(rows_), body_, room(i));
    textsHeight_ =
        std::max(textsHeight_, static_cast<double>(texts_[i].size()) * canvas_.lineHeight(body_) + kRowGap);
  }
}

void Table::row() {
  need(textsHeight_ + behind_, true);
  if (!groups_.empty()) ++groups_.back().below;
  const double top = y_ + kRowGap / 2;
  QStringList amountTexts(static_cast<qsizetype>(values_.size()));
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const ReportColumn& column = definition_.columns[i];
    if (column.format == ColumnFormat::Amount) {
      const Decimal amount = values_[i].amount(rows_);
      if (column.total) {
        sums_[i] = sums_[i] + amount;
        for (OpenGroup& group : groups_) group.totals[i] = group.totals[i] + amount;
      }
      if (canvas_.draws()) amountTexts[static_cast<qsizetype>(i)] = italianAmount(amount);
      continue;
    }
    if (!canvas_.draws()) continue;
    const double left = lefts_[i] + kPadding;
    if (column.format == ColumnFormat::Text) {
      canvas_.lines(left, top, room(i), texts_[i], body_);
    } else {
      canvas_.text(left, top + canvas_.ascent(body_), room(i), values_[i].text(rows_), body_);
    }
  }
  // Non-zero amounts are darker than zeros.
  amounts(top + canvas_.ascent(body_), body_, kFaint, amountTexts);
  y_ += textsHeight_;
  canvas_.line(area_.x, y_, area_.x + area_.width, y_, kRule, 0.1);
}

// One size for all amounts of a line, so that they can be compared: the normal one, or the one at which the
// widest fits.
void Table::amounts(double base, const TextStyle& style, const QColor& zeros, const QStringList& texts) {
  if (!canvas_.draws()) return;
  const auto columns = static_cast<std::size_t>(texts.size());
  const auto textOf = [&](std::size_t column) -> const QString& {
    return texts[static_cast<qsizetype>(column)];
  };
  std::vector<double> widths(columns);
  double share = 1;
  for (std::size_t i = 0; i < columns; ++i) {
    widths[i] = canvas_.textWidth(textOf(i), style);
    if (widths[i] > room(i)) share = std::min(share, room(i) / widths[i] * 0.99);
  }
  TextStyle fitting = style;
  fitting.points *= share;
  for (std::size_t i = 0; i < columns; ++i) {
    if (share < 1) widths[i] = canvas_.textWidth(textOf(i), fitting);
    fitting.color = textOf(i) == "0,00" ? zeros : style.color;
    canvas_.plain(lefts_[i] + kPadding + room(i) - widths[i], base, textOf(i), fitting);
  }
}

void Table::totals(const QString& caption, const std::vector<Decimal>& values, bool strong) {
  const double height = totalHeight();
  need(height, false);
  if (strong) canvas_.fill({area_.x, y_, area_.width, height}, kTint);
  canvas_.line(area_.x, y_, area_.x + area_.width, y_, kAccent, 0.25);
  const double base = y_ + 0.3 + kRowGap / 2 + canvas_.ascent(strong_);
  std::size_t first = 0;
  while (first < values.size() && !definition_.columns[first].total) ++first;
  const double room = first < values.size() ? lefts_[first] - area_.x : area_.width;
  const double captionRoom = std::max(room - 2 * kPadding, area_.width * kTitleShare * 0.2);
  canvas_.text(area_.x + kPadding, base, captionRoom, caption, strong_);
  QStringList texts(static_cast<qsizetype>(values.size()));
  for (std::size_t i = first; i < values.size(); ++i) {
    if (definition_.columns[i].total) texts[static_cast<qsizetype>(i)] = italianAmount(values[i]);
  }
  amounts(base, strong_, strong_.color, texts);
  y_ += height;
}

// Determines the ends of the groups in advance, so that totals can be kept with their last row.
void Table::findGroups(std::size_t first, std::size_t end) {
  const std::size_t levels = definition_.groups.size() - firstGroup_;
  goOn_.assign(end - first, 0);
  std::vector<std::string> keys(levels);
  for (std::size_t i = first; i < end; ++i) {
    rows_.move(i);
    bool same = i > first;
    for (std::size_t level = 0; level < levels; ++level) {
      std::string key = keyOf(firstGroup_ + level);
      same = same && key == keys[level];
      if (same) goOn_[i - 1 - first] = level + 1;
      keys[level] = std::move(key);
    }
  }
}

// Determines which totals follow the next row, when the outer `before` of its groups are open and the outer
// `after` continue after it. The row's own amounts need not be known: they are added to all of these totals
// alike.
void Table::planTotals(std::size_t before, std::size_t after, bool grand) {
  const std::vector<Decimal> none(definition_.columns.size());
  const std::vector<Decimal>* outer = grand ? &sums_ : nullptr;
  totalled_.assign(definition_.groups.size(), false);
  for (std::size_t i = after; firstGroup_ + i < definition_.groups.size(); ++i) {
    const ReportGroup& group = definition_.groups[firstGroup_ + i];
    const bool innermost = firstGroup_ + i + 1 == definition_.groups.size();
    const bool grows = i < before && (innermost || i + 1 >= before);
    const std::size_t below = i < before ? groups_[i].below + (grows ? 1 : 0) : 1;
    const std::vector<Decimal>& sums = i < before ? groups_[i].totals : none;
    if (group.total.empty() || (!group.totalOfOne && below < 2) || (outer != nullptr && sums == *outer))
      continue;
    totalled_[firstGroup_ + i] = true;
    outer = &sums;
  }
}

// The height of all totals that follow a row.
double Table::closingHeight(std::size_t after, bool grand) const {
  double height = grand ? kGroupGap + totalHeight() : 0;
  for (std::size_t level = firstGroup_ + after; level < definition_.groups.size(); ++level) {
    height += kGroupGap + (totalled_[level] ? totalHeight() : 0);
  }
  return height;
}

double Table::run(std::size_t first, std::size_t end, double y, const QString& totalCaption, double tail) {
  y_ = head(y);
  groups_.clear();
  std::fill(sums_.begin(), sums_.end(), Decimal());
  findGroups(first, end);
  for (std::size_t i = first; i < end; ++i) {
    rows_.move(i);
    const std::size_t after = goOn_[i - first];
    const bool last = i + 1 == end;
    const bool grand = last && !totalCaption.isEmpty();
    measureRow();
    planTotals(groups_.size(), after, grand);
    behind_ = closingHeight(after, grand) + (last ? tail : 0);
    while (firstGroup_ + groups_.size() < definition_.groups.size()) open(firstGroup_ + groups_.size());
    row();
    while (groups_.size() > after) close(firstGroup_ + groups_.size() - 1);
  }
  if (!totalCaption.isEmpty() && end > first) {
    y_ += kGroupGap;
    totals(totalCaption, sums_, true);
  }
  return y_;
}

}  // namespace cu::reporting
