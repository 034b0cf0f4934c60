#include "odbc/diagnostics.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/ascii.h"
#include "base/text.h"
#include "odbc/wide.h"
#include "odbc/without_values.h"

namespace cu::odbc {
namespace {

using enum DatabaseErrorKind;

// The SQL Server error numbers for which the user or an administrator has a remedy.
struct Known {
  int number;
  DatabaseErrorKind kind;
  const char* text;
};

constexpr const char* kDuplicate = "Esiste già una riga con la stessa chiave.";
constexpr const char* kNull = "Una colonna non ammette il valore nullo.";
constexpr const char* kBusy =
    "Il database è occupato da un altro programma. Attendere che termini e ripetere l'operazione.";
constexpr const char* kFull =
    "Lo spazio del database sul server è esaurito. Liberare spazio e ripetere l'operazione.";
constexpr const char* kReadOnly = "Il database è di sola lettura.";
constexpr const char* kDamaged = "Il database è danneggiato. Ripristinarlo da una copia di sicurezza.";
constexpr const char* kRights =
    "L'utente del database non ha i diritti per questa operazione. Verificarli con «cuctl check».";
constexpr const char* kLogin = "Il server del database ha rifiutato l'utente o la password.";
constexpr const char* kNotTaken = "Il server del database non accetta l'istruzione";
constexpr const char* kTooLong = "Un testo è più lungo della colonna che lo riceve.";
constexpr const char* kUnreachable =
    "Il server del database non si può raggiungere. Verificare l'indirizzo nel profilo e la rete.";

constexpr const char* kNotEncrypted =
    "Il server del database non ha stabilito una connessione cifrata. Verificare che all'indirizzo del "
    "profilo "
    "risponda SQL Server e che offra la cifratura (TLS) con un certificato valido. Solo in una rete fidata "
    "se "
    "ne può fare a meno, con encrypt = false nel profilo o con --no-encrypt.";
constexpr const char* kNoDatabase = "Il database indicato non esiste sul server, o l'utente non può aprirlo.";

constexpr Known kServerNumbers[] = {
    {208, Missing, "Nel database manca una tabella o una vista. Verificare con «cuctl check»."},
    {3701, Missing, "Nel database manca una tabella o una vista. Verificare con «cuctl check»."},
    {2714, Exists, "Nel database esiste già una tabella o una vista con questo nome."},
    {207, Syntax, "Nel database manca una colonna. Verificare con «cuctl check»."},
    {2715, Syntax, "Nel database manca un tipo della suite. Verificare con «cuctl check»."},
    {229, Other, kRights},
    {230, Other, kRights},
    {262, Other, kRights},
    {297, Other, kRights},
    {2760, Other, kRights},
    {515, Constraint, kNull},
    {547, Constraint, "Il database ha rifiutato i dati per un vincolo."},
    {2601, Duplicate, kDuplicate},
    {2627, Duplicate, kDuplicate},
    {8672, Constraint, "MERGE troverebbe più righe per la stessa riga da modificare."},
    {2628, Other, kTooLong},
    {8152, Other, kTooLong},
    {1204, Locked, kBusy},
    {1205, Locked, kBusy},
    {1222, Locked, kBusy},
    {1101, Full, kFull},
    {1105, Full, kFull},
    {9002, Full, kFull},
    {3906, ReadOnly, kReadOnly},
    {823, Corrupt, kDamaged},
    {824, Corrupt, kDamaged},
    {825, Corrupt, kDamaged},
    {911, Unavailable, kNoDatabase},
    {4060, Unavailable, kNoDatabase},
    {18452, Unavailable, kLogin},
    {18456, Unavailable, kLogin},
    {18470, Unavailable, "L'utente del database è disabilitato."},
    {18487, Unavailable, "La password dell'utente del database è scaduta."},
    {18488, Unavailable, "La password dell'utente del database va cambiata."},
};

struct State {
  std::string_view prefix;  // of the state; the first match applies
  DatabaseErrorKind kind;
  const char* text;
};

constexpr State kStates[] = {
    {"IM002", Unavailable,
     "Il driver o la sorgente ODBC dell'indirizzo non è installata su questo computer."},
    {"IM003", Unavailable, "Il driver ODBC indicato non si può caricare."},
    {"01000", Unavailable, "Il driver ODBC indicato non si può caricare."},
    {"28", Unavailable, kLogin},
    {"08", Unavailable, kUnreachable},
    {"3D", Unavailable, kNoDatabase},
    {"23502", Constraint, kNull},
    {"23505", Duplicate, kDuplicate},
    {"23", Constraint, "Il database ha rifiutato i dati per un vincolo."},
    {"22001", Other, kTooLong},
    {"22003", Other, "Un numero è fuori dai limiti della colonna che lo riceve."},
    {"42501", Other, kRights},
    {"42S02", Missing, kNotTaken},
    {"42P01", Missing, kNotTaken},
    {"42S01", Exists, kNotTaken},
    {"42P07", Exists, kNotTaken},
    {"42", Syntax, kNotTaken},
    {"S0", Syntax, kNotTaken},
    {"40", Locked, kBusy},
    {"55P03", Locked, kBusy},
    {"53100", Full, kFull},
    {"25006", ReadOnly, kReadOnly},
    {"XX001", Corrupt, kDamaged},
    {"XX002", Corrupt, kDamaged},
};

bool isTimeout(const Diagnostic& diagnostic) {
  return diagnostic.state == "HYT00" || diagnostic.state == "HYT01" || diagnostic.state == "57014" ||
         diagnostic.state == "S1T00";
}

bool isDrop(const Diagnostic& diagnostic) {
  constexpr std::string_view kDropped[] = {"08S01", "08003", "08006", "08007", "57P01", "57P02", "57P03"};
  return std::ranges::find(kDropped, diagnostic.state) != std::end(kDropped);
}

// FreeTDS numbers its own messages as the original library did.
bool isNumberOfFreeTds(int number) {
  return (number >= 20000 && number < 21000) || (number >= 2400 && number <= 2404) || number == 2500;
}

// The last name before the text identifies the source: "[Microsoft][ODBC Driver 18 for SQL Server][SQL
// Server]". FreeTDS writes the server's name before its own messages too; for a driver that writes no names
// the state decides.
bool isOfServer(const std::string& state, int native, const std::vector<std::string>& names) {
  if (native == 0) return false;
  if (names.empty()) return !state.starts_with("08") && !state.starts_with("HY") && !state.starts_with("IM");
  if (std::ranges::find(names, "FreeTDS") != names.end() && isNumberOfFreeTds(native)) return false;
  return names.back().ends_with("SQL Server") && names.back().find("Driver") == std::string::npos;
}

const Known* known(const Diagnostic& diagnostic) {
  if (!diagnostic.ofServer) return nullptr;
  const auto* const found = std::ranges::find(kServerNumbers, diagnostic.native, &Known::number);
  return found == std::end(kServerNumbers) ? nullptr : found;
}

bool isRemark(const Diagnostic& diagnostic) { return diagnostic.state.starts_with("01"); }

// The diagnostic whose number or state identifies the error: the server's have precedence over the driver's,
// and errors over information.
const Diagnostic& worst(const std::vector<Diagnostic>& diagnostics) {
  for (const Diagnostic& each : diagnostics) {
    if (known(each) != nullptr) return each;
  }
  for (const Diagnostic& each : diagnostics) {
    if (each.ofServer && !isRemark(each)) return each;
  }
  const auto error = std::ranges::find_if_not(diagnostics, isRemark);
  return error == diagnostics.end() ? diagnostics.front() : *error;
}

// The diagnostic with the most specific text: a driver adds a general phrase to the reason, which has a
// number.
const Diagnostic& mostTelling(const std::vector<Diagnostic>& diagnostics) {
  const Diagnostic& decisive = worst(diagnostics);
  if (decisive.ofServer || decisive.native != 0) return decisive;
  for (const Diagnostic& each : diagnostics) {
    if (!each.ofServer && each.native != 0) return each;
  }
  return decisive;
}

// Other words, such as names of hosts and files, do not match these.
bool speaksOfEncryption(const std::string& message) {
  std::string word;
  for (const char c : lowerAscii(message) + ' ') {
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '_') {
      word += c;
      continue;
    }
    while (!word.empty() && word.back() == '.') word.pop_back();
    if (word == "ssl" || word == "tls" || word.starts_with("encrypt") || word.starts_with("certificate")) {
      return true;
    }
    word.clear();
  }
  return false;
}

// FreeTDS reports a failed login, after the server was reached, without a reason.
bool isOfEncryption(const Diagnostic& diagnostic) {
  constexpr int kLoginFailed = 20002;
  return diagnostic.native == kLoginFailed || speaksOfEncryption(diagnostic.message);
}

// The cause of a failed login is the requested encryption, unless the server has reported a cause.
const Diagnostic* faultOfEncryption(const std::vector<Diagnostic>& diagnostics,
                                    const Circumstance& circumstance) {
  if (!circumstance.statementKind.empty() || !circumstance.encrypted) return nullptr;
  if (std::ranges::any_of(diagnostics, &Diagnostic::ofServer)) return nullptr;
  const auto found = std::ranges::find_if(diagnostics, isOfEncryption);
  return found == diagnostics.end() ? nullptr : &*found;
}

std::string sayingOf(const Diagnostic& diagnostic, std::string_view statement) {
  std::string text = diagnostic.ofServer ? " Messaggio del server" : " Messaggio del driver";
  if (diagnostic.native != 0) text += " (" + fromInteger(diagnostic.native) + ")";
  return text + ": " + withoutValues(diagnostic.message, statement);
}

struct Told {
  DatabaseErrorKind kind;
  std::string text;
};

Told tell(const Diagnostic& diagnostic, const std::string& statementKind) {
  if (const Known* const number = known(diagnostic)) return {number->kind, number->text};
  for (const State& state : kStates) {
    if (!diagnostic.state.starts_with(state.prefix)) continue;
    std::string text = state.text;
    if (text.back() != '.') text += (statementKind.empty() ? "" : " " + statementKind) + ".";
    return {state.kind, text};
  }
  if (statementKind.empty()) return {Unavailable, kUnreachable};
  return {Other, "Il server del database ha rifiutato l'istruzione " + statementKind + "."};
}

}  // namespace

