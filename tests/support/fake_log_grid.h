#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/log_grid.h"

namespace cu::test {

// The calls of a log, in order.
struct NotedLog {
  struct Column {
    std::string name;
    int kind;
    int width;
    friend bool operator==(const Column&, const Column&) = default;
  };
  std::int32_t user = 0;
  std::string name;
  std::vector<Column> columns;
  std::vector<std::map<std::string, Value>> rows;  // the confirmed rows
  std::vector<int> shown;                          // the arguments
  bool released = false;

  std::vector<std::string> column(const std::string& of) const {
    std::vector<std::string> texts;
    for (const auto& row : rows) texts.push_back(row.at(of).view().toText());
    return texts;
  }
};

class FakeLogGrid : public LogGrid {
 public:
  explicit FakeLogGrid(NotedLog& log) : log_(log) {}
  ~FakeLogGrid() override { log_.released = true; }
  FakeLogGrid(const FakeLogGrid&) = delete;
  FakeLogGrid& operator=(const FakeLogGrid&) = delete;

  void setUser(std::int32_t idUtente) override { log_.user = idUtente; }
  void setName(const std::string& name) override { log_.name = name; }
  void addColumn(const std::string& name, int kind, int width) override {
    log_.columns.push_back({name, kind, width});
  }
  void newRow() override { row_.clear(); }
  void put(const std::string& column, const Value& value) override { row_[column] = value; }
  void confirmRow() override { log_.rows.push_back(std::exchange(row_, {})); }
  void show(int argument) override { log_.shown.push_back(argument); }

 private:
  NotedLog& log_;
  std::map<std::string, Value> row_;
};

}  // namespace cu::test
