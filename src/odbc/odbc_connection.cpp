#include "odbc/odbc_connection.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

#include "base/ascii.h"
#include "base/error.h"
#include "base/text.h"
#include "odbc/block_reader.h"
#include "odbc/connection_text.h"
#include "odbc/diagnostics.h"
#include "odbc/driver.h"
#include "odbc/handle.h"
#include "odbc/utf8_locale.h"
#include "odbc/watchdog.h"
#include "odbc/wide.h"

namespace cu {

using namespace odbc;

namespace {

Environment newEnvironment() {
  Environment environment(nullptr);
  if (!environment ||
      !SQL_SUCCEEDED(SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, number(SQL_OV_ODBC3), 0))) {
    throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "",
                        "Il gestore dei driver ODBC non si può usare.");
  }
  return environment;
}

// Writes the secret as a literal of a statement, so that it is removed from messages like a value.
std::string asLiteral(std::string_view secret) {
  std::string literal = "'";
  for (const char c : secret) {
    if (c == '\'') literal += c;
    literal += c;
  }
  return literal + "'";
}

// Closes the statement's results in any case, so that none is left for the next one. A driver may have to
// read what the server still sends.
struct Closing {
  StatementHandle& statement;
  Watchdog& watchdog;
  int seconds;
  ~Closing() {
    const Watchdog::Watch watch(watchdog, seconds);
    SQLFreeStmt(statement.get(), SQL_CLOSE);
  }
};

// Some drivers would send only the part before a null character, without an error.
void refuseNull(std::string_view statement) {
  if (statement.find('\0') == std::string_view::npos) return;
  const std::string kind = kindOf(statement);
  throw DatabaseError(
      DatabaseErrorKind::Syntax, 0, kind,
      "L'istruzione " + kind + " contiene un carattere nullo e non è stata inviata al database.");
}

// "name", "[name]", "dbo.name", "[dbo].[name]".
bool isTableName(std::string_view text) {
  const bool named = std::ranges::all_of(text, [](char c) {
    return isLetter(c) || isDigit(c) || c == '_' || c == '#' || c == '@' || c == '.' || c == '[' ||
           c == ']' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
  });
  return !text.empty() && named;
}

}  // namespace

struct OdbcConnection::State {
  State(const OdbcSettings& given, const std::function<void(const std::string&)>& warn)
      : settings(given), text(given.text), environment(newEnvironment()) {
    const std::string driver = driverOf(environment, text);
    family = familyOf(driver);
    setEncryption(text, family, settings.encrypt);
    setProtocol(text, family);
    setNarrowTexts(text, driver);
    if (!settings.encrypt) {
      warn("Attenzione: la connessione con il server del database non è cifrata (encrypt = false).");
    } else if (family == DriverFamily::Other) {
      warn("Il driver ODBC «" + driver +
           "» non è fra quelli conosciuti: se la connessione è cifrata dipende dall'indirizzo e dal driver.");
    }
    login();
  }

  void login();
  void beginStatement();
  void reviveIfLost() {
    // The connection may have been broken after the last statement, while its remaining results were
    // discarded.
    if (lost || watchdog.hasBitten()) login();
  }
  void run(std::string_view statement, RowStore* rows);
  void results(RowStore* rows);
  bool countsNothing() const;
  [[noreturn]] void fail(const Circumstance& circumstance);

  OdbcSettings settings;
  ConnectionText text;
  DriverFamily family = DriverFamily::Other;
  Watchdog watchdog;
  Environment environment;
  Session session;
  StatementHandle statement;
  std::optional<BlockReader> reader;
  bool wide = true;
  bool lost = false;
  std::int64_t touched = -1;
  std::vector<SQLWCHAR> wideText;
};

