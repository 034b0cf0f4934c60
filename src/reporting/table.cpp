#include "reporting/table.h"

#include <algorithm>

#include "reporting/italian.h"
#include "reporting/palette.h"

namespace cu::reporting {
namespace {

constexpr double kPadding = 1.1;  // mm, inside a cell
constexpr double kRowGap = 1.3;   // mm, beside the lines of a row
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
    captions_.push_back(canvas.wrap(fromUtf8(column.caption), caption_, width - 2 * kPadding));
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

// Begins another page where the height does not fit any more.
void Table::need(double height, bool withinGroups) {
  if (y_ + height <= area_.bottom) return;
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
  OpenGroup group{keyOf(level), titles_[level].of(rows_), notes_[level].of(rows_), 0, {}};
  group.totals.resize(definition_.columns.size());
  // The heading, those below it and a row stay together.
  need(static_cast<double>(definition_.groups.size() - level) * 2.4 * rowHeight_ + 2 * rowHeight_, true);
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
  // Title and note on one line where both fit, the note below where they do not.
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
  const ReportGroup& definition = definition_.groups[level];
  const bool summed = !definition.total.empty() && (definition.totalOfOne || groups_.back().below > 1);
  // Totals that go over to another page stand there under the group's name.
  if (summed) need(totalHeight(), true);
  const OpenGroup group = std::move(groups_.back());
  groups_.pop_back();
  if (summed) totals(fromUtf8(definition.total), group.totals, level == firstGroup_);
  y_ += 0.8;
}

void Table::row() {
  double height = rowHeight_;
  std::vector<QStringList> texts(values_.size());
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (definition_.columns[i].format != ColumnFormat::Text) continue;
    texts[i] = canvas_.wrap(values_[i].text(rows_), body_, lefts_[i + 1] - lefts_[i] - 2 * kPadding);
    height = std::max(height, static_cast<double>(texts[i].size()) * canvas_.lineHeight(body_) + kRowGap);
  }
  need(height, true);
  if (!groups_.empty()) ++groups_.back().below;
  const double top = y_ + kRowGap / 2;
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const ReportColumn& column = definition_.columns[i];
    const double left = lefts_[i] + kPadding;
    const double width = lefts_[i + 1] - lefts_[i] - 2 * kPadding;
    if (column.total) {
      const Decimal amount = values_[i].amount(rows_);
      sums_[i] = sums_[i] + amount;
      for (OpenGroup& group : groups_) group.totals[i] = group.totals[i] + amount;
    }
    if (!canvas_.draws()) continue;
    if (column.format == ColumnFormat::Text) {
      canvas_.lines(left, top, width, texts[i], body_);
      continue;
    }
    TextStyle style = body_;
    // Amounts stand out from the zeros between them.
    if (column.format == ColumnFormat::Amount && values_[i].amount(rows_).isZero()) style.color = kFaint;
    canvas_.text(left, top + canvas_.ascent(body_), width, values_[i].text(rows_), style, alignOf(column));
  }
  y_ += height;
  canvas_.line(area_.x, y_, area_.x + area_.width, y_, kRule, 0.1);
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
  for (std::size_t i = first; i < values.size(); ++i) {
    if (!definition_.columns[i].total) continue;
    canvas_.text(lefts_[i] + kPadding, base, lefts_[i + 1] - lefts_[i] - 2 * kPadding,
                 italianAmount(values[i]), strong_, Align::Right);
  }
  y_ += height;
}

double Table::run(std::size_t first, std::size_t end, double y, const QString& totalCaption) {
  y_ = head(y);
  groups_.clear();
  std::fill(sums_.begin(), sums_.end(), Decimal());
  for (std::size_t i = first; i < end; ++i) {
    rows_.move(i);
    std::size_t same = 0;
    while (same < groups_.size() && groups_[same].key == keyOf(firstGroup_ + same)) ++same;
    while (groups_.size() > same) close(firstGroup_ + groups_.size() - 1);
    while (firstGroup_ + groups_.size() < definition_.groups.size()) open(firstGroup_ + groups_.size());
    row();
  }
  while (!groups_.empty()) close(firstGroup_ + groups_.size() - 1);
  if (!totalCaption.isEmpty() && end > first) {
    y_ += 0.8;
    totals(totalCaption, sums_, true);
  }
  return y_;
}

}  // namespace cu::reporting
