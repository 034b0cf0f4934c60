#include "system/inserimenti_support.h"

#include <algorithm>
#include <map>

#include "system/server_di_prova_support.h"

namespace cu::test {

std::size_t caratteri(const std::string& testo) {
  return static_cast<std::size_t>(std::count_if(
      testo.begin(), testo.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string primi(const std::string& testo, std::size_t quanti) {
  std::size_t fine = 0;
  for (; fine < testo.size(); ++fine) {
    if ((static_cast<unsigned char>(testo[fine]) & 0xC0U) != 0x80U && quanti-- == 0) break;
  }
  return testo.substr(0, fine);
}

std::string ripetuto(const std::string& testo, std::size_t lunghezza) {
  std::string lungo;
  for (std::size_t fatti = 0; fatti < lunghezza; fatti += caratteri(testo)) lungo += testo;
  return primi(lungo, lunghezza);
}

std::string nelTracciato(const std::string& testo) {
  static const std::map<std::string, char> tavola = {
      {"€", '\x80'}, {"’", '\x92'}, {"“", '\x93'}, {"”", '\x94'}, {"–", '\x96'},     {"Š", '\x8A'},
      {"Ÿ", '\x9F'}, {"È", '\xC8'}, {"ß", '\xDF'}, {"Œ", '\x8C'}, {"\u00A0", '\xA0'}};
  std::string scritto;
  for (std::string resto = testo; !resto.empty();) {
    const std::string carattere = primi(resto, 1);
    resto.erase(0, carattere.size());
    const auto trovato = tavola.find(carattere);
    scritto += carattere.size() == 1 ? carattere[0] : trovato == tavola.end() ? '?' : trovato->second;
  }
  return scritto;
}

std::string senzaMinuscole(std::string testo) {
  for (char& c : testo) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return testo;
}

std::string senzaCodaDiBlank(std::string testo) {
  testo.erase(testo.find_last_not_of(' ') + 1);
  return testo;
}

std::string raddoppiato(const std::string& testo) {
  std::string doppio;
  for (const char c : testo) doppio += c == '\'' ? std::string("''") : std::string(1, c);
  return doppio;
}

namespace {

// The limits of a server's text columns: the characters of its code page, and the length of a column of
// descriptions.
constexpr std::size_t kDescrizione = 253;  // after the two that a test puts before them
bool nelServer(const Inserimento& inserimento) {
  return inserimento.nellaTavola && caratteri(inserimento.testo) <= kDescrizione;
}

std::vector<Inserimento> tutti() {
  std::vector<Inserimento> testi = {
      {"SoliApici", "'"},
      {"FineDellIstruzione", "';'); DROP TABLE ContoIndividuale; -- '' OR 1=1 "},
      {"Commenti", "--'/*'*/\"--/*;'' */ -- /* aperto "},
      {"Parentesi", "[%_'](){}?$^|#@&<>=+~!`,.:\\' LIKE '%[a-z]_' "},
      {"RigheETabulazioni", "'\r\n\t\n\v\f\x01\x1B\x7F;'\nGO\nDROP TABLE Compenso\n"},
      {"RigheFuoriDallaTavola", "'\r\n\u0085\u2028\u2029;'\u2028GO\u2028DROP TABLE Compenso\u0085", false},
      {"FuoriDallaTavola", "'Ж😀e\u0301漢\u202E\u02BC\uFF07\uFFFD\u200DЖ' Привет 😀😀 \U0010FFFF", false},
      {"NellaTavola", "'È€’“”–ŸŒßŠ\u00A0;--' "}};
  for (Inserimento& testo : testi) testo.testo = ripetuto(testo.testo, 47) + "'";
  testi.push_back({"UnaDescrizione", ripetuto("']);--/*%_\t\n\"È€ ", kDescrizione - 1) + "'"});
  testi.push_back({"OttomilaCaratteri", ripetuto("']);--/*%_\t\n\"È😀 ", 7999) + "'", false});
  return testi;
}

}  // namespace

const std::vector<Inserimento>& inserimenti() {
  static const std::vector<Inserimento> testi = [] {
    std::vector<Inserimento> scelti = tutti();
    if (sulServer()) std::erase_if(scelti, [](const Inserimento& testo) { return !nelServer(testo); });
    return scelti;
  }();
  return testi;
}

}  // namespace cu::test
