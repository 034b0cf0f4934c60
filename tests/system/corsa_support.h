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

// A folder with the demonstration database, a profile, and foreign data: a file of an earlier year, a copy of
// it, a setting. The wizard runs in it for 2016 from its start to its end: a line corrected in its editor,
// one with a module, all lines deselected and selected, the file, its copy, the forms, the accounts, the
// settings.
class LuogoCorsa {
 public:
  // `moduli`: the forms are laid out; otherwise they are only reported. The place is in the folder `dove`, or
  // in the temporary folder.
  explicit LuogoCorsa(bool moduli);
  LuogoCorsa(bool moduli, const std::string& dove);

  const std::string& cartella() const { return cartella_.path(); }
  std::string profilo() const { return cartella_ / "profilo.toml"; }

  // The results of a run.
  std::string file() const;                          // the telematic file's content; "" when there is none
  std::map<std::string, std::string> conti() const;  // each table of the accounts, as one text
  std::size_t stampe() const;                        // number of forms
  // Whether no form and no copy of the file is incomplete under its final name.
  bool soloInteri(const std::string& file) const;
  // Foreign data, which the run must not change.
  std::string integrita() const;  // "ok"
  bool altruiIntatti() const;

 private:
  TempFolder cartella_;
};

// The run, one command at a time.
class CorsaGuidata {
 public:
  explicit CorsaGuidata(const LuogoCorsa& luogo);

  static std::size_t passi();
  // Performs the next step and confirms its questions. Returns false when the program did not answer.
  bool passo();
  // Sends the next step's command without waiting.
  void comincia();
  Processo& processo() { return *processo_; }
  // Performs the remaining steps, then ends the input.
  void finisci();

  // The texts of boxes, logs and standard error, in order.
  const std::vector<std::string>& detti() const { return detti_; }
  // Whether every step was performed and the program ended as required.
  bool finita() const { return accettati_ == passi() && codice_ == 0; }
  int codice() const { return codice_; }

 private:
  std::string comando();
  std::optional<nlohmann::json> risposta();
  std::optional<nlohmann::json> manda(const nlohmann::json& comando);
  bool rispondi(nlohmann::json risposta);

  TempFolder errori_;  // outside the folder of the run
  std::unique_ptr<Processo> processo_;
  std::size_t prossimo_ = 0;
  std::size_t accettati_ = 0;
  std::vector<std::string> detti_;
  int codice_ = -1;
};

}  // namespace cu::test
