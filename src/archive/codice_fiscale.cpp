#include "archive/codice_fiscale.h"

#include <array>
#include <stdexcept>

#include "base/text.h"

namespace cu {
namespace {

// Lower and upper case letters U+00C0 to U+00FF without their marks; letters with diaeresis become the two
// letters of the rule.
constexpr std::array<std::string_view, 64> kLatino = {
    "A", "A", "A", "A", "AE", "A", "AE", "C", "E", "E", "E", "E", "I",  "I", "I",  "I",   //
    "D", "N", "O", "O", "O",  "O", "OE", "",  "O", "U", "U", "U", "UE", "Y", "TH", "SS",  //
    "A", "A", "A", "A", "AE", "A", "AE", "C", "E", "E", "E", "E", "I",  "I", "I",  "I",   //
    "D", "N", "O", "O", "O",  "O", "OE", "",  "O", "U", "U", "U", "UE", "Y", "TH", "Y"};

std::string lettere(std::string_view testo) {
  std::string risultato;
  for (std::size_t i = 0; i < testo.size();) {
    const char32_t c = nextCodePoint(testo, i);
    if (c >= 'a' && c <= 'z') {
      risultato += static_cast<char>(c - 'a' + 'A');
    } else if (c >= 'A' && c <= 'Z') {
      risultato += static_cast<char>(c);
    } else if (c >= 0xC0 && c <= 0xFF) {
      risultato += kLatino[c - 0xC0];
    } else if (c == 0x160 || c == 0x161) {
      risultato += 'S';
    } else if (c == 0x17D || c == 0x17E) {
      risultato += 'Z';
    }
  }
  return risultato;
}

bool vocale(char c) { return std::string_view("AEIOU").find(c) != std::string_view::npos; }

std::string consonanti(std::string_view testo) {
  std::string risultato;
  for (char c : testo) {
    if (!vocale(c)) risultato += c;
  }
  return risultato;
}

std::string tre(std::string_view testo, std::string_view scelte) {
  std::string risultato(scelte.substr(0, 3));
  for (char c : testo) {
    if (risultato.size() < 3 && vocale(c)) risultato += c;
  }
  risultato.resize(3, 'X');
  return risultato;
}

void dueCifre(std::string& testo, int valore) {
  testo += static_cast<char>('0' + valore / 10 % 10);
  testo += static_cast<char>('0' + valore % 10);
}

}  // namespace

std::string codiceFiscale(const DatiAnagrafici& dati) {
  const std::string cognome = lettere(dati.cognome);
  const std::string nome = lettere(dati.nome);
  std::string codice = tre(cognome, consonanti(cognome));
  std::string delNome = consonanti(nome);
  if (delNome.size() > 3)
    delNome.erase(1, 1);  // of four or more consonants: the first, the third and the fourth
  codice += tre(nome, delNome);
  dueCifre(codice, dati.nascita.year() % 100);
  codice += std::string_view("ABCDEHLMPRST")[static_cast<std::size_t>(dati.nascita.month() - 1)];
  dueCifre(codice, dati.nascita.day() + (dati.femmina ? 40 : 0));
  codice += dati.luogo;
  codice += carattereDiControllo(codice);
  return codice;
}

char carattereDiControllo(std::string_view primi15) {
  // Values of the characters in odd positions, counted from 1; a digit has the value of the letter with its
  // rank.
  constexpr std::array<int, 26> kDispari = {1,  0,  5, 7, 9, 13, 15, 17, 19, 21, 2,  4,  18,
                                            20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23};
  if (primi15.size() != 15) throw std::invalid_argument("servono 15 caratteri");
  int somma = 0;
  for (std::size_t i = 0; i < primi15.size(); ++i) {
    const char c = primi15[i];
    const int rango = c >= '0' && c <= '9' ? c - '0' : c - 'A';
    if (rango < 0 || rango > 25) throw std::invalid_argument("carattere non ammesso in un codice fiscale");
    somma += i % 2 == 0 ? kDispari[static_cast<std::size_t>(rango)] : rango;
  }
  return static_cast<char>('A' + somma % 26);
}

char cifraDiControllo(std::string_view prime10) {
  if (prime10.size() != 10) throw std::invalid_argument("servono 10 cifre");
  int somma = 0;
  for (std::size_t i = 0; i < prime10.size(); ++i) {
    int cifra = prime10[i] - '0';
    if (cifra < 0 || cifra > 9) throw std::invalid_argument("cifra non ammessa");
    if (i % 2 == 1) cifra = cifra < 5 ? cifra * 2 : cifra * 2 - 9;
    somma += cifra;
  }
  return static_cast<char>('0' + (10 - somma % 10) % 10);
}

}  // namespace cu
