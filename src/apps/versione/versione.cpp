#include "apps/versione/versione.h"

#include <expat.h>
#include <openssl/crypto.h>
#include <sqlite3.h>
#include <toml++/impl/version.h>
#include <utf8proc.h>
#include <xlsxwriter/utility.h>
#include <zip.h>

#include <CLI/Version.hpp>
#include <exception>
#include <nlohmann/json.hpp>

namespace cu {
namespace {

std::string treNumeri(int maggiore, int minore, int correzione) {
  return std::to_string(maggiore) + '.' + std::to_string(minore) + '.' + std::to_string(correzione);
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
      // Of the headers: the driver manager creates an empty list of drivers for the whole machine where there
      // is none and it may, and the toolkit would have to be loaded.
      {"Microsoft SQL Server", "per ODBC, unixODBC " CU_ODBC_VERSION},
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
