#include "apps/versione/versione.h"

#include <expat.h>
#include <openssl/crypto.h>
#include <sql.h>
#include <sqlext.h>
#include <sqlite3.h>
#include <toml++/impl/version.h>
#include <utf8proc.h>
#include <xlsxwriter/utility.h>
#include <zip.h>

#include <CLI/Version.hpp>
#include <array>
#include <exception>
#include <nlohmann/json.hpp>

namespace cu {
namespace {

std::string treNumeri(int maggiore, int minore, int correzione) {
  return std::to_string(maggiore) + '.' + std::to_string(minore) + '.' + std::to_string(correzione);
}

// As the driver manager of the system gives it, without a connection.
std::string gestoreDriver() {
  SQLHENV ambiente = SQL_NULL_HENV;
  SQLHDBC connessione = SQL_NULL_HDBC;
  std::array<SQLCHAR, 64> testo{};
  bool letto = false;
  if (SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &ambiente))) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface takes the number as a pointer
    SQLSetEnvAttr(ambiente, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    if (SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, ambiente, &connessione))) {
      SQLSMALLINT lungo = 0;
      letto = SQL_SUCCEEDED(
          SQLGetInfo(connessione, SQL_DM_VER, testo.data(), static_cast<SQLSMALLINT>(testo.size()), &lungo));
      SQLFreeHandle(SQL_HANDLE_DBC, connessione);
    }
    SQLFreeHandle(SQL_HANDLE_ENV, ambiente);
  }
  return letto ? std::string(reinterpret_cast<const char*>(testo.data())) : std::string("sconosciuta");
}

// The library's own text is "expat_2.5.0".
std::string daExpat() {
  const XML_Expat_Version versione = XML_ExpatVersionInfo();
  return "Expat " + treNumeri(versione.major, versione.minor, versione.micro);
}

// What its functions say of a library; what is wrong where it cannot be loaded.
template <typename Domanda>
std::string dellaLibreria(Domanda domanda) {
  try {
    return domanda();
  } catch (const std::exception& errore) {
    return errore.what();
  }
}

std::vector<LibreriaUsata> libreriePrincipali() {
  return {
      {"Database incorporato", std::string("SQLite ") + sqlite3_libversion()},
      {"Microsoft SQL Server",
       dellaLibreria([] { return "per ODBC, gestore dei driver " + gestoreDriver(); })},
      // Of the headers: the library itself would have to be loaded.
      {"Stampe", "Qt " CU_QT_VERSION},
      {"Fogli elettronici", dellaLibreria([] { return std::string("libxlsxwriter ") + lxw_version(); })},
      {"Intestazioni delle tabelle",
       dellaLibreria([] { return std::string("utf8proc ") + utf8proc_version(); })},
      {"Archivi", dellaLibreria([] { return std::string("libzip ") + zip_libzip_version(); })},
      {"XML", dellaLibreria(daExpat)},
      {"Fatture firmate", dellaLibreria([] { return std::string(OpenSSL_version(OPENSSL_VERSION)); })},
      {"Profili", "toml++ " + treNumeri(TOML_LIB_MAJOR, TOML_LIB_MINOR, TOML_LIB_PATCH)},
      {"JSON", "nlohmann-json " + treNumeri(NLOHMANN_JSON_VERSION_MAJOR, NLOHMANN_JSON_VERSION_MINOR,
                                            NLOHMANN_JSON_VERSION_PATCH)},
      {"Righe di comando", "CLI11 " CLI11_VERSION},
  };
}

}  // namespace

const char* versioneBreve() { return CU_VERSION; }

std::string testoVersione(std::string_view programma, const std::vector<LibreriaUsata>& altre) {
  std::string testo(programma);
  testo += " " CU_VERSION " del " CU_VERSION_DATE "\n";
  for (const auto& elenco : {libreriePrincipali(), altre}) {
    for (const LibreriaUsata& libreria : elenco) testo += libreria.uso + ": " + libreria.nome + '\n';
  }
  testo.pop_back();
  return testo;
}

}  // namespace cu
