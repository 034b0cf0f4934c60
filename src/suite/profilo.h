#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "host/session.h"

namespace cu {

// The profile: the data that the suite's launcher would pass, read from a TOML file. Relative paths have been
// resolved against the profile's folder.
struct Profilo {
  struct Istante {
    Date giorno;
    TimeOfDay ora;
  };
  struct Sessione {
    std::int32_t utente = 0;
    std::int32_t azienda = 0;
    std::int32_t filiale = 0;
    std::string titolo;
    std::string cartellaGuida;
    std::int32_t contestoGuida = 0;
    std::string sezioneImpostazioni;
    std::vector<ProcessoHost> processi;
    bool rifiutaAvvio = false;
    std::optional<Istante> oggi;
  };
  enum class Motore { Sqlite, Odbc };
  struct Database {
    Motore motore = Motore::Sqlite;
    std::string origine;            // the file's path, or the connection text after "odbc:"
    std::string variabilePassword;  // name of an environment variable; may be empty
    bool cifrata = true;
    std::int32_t secondiAccesso = 15;
    std::int32_t secondiIstruzione = 600;  // 0 for no limit
    // Never from a file:
    std::optional<std::string> password;  // asked for already
    std::optional<int> secondiAttesa;     // for another program's write in a file; none for the usual time
  };
  struct Valuta {
    bool decimali = true;
    std::string simbolo;
    std::string separatoreDecimale;
    std::string separatoreMigliaia;
  };
  enum class MotoreStampa { Pdf, Registro };

  std::string file;  // the profile's path as passed
  Sessione sessione;
  Database database;
  Valuta valuta;
  std::string documenti;
  std::string impostazioni;
  MotoreStampa stampa = MotoreStampa::Pdf;
  bool moduliPubblicati = false;  // later years in the forms published for them
  std::string traccia;            // path of the trace of statements; empty for none
  std::string registro;           // path of the log for support; empty for none
};

// One line in Italian: the file, the key, the expected value.
class ErroreProfilo : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Raises ErroreProfilo; also where a file that the run writes is one that it needs (file_distinti.h).
Profilo leggiProfilo(const std::string& file);
// Parses a text; `cartella` is the base of relative paths. Accepts any bytes.
Profilo analizzaProfilo(std::string_view testo, const std::string& file, const std::string& cartella);

// Splits a database address, "sqlite:path" or "odbc:text"; nullopt when it is neither.
std::optional<Profilo::Database> analizzaIndirizzo(std::string_view indirizzo, const std::string& cartella);

}  // namespace cu
