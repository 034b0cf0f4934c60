#pragma once

#include <span>
#include <string>

#include "controls/utility.h"
#include "data/recordset.h"
#include "editors/campi_editor.h"
#include "editors/disposizione.h"

namespace cu {

// The statements on ModuloXContoIndividuale, with the columns of one layout. The current row of `modulo` is
// the module. Layout and columns outlive the object.
class SqlModuli {
 public:
  SqlModuli(const Disposizione& disposizione, std::span<const CampoEditor> campi,
            const UtilitaSuite& utilita);

  std::string select(const Recordset& riga, std::int32_t idAzienda) const;
  std::string massimo() const;
  // `riga` is the module's line of the work table.
  std::string insert(std::int64_t id, const Recordset& riga, std::int32_t idAzienda,
                     const Recordset& modulo) const;
  std::string update(std::int64_t id, const Recordset& modulo) const;
  std::string elimina(std::int64_t id) const;

 private:
  std::string valore(const CampoEditor& campo, const Recordset& modulo, bool inserimento) const;

  const Disposizione& disposizione_;
  std::span<const CampoEditor> campi_;
  const UtilitaSuite& utilita_;
};

}  // namespace cu
