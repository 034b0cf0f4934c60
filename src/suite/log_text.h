#pragma once

#include <string>
#include <string_view>

#include "suite/support_log.h"

namespace cu {

// The text of a line of the log for support:
//   2026-11-23T10:15:30.123+01:00 [4711] istruzione SELECT su=ContoIndividuale ms=3 righe=120
//   2026-11-23T10:15:31.004+01:00 [4711] istruzione UPDATE su=Comune ms=0 errore=database/Locked
//   numero=-2147217900 codice=5

// The present moment in local time, with milliseconds and the offset from UTC.
std::string logMoment();
// What was done, without its measures.
std::string logSubject(const LogEntry& entry);
// Duration, rows, bytes, error and exit code, each after a blank.
std::string logMeasures(const LogEntry& entry);
// The text starts with a moment and a process.
bool isLogLine(std::string_view text);

// What may be said of a statement: its first word, if it is one of the language, and the first table that it
// names, with "#" for each digit. Texts, numbers and names in double quotes are passed over.
struct StatementSubject {
  std::string_view kind;  // "SELECT", ...; "altro" for any other word
  std::string table;      // empty where it names none
};
// A text of one name is a table that is read whole.
StatementSubject statementSubject(std::string_view statement);

}  // namespace cu
