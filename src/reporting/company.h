#pragma once

#include <QString>
#include <cstdint>

namespace cu {
class Connection;
}

namespace cu::reporting {

// The issuer of the reports.
struct Company {
  QString name;  // with the first name of a natural person
  QString address;
  QString town;
  QString codes;     // "Codice fiscale ... - Partita IVA ..."
  QString contacts;  // "Tel. ... - e-mail"
  QString representative;
  QString office;  // the representative's office
};

// All fields are empty for a company that is not in the database. Raises DatabaseError.
Company readCompany(Connection& connection, std::int32_t idAzienda);

}  // namespace cu::reporting
