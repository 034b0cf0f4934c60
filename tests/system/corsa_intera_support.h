#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "system/corsa_support.h"

namespace cu::test {

// An undisturbed run and its results, with which a disturbed run, and the one after it, are compared. A
// difference is a failure of the test.
class CorsaIntera {
 public:
  using Tempo = std::chrono::microseconds;

  // `moduli`: the forms are laid out; otherwise they are only reported.
  explicit CorsaIntera(bool moduli);

  bool moduli() const { return moduli_; }
  const std::string& file() const { return file_; }
  const std::vector<Tempo>& tempi() const { return tempi_; }  // of each step

  // Whether all results of the run exist.
  bool tutta(const LuogoCorsa& luogo) const;
  // After a disturbed run: the database is intact, each table of the accounts is as before or as after,
  // foreign data is unchanged.
  void attendeSano(const LuogoCorsa& luogo) const;
  // The next run succeeds and produces everything.
  void attendeRiuscita(const LuogoCorsa& luogo) const;

 private:
  bool moduli_;
  std::map<std::string, std::string> prima_;
  std::map<std::string, std::string> dopo_;
  std::string file_;
  std::size_t stampe_ = 0;
  std::vector<Tempo> tempi_;
};

}  // namespace cu::test
