#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/filtri.h"
#include "host/modi.h"

namespace cu {

class Conversioni;

// The user's selection for a print in two languages: that of the reports, where a column of the report's view
// is "{__ViewName.Column}", and SQL, to test beforehand whether the print would be empty. The two texts
// differ in their blanks and in the meaning of a single limit of the payees; both are intentional.
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

// The parts of the formula; "" for no condition. Error 6 for a year beyond 16 bits.
std::string fnFiltroAnno(const Dati& dati, const Conversioni& utilita);
std::string fnFiltroPercipiente(const Dati& dati, const Conversioni& utilita);
std::string fnFiltroCausale(const Dati& dati, const Conversioni& utilita);
// The limits of the payees in ascending order, in the database's text order: codes for a code field,
// descriptions for the name field. For any other field `a` and `b` are not changed.
void sbOrdinaEstremi(const Filtri& filtri, std::string_view campo, std::string& a, std::string& b);
// The whole formula.
std::string formula(const Dati& dati, const Conversioni& utilita);

// The view queried by the test before printing, "" in a run mode without a test; and its condition.
std::string_view vista(const Dati& dati);
std::string filtroSql(const Dati& dati, const Conversioni& utilita);

}  // namespace stampa
}  // namespace cu
