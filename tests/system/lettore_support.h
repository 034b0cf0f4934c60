#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cu::test {

// A database as any other tool would read and change it.
class Lettore {
 public:
  virtual ~Lettore() = default;

  using Riga = std::vector<std::string>;
  // A null is "", an amount has the places it needs, a day is "2016-12-31".
  virtual std::vector<Riga> righe(const std::string& domanda) = 0;
  virtual void esegui(const std::string& istruzione) = 0;

  // The first value of the first row; "" when there is none.
  std::string testo(const std::string& domanda) {
    const std::vector<Riga> tutte = righe(domanda);
    return tutte.empty() ? "" : tutte.front().front();
  }
  std::int64_t numero(const std::string& domanda) { return std::stoll("0" + testo(domanda)); }
};

}  // namespace cu::test
