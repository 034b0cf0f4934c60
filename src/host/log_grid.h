#pragma once

#include <cstdint>
#include <string>

#include "base/value.h"

namespace cu {

// The suite's log: a table filled row by row and shown once. Besides the added columns it has the columns
// "MessageType" and "Message".
class LogGrid {
 public:
  virtual ~LogGrid() = default;
  virtual void setUser(std::int32_t idUtente) = 0;
  virtual void setName(const std::string& name) = 0;
  static constexpr int kText = 1;
  virtual void addColumn(const std::string& name, int kind, int width) = 0;
  virtual void newRow() = 0;
  virtual void put(const std::string& column, const Value& value) = 0;
  virtual void confirmRow() = 0;
  virtual void show(int argument) = 0;  // returns when the user has closed it
};

}  // namespace cu
