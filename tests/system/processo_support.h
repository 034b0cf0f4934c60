#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace cu::test {

// A run of a program, its three streams in our hands. What it writes on standard error goes to a file.
class Processo {
 public:
  // `argomenti` begin with the program's path.
  Processo(const std::vector<std::string>& argomenti, const std::string& cartella);
  ~Processo();  // kills it if it still runs
  Processo(const Processo&) = delete;
  Processo& operator=(const Processo&) = delete;

  // False when it does not read any more.
  bool scrivi(const std::string& testo);
  void chiudiIngresso();
  void chiudiUscita();
  // Nothing at the end of its output; a line that does not come in time is a std::runtime_error.
  std::optional<std::string> riga();
  std::string resto();   // all that it still writes
  int codice();          // waits for its end; 128 and the number of a signal
  std::string errori();  // what it wrote on standard error
  pid_t id() const { return id_; }

 private:
  bool leggi();

  std::string fileErrori_;
  pid_t id_ = -1;
  int ingresso_ = -1;
  int uscita_ = -1;
  std::string letto_;
  std::optional<int> codice_;
};

// The whole run at once.
struct Esecuzione {
  int codice = 0;
  std::string uscita;
  std::string errori;
};
Esecuzione esegui(const std::vector<std::string>& argomenti, const std::string& cartella,
                  const std::string& ingresso = {});

}  // namespace cu::test
