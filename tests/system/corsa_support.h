#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "support/temp_folder.h"
#include "system/processo_support.h"

namespace cu::test {

// A folder with the demonstration database, a profile, and what belongs to others: a file of an earlier year,
// a copy of it, a setting. In it the wizard runs for 2016 from its start to its end: a line corrected in its
// editor, one with a module, all lines taken out and in, the file, its copy, the forms, the accounts, the
// settings.
class LuogoCorsa {
 public:
  // `moduli` lays the forms out; without, they are only told. Below the folder `dove`, or where temporary
  // files go.
  explicit LuogoCorsa(bool moduli);
  LuogoCorsa(bool moduli, const std::string& dove);

  const std::string& cartella() const { return cartella_.path(); }
  std::string profilo() const { return cartella_ / "profilo.toml"; }

  // What a run leaves.
  std::string file() const;                          // the telematic file's content; "" when there is none
  std::map<std::string, std::string> conti() const;  // each table of the accounts, as one text
  std::size_t stampe() const;                        // how many forms
  // Whether no form and no copy of the file stands there cut, under its own name.
  bool soloInteri(const std::string& file) const;
  // And what it must leave alone.
  std::string integrita() const;  // "ok"
  bool altruiIntatti() const;

 private:
  TempFolder cartella_;
};

// The run, a command at a time.
class CorsaGuidata {
 public:
  explicit CorsaGuidata(const LuogoCorsa& luogo);

  static std::size_t passi();
  // Does the next step and answers what it asks, as it proposes. False when the program did not answer.
  bool passo();
  // Gives the next step's command and does not wait.
  void comincia();
  Processo& processo() { return *processo_; }
  // What is left of the steps, then the end of the input.
  void finisci();

  // What was told in boxes, logs and on standard error, in order.
  const std::vector<std::string>& detti() const { return detti_; }
  // Whether every step was taken and the program ended as it should.
  bool finita() const { return accettati_ == passi() && codice_ == 0; }
  int codice() const { return codice_; }

 private:
  std::string comando();
  std::optional<nlohmann::json> risposta();
  std::optional<nlohmann::json> manda(const nlohmann::json& comando);
  bool rispondi(nlohmann::json risposta);

  TempFolder errori_;  // not where the run writes
  std::unique_ptr<Processo> processo_;
  std::size_t prossimo_ = 0;
  std::size_t accettati_ = 0;
  std::vector<std::string> detti_;
  int codice_ = -1;
};

}  // namespace cu::test
