#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace cu::test {

// A run of a program with its three streams controlled by the test. Standard error is written to a file.
class Processo {
 public:
  // `argomenti` begins with the program's path.
  Processo(const std::vector<std::string>& argomenti, const std::string& cartella);
  ~Processo();  // kills it if it is still running
  Processo(const Processo&) = delete;
  Processo& operator=(const Processo&) = delete;

  // Returns false when the program does not read any more.
  bool scrivi(const std::string& testo);
  void chiudiIngresso();
  void chiudiUscita();
  // nullopt at the end of its output; raises std::runtime_error when a line does not arrive in time.
  std::optional<std::string> riga();
  std::string resto();   // all remaining output
  int codice();          // waits for its end; 128 plus the number of a signal
  std::string errori();  // its standard error
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

// The result of a whole run.
struct Esecuzione {
  int codice = 0;
  std::string uscita;
  std::string errori;
};
Esecuzione esegui(const std::vector<std::string>& argomenti, const std::string& cartella,
                  const std::string& ingresso = {});

}  // namespace cu::test
