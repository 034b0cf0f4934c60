#include <algorithm>
#include <map>
#include <set>

#include "archive/controllo.h"
#include "archive/diritti.h"
#include "archive/schema.h"
#include "base/text.h"
#include "data/inserimento.h"

namespace cu {
namespace {

// The texts of the first row of a query, in column order.
std::vector<std::string> primaRiga(Connection& connessione, const std::string& domanda) {
  RowStore righe;
  connessione.Query(domanda, righe);
  std::vector<CellView> celle(righe.columns()->size());
  std::vector<std::string> testi(celle.size());
  if (righe.size() == 0) return testi;
  righe.read(0, celle.data());
  std::ranges::transform(celle, testi.begin(), [](const CellView& cella) { return cella.toText(); });
  return testi;
}

void versioneEOrdinamento(Connection& connessione, std::vector<VoceControllo>& voci) {
  const std::vector<std::string> testi =
      primaRiga(connessione,
                "SELECT CAST(SERVERPROPERTY('ProductVersion') AS varchar(50)) AS Versione, "
                "CAST(DATABASEPROPERTYEX(DB_NAME(), 'Collation') AS varchar(128)) AS Ordinamento");
  constexpr std::int64_t kPrima = 11;
  voci.push_back({"Server", "versione", "11 (SQL Server 2012) o successiva", testi[0],
                  leadingInteger(testi[0]) < kPrima});
  const bool giusto = testi[1].find("_CI") != std::string::npos && testi[1].find("_AS") != std::string::npos;
  voci.push_back({"Server", "ordinamento dei testi",
                  "senza distinzione di maiuscole, con gli accenti (CI_AS)", testi[1], !giusto});
}

// Type families, with the server's names.
const std::set<std::string, std::less<>>& famiglia(std::string_view base) {
  static const std::set<std::string, std::less<>> testi = {"varchar", "nvarchar", "char",
                                                           "nchar",   "text",     "ntext"};
  static const std::set<std::string, std::less<>> importi = {"decimal", "numeric", "money"};
  static const std::set<std::string, std::less<>> interi = {"smallint", "int", "tinyint", "bit"};
  if (testi.contains(base)) return testi;
  return importi.contains(base) ? importi : interi;
}

void tipi(Connection& connessione, std::vector<VoceControllo>& voci) {
  RowStore righe;
  connessione.Query("SELECT DOMAIN_NAME, DATA_TYPE FROM INFORMATION_SCHEMA.DOMAINS", righe);
  std::map<std::string, std::string> trovati;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    CellView celle[2];
    righe.readFirst(i, 2, celle);
    trovati[lowerAscii(celle[0].text())] = lowerAscii(celle[1].text());
  }
  for (const TipoSchema& tipo : tipiSchema()) {
    VoceControllo voce{"Tipo", std::string(tipo.nome), std::string(tipo.definizione), "presente", false};
    const auto trovato = trovati.find(lowerAscii(tipo.nome));
    if (trovato == trovati.end()) {
      voce.manca = true;
      voce.stato = "MANCA";
    } else if (!famiglia(tipo.definizione.substr(0, tipo.definizione.find('('))).contains(trovato->second)) {
      voce.manca = true;
      voce.stato = "È " + trovato->second;
    }
    voci.push_back(std::move(voce));
  }
}

std::string domanda(const Diritto& diritto) {
  if (diritto.classe == "DATABASE") {
    return "HAS_PERMS_BY_NAME(DB_NAME(), 'DATABASE', '" + std::string(diritto.diritto) + "')";
  }
  std::string nome(diritto.oggetto);
  if (diritto.classe != "SCHEMA") nome = "dbo." + nome;
  return "HAS_PERMS_BY_NAME('" + nome + "', '" + std::string(diritto.classe) + "', '" +
         std::string(diritto.diritto) + "')";
}

void diritti(Connection& connessione, std::vector<VoceControllo>& voci) {
  std::string testo;
  for (const Diritto& diritto : kDiritti) {
    testo += testo.empty() ? "SELECT " : ", ";
    testo += domanda(diritto) + " AS D";
  }
  const std::vector<std::string> risposte = primaRiga(connessione, testo);
  for (std::size_t i = 0; i < risposte.size(); ++i) {
    const Diritto& diritto = kDiritti[i];
    const bool concesso = risposte[i] == "1";
    std::string dove = diritto.oggetto.empty() ? "database" : std::string(diritto.oggetto);
    if (diritto.classe == "SCHEMA") dove.insert(0, "schema ");
    voci.push_back(
        {"Diritto", dove, std::string(diritto.diritto), concesso ? "concesso" : "MANCA", !concesso});
  }
}

}  // namespace

std::vector<VoceControllo> controllaServer(Connection& connessione) {
  std::vector<VoceControllo> voci;
  versioneEOrdinamento(connessione, voci);
  tipi(connessione, voci);
  diritti(connessione, voci);
  return voci;
}

}  // namespace cu
