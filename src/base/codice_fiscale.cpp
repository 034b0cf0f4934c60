#include "base/codice_fiscale.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/ascii.h"
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

constexpr std::string_view kMesi = "ABCDEHLMPRST";

// The digit that a character of a code represents; -1 for none. The letters replace digits in homonymous
// codes.
int cifra(char c) {
  constexpr std::string_view kSostituti = "LMNPQRSTUV";
  if (isDigit(c)) return c - '0';
  const std::size_t posto = kSostituti.find(c);
  return posto == std::string_view::npos ? -1 : static_cast<int>(posto);
}

bool maiuscola(char c) { return c >= 'A' && c <= 'Z'; }

bool formaPersona(std::string_view codice) {
  // A letter, a digit, the letter of a month.
  constexpr std::string_view kForma = "AAAAAA00M00A000A";
  for (std::size_t i = 0; i < kForma.size(); ++i) {
    const char c = codice[i];
    if (kForma[i] == 'A' && !maiuscola(c)) return false;
    if (kForma[i] == '0' && cifra(c) < 0) return false;
    if (kForma[i] == 'M' && kMesi.find(c) == std::string_view::npos) return false;
  }
  const int giorno = cifra(codice[9]) * 10 + cifra(codice[10]);
  return (giorno >= 1 && giorno <= 31) || (giorno >= 41 && giorno <= 71);
}

void dueCifre(std::string& testo, int valore) {
  testo += static_cast<char>('0' + valore / 10 % 10);
  testo += static_cast<char>('0' + valore % 10);
}

}  // namespace

std::string lettereDiCodice(std::string_view testo) {
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

std::string codiceFiscale(const DatiAnagrafici& dati) {
  const std::string cognome = lettereDiCodice(dati.cognome);
  const std::string nome = lettereDiCodice(dati.nome);
  std::string codice = tre(cognome, consonanti(cognome));
  std::string delNome = consonanti(nome);
  if (delNome.size() > 3)
    delNome.erase(1, 1);  // of four or more consonants: the first, the third and the fourth
  codice += tre(nome, delNome);
  dueCifre(codice, dati.nascita.year() % 100);
  codice += kMesi[static_cast<std::size_t>(dati.nascita.month() - 1)];
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

FormaCodice formaCodice(std::string_view codice) {
  if (codice.size() == 16 && formaPersona(codice)) return FormaCodice::Persona;
  if (codice.size() == 11 && std::all_of(codice.begin(), codice.end(), isDigit)) return FormaCodice::Numero;
  return FormaCodice::Nessuna;
}

bool controlloGiusto(std::string_view codice) {
  const char atteso = codice.size() == 16 ? carattereDiControllo(codice.substr(0, 15))
                                          : cifraDiControllo(codice.substr(0, 10));
  return codice.back() == atteso && codice.find_first_not_of('0') != std::string_view::npos;
}

std::optional<DatiNelCodice> datiNelCodice(std::string_view codice) {
  if (formaCodice(codice) != FormaCodice::Persona) return std::nullopt;
  DatiNelCodice dati;
  dati.anno = cifra(codice[6]) * 10 + cifra(codice[7]);
  dati.mese = static_cast<int>(kMesi.find(codice[8])) + 1;
  const int giorno = cifra(codice[9]) * 10 + cifra(codice[10]);
  dati.femmina = giorno > 40;
  dati.giorno = dati.femmina ? giorno - 40 : giorno;
  dati.luogo = codice[11];
  for (const std::size_t i : {12U, 13U, 14U}) dati.luogo += static_cast<char>('0' + cifra(codice[i]));
  return dati;
}

std::string lettereDelNome(std::string_view cognome, std::string_view nome) {
  const DatiAnagrafici dati{cognome, nome, false, *Date::fromYmd(2000, 1, 1), "A001"};
  return codiceFiscale(dati).substr(0, 6);
}

std::optional<Date> nascitaNelCodice(const DatiNelCodice& dati, Date oggi) {
  constexpr int kEtaMinima = 14;
  const auto limite = Date::fromYmd(oggi.year() - kEtaMinima, oggi.month(), std::min(oggi.day(), 28));
  for (const int secolo : {2000, 1900}) {
    const auto giorno = Date::fromYmd(secolo + dati.anno, dati.mese, dati.giorno);
    if (giorno && limite && *giorno <= *limite) return giorno;
  }
  return std::nullopt;
}

}  // namespace cu
