#pragma once

#include <QString>
#include <cstdint>

namespace cu {
class Connection;
}

namespace cu::reporting {

// Who issues the reports.
struct Company {
  QString name;  // with the first name of a natural person
  QString address;
  QString town;
  QString codes;     // "Codice fiscale ... - Partita IVA ..."
  QString contacts;  // "Tel. ... - e-mail"
  QString representative;
  QString office;  // that of the representative
};

// All empty for a company that is not in the database. DatabaseError.
Company readCompany(Connection& connection, std::int32_t idAzienda);

}  // namespace cu::reporting
