#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace cu::test {

// A database as any other tool would read and change it.
class Lettore {
 public:
  virtual ~Lettore() = default;

  // A null is "", an amount has the places it needs, a day is "2016-12-31".
  using Riga = std::vector<std::string>;
  struct Tavola {
    Riga colonne;
    std::vector<Riga> righe;
  };
  virtual Tavola leggi(const std::string& domanda) = 0;
  virtual void esegui(const std::string& istruzione) = 0;
  // Runs one statement with the texts as its parameters.
  virtual void esegui(const std::string& domanda, const std::vector<std::string>& testi) = 0;
  // The names of the tables and views, in a stable order.
  virtual std::vector<std::string> tavole() = 0;
  // A condition: the column's date is in the year.
  virtual std::string nellAnno(const std::string& colonna, const std::string& anno) const = 0;

  std::vector<Riga> righe(const std::string& domanda) { return leggi(domanda).righe; }
  // The values of the first row by column.
  std::map<std::string, std::string> riga(const std::string& domanda) {
    const Tavola tavola = leggi(domanda);
    std::map<std::string, std::string> valori;
    if (tavola.righe.empty()) return valori;
    for (std::size_t i = 0; i < tavola.colonne.size(); ++i)
      valori[tavola.colonne[i]] = tavola.righe.front()[i];
    return valori;
  }
  // The first value of every row.
  std::vector<std::string> elenco(const std::string& domanda) {
    std::vector<std::string> valori;
    for (const Riga& riga : righe(domanda)) valori.push_back(riga.front());
    return valori;
  }
  // The first value of the first row; "" when there is none.
  std::string testo(const std::string& domanda) {
    const std::vector<Riga> tutte = righe(domanda);
    return tutte.empty() ? "" : tutte.front().front();
  }
  std::int64_t numero(const std::string& domanda) { return std::stoll("0" + testo(domanda)); }
};

}  // namespace cu::test
