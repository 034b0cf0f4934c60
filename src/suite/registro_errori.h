#pragma once

#include "controls/frontend.h"
#include "host/log_grid.h"

namespace cu {

// Collects the log's rows, which the front end shows. Any column other than those added, "MessageType" and
// "Message" raises Error 3265; a value without a row raises Error 3021.
class RegistroErrori : public LogGrid {
 public:
  explicit RegistroErrori(FrontEnd& frontEnd) : frontEnd_(frontEnd) {}
  void setUser(std::int32_t) override {}
  void setName(const std::string&) override {}
  void addColumn(const std::string& name, int kind, int width) override;
  void newRow() override;
  void put(const std::string& column, const Value& value) override;
  void confirmRow() override;
  void show(int argument) override;

 private:
  FrontEnd& frontEnd_;
  std::vector<std::string> colonne_;
  std::vector<std::vector<Value>> righe_;
  std::vector<Value> riga_;
};

}  // namespace cu
