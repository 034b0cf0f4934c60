#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/filtri.h"
#include "host/modi.h"

namespace cu {

class Conversioni;

// What a person has chosen to print, written twice: in the language of the reports, where a column of the
// report's view is "{__ViewName.Column}", and in SQL, to find out beforehand whether anything would come out.
// The two texts differ in their blanks and in how they read a lone bound of the payees; both are kept so.
namespace stampa {

inline constexpr std::string_view kContoIndividuale = "ContoIndividuale.rpt";
inline constexpr std::string_view kSintetico = "CertificazioneCompensiSintetico.rpt";
inline constexpr std::string_view kAnalitico = "CertificazioneCompensiAnalitico.rpt";

struct Dati {
  ModoCorsa modo = ModoCorsa::Altro;
  std::string report;  // file name
  Filtri filtri;
  std::int32_t idAzienda = 0;
  std::int32_t idUtente = 0;
};

// The parts of the formula; "" where there is nothing to say. Error 6 for a year beyond 16 bits.
std::string fnFiltroAnno(const Dati& dati, const Conversioni& utilita);
std::string fnFiltroPercipiente(const Dati& dati, const Conversioni& utilita);
std::string fnFiltroCausale(const Dati& dati, const Conversioni& utilita);
// The bounds of the payees in ascending order, as the database orders text: codes for the fields of a code,
// descriptions for the field of the name; of any other field `a` and `b` stay as they are.
void sbOrdinaEstremi(const Filtri& filtri, std::string_view campo, std::string& a, std::string& b);
// The whole formula.
std::string formula(const Dati& dati, const Conversioni& utilita);

// The view that the test before printing looks into, "" in a run mode that prints without the test; and its
// condition.
std::string_view vista(const Dati& dati);
std::string filtroSql(const Dati& dati, const Conversioni& utilita);

}  // namespace stampa
}  // namespace cu