void OdbcConnection::State::login() {
  reader.reset();
  statement = StatementHandle();
  session = Session();
  const Utf8Locale characters;
  session = Session(environment.get());
  lost = true;
  const std::string literal = asLiteral(settings.password);
  const Circumstance circumstance{"", literal, settings.loginSeconds, settings.encrypt};
  if (!session) throw errorOf({}, circumstance);
  SQLSetConnectAttr(session.get(), SQL_ATTR_LOGIN_TIMEOUT,
                    number(static_cast<std::uintptr_t>(settings.loginSeconds)), 0);
  ConnectionText whole = text;
  if (!settings.password.empty()) whole.set("PWD", settings.password);
  std::vector<SQLWCHAR> given;
  toWide(whole.text(), given);
  given.push_back(0);
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  watchdog.beforeLogin();
  SQLRETURN code = SQL_ERROR;
  {
    const Watchdog::Watch watch(watchdog, settings.loginSeconds);
    code = SQLDriverConnectW(session.get(), nullptr, given.data(), static_cast<SQLSMALLINT>(given.size() - 1),
                             nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  }
  if (!SQL_SUCCEEDED(code)) {
    const std::vector<Diagnostic> diagnostics = diagnosticsOf(SQL_HANDLE_DBC, session.get());
    // Some drivers report their own time-out like any other communication error.
    const bool outOfTime = settings.loginSeconds > 0 && tellsOfWay(diagnostics) &&
                           Clock::now() - start >= std::chrono::seconds(settings.loginSeconds);
    if (watchdog.ranOutOfTime() || outOfTime) throw timeoutOf(circumstance);
    if (watchdog.sawServerGo()) throw droppedOf(circumstance);
    throw errorOf(diagnostics, circumstance);
  }
  watchdog.afterLogin();
  // The drivers of SQL Server do. FreeTDS must not be queried: it calls the driver manager's function instead
  // of its own, which rejects the call.
  wide = family != DriverFamily::Other || givesWideTexts(session);
  beginStatement();
  lost = false;
}

void OdbcConnection::State::beginStatement() {
  statement = StatementHandle(session.get());
  if (!statement) throw errorOf(diagnosticsOf(SQL_HANDLE_DBC, session.get()), {"", "", 0, false});
  // Attributes unknown to a driver are skipped: they are its default behaviour, or the watchdog replaces
  // them.
  SQLHSTMT handle = statement.get();
  SQLSetStmtAttr(handle, SQL_ATTR_CURSOR_TYPE, number(SQL_CURSOR_FORWARD_ONLY), 0);
  SQLSetStmtAttr(handle, SQL_ATTR_CONCURRENCY, number(SQL_CONCUR_READ_ONLY), 0);
  SQLSetStmtAttr(handle, SQL_ATTR_NOSCAN, number(SQL_NOSCAN_ON), 0);
  SQLSetStmtAttr(handle, SQL_ATTR_QUERY_TIMEOUT,
                 number(static_cast<std::uintptr_t>(settings.statementSeconds)), 0);
  constexpr SQLUINTEGER kRereads = SQL_GD_BLOCK | SQL_GD_BOUND;
  reader.emplace(wide, (numberOf(session, SQL_GETDATA_EXTENSIONS) & kRereads) == kRereads);
}

void OdbcConnection::State::run(std::string_view source, RowStore* rows) {
  refuseNull(source);
  reviveIfLost();
  const Circumstance circumstance{kindOf(source), source, settings.statementSeconds, settings.encrypt};
  touched = -1;
  const Closing closing{statement, watchdog, settings.statementSeconds};
  try {
    SQLRETURN code = SQL_ERROR;
    if (wide) {
      toWide(source, wideText);
      wideText.push_back(0);  // a driver may look for a terminator in spite of the length
      const Watchdog::Watch watch(watchdog, settings.statementSeconds);
      code = SQLExecDirectW(statement.get(), wideText.data(), static_cast<SQLINTEGER>(wideText.size() - 1));
    } else {
      std::vector<SQLCHAR> bytes(source.begin(), source.end());
      bytes.push_back(0);
      const Watchdog::Watch watch(watchdog, settings.statementSeconds);
      code = SQLExecDirect(statement.get(), bytes.data(), static_cast<SQLINTEGER>(bytes.size() - 1));
    }
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) throw CallFailed{};
    results(rows);
  } catch (const CallFailed&) {
    fail(circumstance);
  }
}

