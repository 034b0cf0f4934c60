// Makes one table of the lines printed by the measuring programs: each figure with its limit, their ratio,
// the growth of the figures of a series with their size, and whether the promises are kept. Exits with 1 if
// one is not.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr double kNoise = 0.02;  // of an exponent, between two equal runs
constexpr double kFrom = 10000;  // between these sizes a series is required to grow no faster than its limit
constexpr double kTo = 300000;

struct Line {
  std::string name;
  std::string unit;
  double ours = 0;
  double limit = 0;
  std::string limitName;
  std::string promise;
  std::string series;
  double size = 0;
  bool held = false;  // required to grow no faster than its limit
};

std::vector<std::string> fields(const std::string& line) {
  std::vector<std::string> result(1);
  for (const char c : line) {
    if (c == '\t') {
      result.emplace_back();
    } else {
      result.back() += c;
    }
  }
  return result;
}

std::string fixed(double value, int places) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", places, value);
  return text;
}

// Three significant digits.
std::string shown(double value, const std::string& unit) {
  std::string name = unit;
  if (unit == "s" && value < 1) {
    static constexpr struct {
      double least;
      double factor;
      const char* name;
    } kUnits[] = {{1e-3, 1e3, "ms"}, {1e-6, 1e6, "µs"}, {0, 1e9, "ns"}};
    for (const auto& each : kUnits) {
      if (value < each.least) continue;
      value *= each.factor;
      name = each.name;
      break;
    }
  }
  return fixed(value, value >= 100 ? 0 : value >= 10 ? 1 : 2) + (name.empty() ? "" : " " + name);
}

class Table {
 public:
  void title(const std::string& text) {
    std::cout << "\n**" << text << "**\n\n"
              << "| | ours | limit | ratio | promised | the limit is |\n|---|---:|---:|---:|---|---|\n";
  }

  void row(const Line& line) {
    const bool limited = line.limit > 0;
    std::cout << "| " << line.name << " | " << shown(line.ours, line.unit) << " | "
              << (limited ? shown(line.limit, line.unit) : "") << " | "
              << (limited ? fixed(line.ours / line.limit, 2) : "") << " | " << promised(line) << " | "
              << line.limitName << " |" << std::endl;
  }

  int broken() const {
    for (const std::string& each : broken_) std::cerr << "promise not kept: " << each << '\n';
    return broken_.empty() ? 0 : 1;
  }

 private:
  std::string promised(const Line& line) {
    if (line.promise.empty()) return "";
    const std::size_t colon = line.promise.find(':');
    const std::string kind = line.promise.substr(0, colon);
    const double bound = std::stod(line.promise.substr(colon + 1));
    bool kept = false;
    std::string text;
    if (kind == "ratio") {
      kept = line.ours <= bound * line.limit;
      text = "≤ " + fixed(bound, 2) + " of the limit";
    } else if (kind == "value") {
      kept = line.ours < bound;
      text = "< " + shown(bound, line.unit);
    } else {
      kept = line.ours <= line.limit + bound;
      text = "≤ the limit + " + fixed(bound, 2);
    }
    if (!kept) broken_.push_back(line.name + ": " + shown(line.ours, line.unit) + ", " + text);
    return text + (kept ? "" : " **not kept**");
  }

  std::vector<std::string> broken_;
};

// log of the growth of time over log of the growth of size
double exponent(double from, double to, double sizeFrom, double sizeTo) {
  return std::log(to / from) / std::log(sizeTo / sizeFrom);
}

std::string grouped(double size) {
  std::string text = fixed(size, 0);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, ",");
  return text;
}

void growth(Table& table, const std::vector<Line>& series) {
  const auto compare = [&](const Line& from, const Line& to, const std::string& promise) {
    Line line;
    line.name = from.series + ", " + grouped(from.size) + " to " + grouped(to.size);
    line.ours = exponent(from.ours, to.ours, from.size, to.size);
    line.limit = exponent(from.limit, to.limit, from.size, to.size);
    line.limitName = from.limitName;
    line.promise = promise;
    table.row(line);
  };
  for (std::size_t i = 1; i < series.size(); ++i) compare(series[i - 1], series[i], "");
  const Line* from = nullptr;
  for (const Line& line : series) {
    if (line.size == kFrom) from = &line;
    if (line.size != kTo || from == nullptr) continue;
    compare(*from, line, line.held ? "plus:" + std::to_string(kNoise) : "");
  }
}

}  // namespace

int main() {
  Table table;
  std::vector<std::string> order;
  std::map<std::string, std::vector<Line>> series;
  for (std::string text; std::getline(std::cin, text);) {
    const std::vector<std::string> parts = fields(text);
    if (parts[0] == "section" && parts.size() == 2) {
      table.title(parts[1]);
    } else if (parts[0] == "figure" && parts.size() == 10) {
      const Line line{parts[1], parts[2], std::stod(parts[3]), std::stod(parts[4]), parts[5],
                      parts[6], parts[7], std::stod(parts[8]), parts[9] == "1"};
      table.row(line);
      if (line.series.empty()) continue;
      if (!series.contains(line.series)) order.push_back(line.series);
      series[line.series].push_back(line);
    } else {
      std::cerr << text << '\n';
    }
  }
  const bool grows = std::any_of(order.begin(), order.end(),
                                 [&](const std::string& name) { return series[name].size() > 1; });
  if (grows) table.title("Growth: the exponent of time or memory over size");
  for (const std::string& name : order) growth(table, series[name]);
  return table.broken();
}
