#include "system/forma_support.h"

#include <sstream>

#include <nlohmann/json.hpp>

namespace cu::test {
namespace {

bool cifra(char c) { return c >= '0' && c <= '9'; }

bool diParola(char c) {
  return cifra(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '.';
}

}  // namespace

std::string formaDi(const std::string& istruzione) {
  std::string forma;
  for (std::size_t i = 0; i < istruzione.size();) {
    if (istruzione[i] == '\'' && !istruzione.starts_with("EXEC(")) {
      for (++i; i < istruzione.size(); ++i) {
        if (istruzione[i] != '\'') continue;
        if (i + 1 == istruzione.size() || istruzione[i + 1] != '\'') break;
        ++i;
      }
      ++i;
      forma += "'?'";
    } else if (diParola(istruzione[i])) {
      const std::size_t inizio = i;
      while (i < istruzione.size() && diParola(istruzione[i])) ++i;
      forma += cifra(istruzione[inizio]) ? "0" : istruzione.substr(inizio, i - inizio);
    } else {
      forma += istruzione[i++];
    }
  }
  return forma;
}

std::vector<std::string> istruzioniDi(const std::string& traccia) {
  std::vector<std::string> istruzioni;
  std::istringstream righe(traccia);
  for (std::string riga; std::getline(righe, riga);) {
    istruzioni.push_back(nlohmann::json::parse(riga).get<std::string>());
  }
  return istruzioni;
}

}  // namespace cu::test
