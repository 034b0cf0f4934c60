#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace cu {

// The lists required by every company, read from data/liste/.

struct ComuneInLista {
  std::int32_t id = 0;
  std::string_view nome;
  std::string_view catasto;    // cadastral code, such as "L781"
  std::string_view provincia;  // code, such as "VR"
  int soppresso = 0;           // the year in which it ceased to exist; 0 for one that exists
};

struct NazioneInLista {
  std::int32_t id = 0;      // the code as a number
  std::string_view codice;  // three digits, assigned by the Agenzia delle Entrate
  std::string_view nome;
  std::string_view catasto;  // Z and three digits; empty for Italy and where there is none
};

inline constexpr std::int32_t kItalia = 86;  // the country's id

struct VoceInLista {
  std::int32_t id = 0;
  std::string_view codice;
};

std::vector<ComuneInLista> comuni();
std::vector<NazioneInLista> nazioni();
std::vector<VoceInLista> causaliPagamento();
// What a payment reason stands for; "" for an unknown code.
std::string_view descrizioneCausale(std::string_view codice);
std::vector<VoceInLista> categorieParticolari();
std::vector<VoceInLista> eventiEccezionali();
std::vector<VoceInLista> categorieEntiPrevidenziali();

struct EnteInLista {
  std::int32_t id = 0;
  std::string_view codiceFiscale;
  std::string_view nome;
  std::string_view codice;
};
std::vector<EnteInLista> entiPrevidenziali();

// The id of a municipality is independent of additions to the list: the letter's rank from 1, times a
// thousand, plus the digits ("A001" is 1001, "L781" 12781). Raises std::invalid_argument for an invalid
// cadastral code.
std::int32_t idComune(std::string_view catasto);

}  // namespace cu
