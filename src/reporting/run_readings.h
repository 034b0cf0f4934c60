#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "data/database.h"
#include "data/rowstore.h"
#include "reporting/company.h"

namespace cu::reporting {

// The data common to the prints of one run, read at first use. Raises DatabaseError.
class RunReadings {
 public:
  const Columns& columns(Connection& connection, const std::string& view);
  bool ownBoxes(Connection& connection);  // whether the database has the table of this program's own boxes
  const Company& company(Connection& connection, std::int32_t idAzienda);

 private:
  std::map<std::pair<const Connection*, std::string>, std::shared_ptr<const Columns>> columns_;
  std::map<const Connection*, bool> ownBoxes_;
  std::map<std::pair<const Connection*, std::int32_t>, Company> companies_;
};

}  // namespace cu::reporting
