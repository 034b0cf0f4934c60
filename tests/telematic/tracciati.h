#pragma once

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace cu::test {

// The printed layout of the supply, record by record: position from 1, offset from 0, length, field.
struct CampoTracciato {
  int posizione;
  int offset;
  int lunghezza;
  std::string nome;
};
using Tracciato = std::vector<CampoTracciato>;

// clang-format off
inline const Tracciato kA = {
    {   1,    0,    1, "Tipo Record"},
    {   2,    1,   14, "Filler"},
    {  16,   15,    5, "Codice fornitura"},
    {  21,   20,    2, "Tipo fornitore"},
    {  23,   22,   16, "Cod. Fisc. fornitore"},
    {  39,   38,  483, "Filler 2"},
    { 522,  521,    4, "Filler 3"},
    { 526,  525,    4, "Filler 4"},
    { 530,  529,  100, "Campo utente"},
    { 630,  629, 1068, "Filler 5"},
    {1698, 1697,  200, "Spazio riservato a serv. telematico"},
    {1898, 1897,    1, "Filler 6"},
};

inline const Tracciato kBInizio = {
    {   1,    0,    1, "Tipo Record"},
    {   2,    1,   16, "Cod. Fisc. Sost. imposta"},
    {  18,   17,    8, "Progressivo modulo"},
    {  26,   25,    1, "Filler"},
    {  27,   26,    8, "Filler 2"},
    {  35,   34,   25, "Filler 3"},
    {  60,   59,   14, "Spazio a disp. utente"},
    {  74,   73,   16, "Id. prod. software (Cod. Fisc.)"},
    {  90,   89,    1, "Filler 4"},
    {  91,   90,    1, "Fornitura rel. invio certif. da ann."},
    {  92,   91,    1, "Fornitura rel. invio certif. da sost."},
    {  93,   92,   24, "Cognome"},
    { 117,  116,   20, "Nome"},
    { 137,  136,   60, "Denominazione"},
    { 197,  196,  100, "Indirizzo posta elettronica"},
    { 297,  296,   12, "Telefono/Fax"},
};

inline const Tracciato kBFinoAl2015 = {
    { 309,  308,   12, "Filler 5"},
    { 321,  320,   16, "Cod. Fisc. rappresentante"},
    { 337,  336,    2, "Cod. carica rappresentante"},
    { 339,  338,   24, "Cognome rappresentante"},
    { 363,  362,   20, "Nome rappresentante"},
    { 383,  382,   11, "Cod. Fisc. soc. o ente dich."},
};

inline const Tracciato kBDal2016 = {
    { 309,  308,    1, "Eventi eccezionali"},
    { 310,  309,   16, "Cod. Fisc. rappresentante"},
    { 326,  325,    2, "Cod. carica rappresentante"},
    { 328,  327,   24, "Cognome rappresentante"},
    { 352,  351,   20, "Nome rappresentante"},
    { 372,  371,   11, "Cod. Fisc. soc. o ente dich."},
    { 383,  382,   11, "Filler 5"},
};

inline const Tracciato kBFine = {
    { 394,  393,    8, "N° comun. certif. lav. dip. e assim."},
    { 402,  401,    8, "N° comun. certif. lav. aut. e provv."},
    { 410,  409,    1, "Casella Quadro CT"},
    { 411,  410,    1, "Firma"},
    { 412,  411,   16, "Cod. Fisc. intermediario"},
    { 428,  427,    1, "Impegno a trasmettere via telem. dich."},
    { 429,  428,    8, "Data dell'impegno"},
    { 437,  436,    1, "Firma intermediario"},
    { 438,  437,    1, "Filler 6"},
    { 439,  438,   40, "Filler 7"},
    { 479,  478,    2, "Filler 8"},
    { 481,  480,    5, "Filler 9"},
    { 486,  485,   35, "Filler 10"},
    { 521,  520,    6, "Filler 11"},
    { 527,  526,    3, "Filler 12"},
    { 530,  529,    8, "Filler 13"},
    { 538,  537,    1, "Filler 14"},
    { 539,  538, 1305, "Filler 15"},
    {1844, 1843,   20, "Spazio riservato a serv. telematico"},
    {1864, 1863,    7, "Filler 16"},
    {1871, 1870,    3, "Filler 17"},
    {1874, 1873,    3, "Filler 18"},
    {1877, 1876,    1, "Filler 19"},
    {1878, 1877,    1, "Filler 20"},
    {1879, 1878,    1, "Filler 21"},
    {1880, 1879,    1, "Filler 22"},
    {1881, 1880,    1, "Filler 23"},
    {1882, 1881,    1, "Filler 24"},
    {1883, 1882,   15, "Filler 25"},
    {1898, 1897,    1, "Filler 26"},
};

inline const Tracciato kD = {
    {   1,    0,    1, "Tipo Record"},
    {   2,    1,   16, "Cod. Fisc. Sost. imposta"},
    {  18,   17,    8, "Progressivo modulo"},
    {  26,   25,   16, "Cod. Fisc. Percipiente"},
    {  42,   41,    5, "Progressivo Certificazione"},
    {  47,   46,   17, "Prot. ass. da Serv. telem.-Id. invio"},
    {  64,   63,    6, "Progr. ass. da Serv. telem. alla singola CU"},
    {  70,   69,   14, "Spazio a disp. utente"},
    {  84,   83,    1, "Tipo op.: ann./sost."},
    {  85,   84,    4, "Filler"},
    {  89,   88,    1, "Flag conferma Singola Certif."},
    {1890, 1889,    8, "Filler 2"},
    {1898, 1897,    1, "Filler 3"},
};

inline const Tracciato kH = {
    {   1,    0,    1, "Tipo Record"},
    {   2,    1,   16, "Cod. Fisc. Sost. imposta"},
    {  18,   17,    8, "Progressivo modulo"},
    {  26,   25,   16, "Cod. Fisc. Percipiente"},
    {  42,   41,    5, "Progressivo Certificazione"},
    {  47,   46,   17, "Filler"},
    {  64,   63,    6, "Spazio a disp. utente"},
    {  70,   69,   14, "Filler 2"},
    {  84,   83,    1, "Filler 3"},
    {  85,   84,    4, "Filler 4"},
    {  89,   88,    1, "Filler 5"},
    {1890, 1889,    8, "Filler 6"},
    {1898, 1897,    1, "Filler 7"},
};

inline const Tracciato kZ = {
    {   1,    0,    1, "Tipo Record"},
    {   2,    1,   14, "Filler"},
    {  16,   15,    9, "N° rec. Tipo B"},
    {  25,   24,    9, "N° rec. Tipo C"},
    {  34,   33,    9, "N° rec. Tipo D"},
    {  43,   42,    9, "N° rec. Tipo G"},
    {  52,   51,    9, "N° rec. Tipo H"},
    {  61,   60,    9, "N° rec. Tipo L"},
    {  70,   69,    9, "Filler 3"},
    {  79,   78,    9, "Filler 4"},
    {  88,   87, 1810, "Filler 5"},
    {1898, 1897,    1, "Filler 6"},
};

// clang-format on

inline Tracciato conCelle(Tracciato quadro) {
  Tracciato intero(quadro.begin(), quadro.end() - 2);
  for (int n = 1; n <= 75; ++n) {
    intero.push_back({90 + 24 * (n - 1), 89 + 24 * (n - 1), 24, "Campo" + std::to_string(n)});
  }
  intero.insert(intero.end(), quadro.end() - 2, quadro.end());
  return intero;
}

inline Tracciato tracciato(char tipo, int anno) {
  if (tipo == 'A') return kA;
  if (tipo == 'Z') return kZ;
  if (tipo == 'D') return conCelle(kD);
  if (tipo == 'H') return conCelle(kH);
  Tracciato b = kBInizio;
  const Tracciato& mezzo = anno < 2016 ? kBFinoAl2015 : kBDal2016;
  b.insert(b.end(), mezzo.begin(), mezzo.end());
  b.insert(b.end(), kBFine.begin(), kBFine.end());
  return b;
}

// The line of a record with these contents in the named fields and blanks in all others. A content has to fit
// its field; an unknown field is an error of the test.
inline std::string riga(char tipo, int anno, const std::map<std::string, std::string>& contenuti) {
  std::string testo(1898, ' ');
  std::size_t posti = 0;
  for (const CampoTracciato& campo : tracciato(tipo, anno)) {
    const auto contenuto = contenuti.find(campo.nome);
    if (contenuto == contenuti.end()) continue;
    ++posti;
    if (contenuto->second.size() > static_cast<std::size_t>(campo.lunghezza)) {
      throw std::logic_error("too long for " + campo.nome);
    }
    testo.replace(static_cast<std::size_t>(campo.posizione) - 1, contenuto->second.size(), contenuto->second);
  }
  if (posti != contenuti.size()) throw std::logic_error("a content names no field of the record");
  return testo + "\r\n";
}

}  // namespace cu::test
