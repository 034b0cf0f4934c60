// The minimum work of a program with a database: the limit of cuctl's start. Argument: the file.

#include <sqlite3.h>

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  sqlite3* database = nullptr;
  if (sqlite3_open(argv[1], &database) != SQLITE_OK) return 1;
  const int code =
      sqlite3_exec(database, "SELECT DISTINCT Anno FROM ContoIndividuale", nullptr, nullptr, nullptr);
  sqlite3_close(database);
  return code == SQLITE_OK ? 0 : 1;
}
