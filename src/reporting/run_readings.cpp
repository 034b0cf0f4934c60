#include "reporting/run_readings.h"

#include "data/presenza.h"
#include "modello/restituzioni.h"

namespace cu::reporting {

const Columns& RunReadings::columns(Connection& connection, const std::string& view) {
  std::shared_ptr<const Columns>& known = columns_[{&connection, view}];
  if (!known) {
    RowStore none;
    connection.Query("SELECT * FROM " + view + " WHERE 1 = 0", none);
    known = none.columns();
  }
  return *known;
}

bool RunReadings::ownBoxes(Connection& connection) {
  const auto known = ownBoxes_.find(&connection);
  return known != ownBoxes_.end()
             ? known->second
             : ownBoxes_.emplace(&connection, haTabella(connection, modello::kTabellaPropria)).first->second;
}

const Company& RunReadings::company(Connection& connection, std::int32_t idAzienda) {
  const std::pair<const Connection*, std::int32_t> key(&connection, idAzienda);
  const auto known = companies_.find(key);
  return known != companies_.end()
             ? known->second
             : companies_.emplace(key, readCompany(connection, idAzienda)).first->second;
}

}  // namespace cu::reporting