Diagnostic diagnosticOf(std::string state, int native, std::string message) {
  std::vector<std::string> names;
  while (!message.empty() && message.front() == '[') {
    const std::size_t end = message.find(']');
    if (end == std::string::npos) break;
    names.push_back(message.substr(1, end - 1));
    message.erase(0, end + 1);
  }
  std::replace_if(
      message.begin(), message.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  const bool ofServer = isOfServer(state, native, names);
  return {std::move(state), native, std::string(trim(message)), ofServer};
}

std::vector<Diagnostic> diagnosticsOf(SQLSMALLINT kind, SQLHANDLE handle) {
  constexpr SQLSMALLINT kMost = 16;
  std::vector<Diagnostic> diagnostics;
  for (SQLSMALLINT record = 1; record <= kMost; ++record) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> message{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLGetDiagRecW(kind, handle, record, state.data(), &native, message.data(),
                                          static_cast<SQLSMALLINT>(message.size()), &length);
    if (!SQL_SUCCEEDED(code)) break;
    const auto end = std::find(message.begin(), message.end(), SQLWCHAR{0});
    diagnostics.push_back(
        diagnosticOf(fromWide(state.data(), 5), static_cast<int>(native),
                     fromWide(message.data(), static_cast<std::size_t>(end - message.begin()))));
  }
  return diagnostics;
}

DatabaseError timeoutOf(const Circumstance& circumstance) {
  const std::string time =
      circumstance.seconds > 0 ? " entro " + fromInteger(circumstance.seconds) + " secondi" : "";
  if (circumstance.statementKind.empty()) {
    return {Timeout, 0, "",
            "Il server del database non ha risposto" + time +
                ". Verificare l'indirizzo nel profilo e la rete, o aumentare login_timeout."};
  }
  return {Timeout, 0, circumstance.statementKind,
          "Il server del database non ha terminato l'istruzione " + circumstance.statementKind + time +
              ". Ripetere l'operazione, o aumentare statement_timeout nel profilo."};
}

DatabaseError droppedOf(const Circumstance& circumstance) {
  if (circumstance.statementKind.empty()) {
    return {Unavailable, 0, "",
            "Il server del database ha chiuso la connessione durante l'accesso. Verificare l'indirizzo nel "
            "profilo e il server, poi riprovare."};
  }
  return {Unavailable, 0, circumstance.statementKind,
          "La connessione con il server del database è caduta. I dati presentati restano a video: verificare "
          "il server e la rete, poi ripetere l'operazione."};
}

bool tellsOfDrop(const std::vector<Diagnostic>& diagnostics) {
  return std::ranges::any_of(diagnostics, isDrop);
}

bool tellsOfTimeout(const std::vector<Diagnostic>& diagnostics) {
  return std::ranges::any_of(diagnostics, isTimeout);
}

bool tellsOfWay(const std::vector<Diagnostic>& diagnostics) {
  return std::ranges::any_of(diagnostics,
                             [](const Diagnostic& each) { return each.state.starts_with("08"); }) &&
         std::ranges::none_of(diagnostics, [](const Diagnostic& each) { return known(each) != nullptr; });
}

DatabaseError errorOf(const std::vector<Diagnostic>& diagnostics, const Circumstance& circumstance) {
  if (tellsOfTimeout(diagnostics)) return timeoutOf(circumstance);
  if (!circumstance.statementKind.empty() && tellsOfDrop(diagnostics)) return droppedOf(circumstance);
  if (diagnostics.empty()) {
    const Told told = tell({"HY000", 0, ""}, circumstance.statementKind);
    return {told.kind, 0, circumstance.statementKind, told.text};
  }
  if (const Diagnostic* const fault = faultOfEncryption(diagnostics, circumstance)) {
    return {Unavailable, fault->native, "", kNotEncrypted + sayingOf(*fault, circumstance.statement)};
  }
  const Told told = tell(worst(diagnostics), circumstance.statementKind);
  const Diagnostic& telling = mostTelling(diagnostics);
  return {told.kind, telling.native, circumstance.statementKind,
          told.text + sayingOf(telling, circumstance.statement)};
}

std::string kindOf(std::string_view statement) {
  const std::size_t start = statement.find_first_not_of(" \t\r\n;(");
  std::string word;
  for (std::size_t i = start; i < statement.size(); ++i) {
    const char c = statement[i];
    if (!isLetter(c)) break;
    word += upperAscii(c);
  }
  return word.empty() ? "SQL" : word;
}

}  // namespace cu::odbc
