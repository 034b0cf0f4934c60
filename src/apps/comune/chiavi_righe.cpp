#include "apps/comune/chiavi_righe.h"

#include <algorithm>

#include "apps/comune/connessioni.h"
#include "data/recordset.h"

namespace cu {

RowKeysReading chiaviRighe(const Profilo::Database& database, const std::string& istruzione) {
  if (chiedePassword(database)) return {};
  return [database, istruzione] {
    const auto connessione = apriConnessione(database);
    Recordset righe;
    righe.Open(*connessione, istruzione);
    RowKeys chiavi;
    chiavi.reserve(righe.RecordCount());
    for (; !righe.Eof(); righe.MoveNext()) chiavi.push_back({righe.Get(0).integer(), righe.Get(1).integer()});
    std::sort(chiavi.begin(), chiavi.end());
    chiavi.erase(std::unique(chiavi.begin(), chiavi.end()), chiavi.end());
    return chiavi;
  };
}

}  // namespace cu