// Reads all results in any case: an error may follow the first one.
void OdbcConnection::State::results(RowStore* rows) {
  for (;;) {
    SQLSMALLINT columns = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(statement.get(), &columns))) throw CallFailed{};
    if (columns == 0) {
      // The row counts of triggers come before the statement's own.
      SQLLEN count = -1;
      if (SQL_SUCCEEDED(SQLRowCount(statement.get(), &count)) && count >= 0 &&
          !(count == 0 && countsNothing())) {
        touched = count;
      }
    } else if (rows != nullptr) {
      reader->read(statement, columns, *rows, watchdog, settings.statementSeconds);
      rows = nullptr;
    }
    const Watchdog::Watch watch(watchdog, settings.statementSeconds);
    const SQLRETURN code = SQLMoreResults(statement.get());
    if (code == SQL_NO_DATA) return;
    if (!SQL_SUCCEEDED(code)) throw CallFailed{};
  }
}

// For a server whose sessions start with NOCOUNT, Microsoft's driver returns 0 rows, together with this
// diagnostic.
bool OdbcConnection::State::countsNothing() const {
  if (family != DriverFamily::Microsoft) return false;
  constexpr SQLINTEGER kNoCountStatus = 1231;
  SQLULEN status = 0;
  return SQL_SUCCEEDED(SQLGetStmtAttr(statement.get(), kNoCountStatus, &status, SQL_IS_UINTEGER, nullptr)) &&
         status == 1;
}

void OdbcConnection::State::fail(const Circumstance& circumstance) {
  const std::vector<Diagnostic> diagnostics = diagnosticsOf(SQL_HANDLE_STMT, statement.get());
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttr(session.get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  lost = dead == SQL_CD_TRUE || watchdog.hasBitten() || tellsOfDrop(diagnostics);
  if (watchdog.ranOutOfTime()) throw timeoutOf(circumstance);
  // A driver may disconnect from a server that has reached its own time limit.
  throw lost && !tellsOfTimeout(diagnostics) ? droppedOf(circumstance) : errorOf(diagnostics, circumstance);
}

OdbcConnection::OdbcConnection(std::unique_ptr<State> state) : state_(std::move(state)) {}
OdbcConnection::~OdbcConnection() = default;

std::unique_ptr<OdbcConnection> OdbcConnection::open(const OdbcSettings& settings,
                                                     const std::function<void(const std::string&)>& warn) {
  return std::unique_ptr<OdbcConnection>(new OdbcConnection(std::make_unique<State>(settings, warn)));
}

bool OdbcConnection::wantsPassword(std::string_view text) { return !ConnectionText(text).signsOnByItself(); }

std::int64_t OdbcConnection::Execute(std::string_view statement) {
  state_->run(statement, nullptr);
  return state_->touched;
}

void OdbcConnection::Query(std::string_view source, RowStore& rows) {
  if (isTableName(source)) {
    state_->run("SELECT * FROM " + std::string(source), &rows);
  } else {
    state_->run(source, &rows);
  }
}

std::size_t OdbcConnection::rowsPerBlock() const {
  return state_->reader ? state_->reader->rowsPerBlock() : 0;
}

std::string OdbcConnection::product() const {
  return informationOf(state_->session, SQL_DBMS_NAME) + " " + informationOf(state_->session, SQL_DBMS_VER);
}

bool OdbcConnection::isSqlServer() const {
  return equalsNoCase(informationOf(state_->session, SQL_DBMS_NAME), "Microsoft SQL Server");
}

}  // namespace cu
