#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "system/corsa_support.h"

namespace cu::test {

// A run that nothing disturbs, and what it leaves: what a run that is disturbed, and the one after it, are
// held against. What differs is a failure of the test.
class CorsaIntera {
 public:
  using Tempo = std::chrono::microseconds;

  // `moduli` lays the forms out; without, they are only told.
  explicit CorsaIntera(bool moduli);

  bool moduli() const { return moduli_; }
  const std::string& file() const { return file_; }
  const std::vector<Tempo>& tempi() const { return tempi_; }  // of each step

  // Whether all that the run leaves is there.
  bool tutta(const LuogoCorsa& luogo) const;
  // After a disturbed run: the database is sound, each table of the accounts is as before or as after, what
  // belongs to others is untouched.
  void attendeSano(const LuogoCorsa& luogo) const;
  // The next run succeeds and makes all of it.
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
