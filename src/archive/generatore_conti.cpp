#include "archive/generatore_conti.h"

#include <span>

namespace cu {
namespace {

struct Peso {
  std::string_view causale;
  std::uint32_t peso;
};

constexpr Peso kPersone[] = {{"A", 55}, {"M", 12}, {"O", 8}, {"N", 8}, {"V", 3}, {"V1", 3},
                             {"U", 2},  {"R", 3},  {"Q", 3}, {"B", 2}, {"L", 1}};
constexpr Peso kDitte[] = {{"A", 30}, {"Q", 15}, {"R", 20}, {"S", 5}, {"T", 10}, {"U", 5}, {"W", 15}};
constexpr Peso kPersoneEstere[] = {{"A", 60}, {"M", 20}, {"B", 20}};
constexpr Peso kDitteEstere[] = {{"P", 50}, {"B", 50}};

std::string_view pesata(std::span<const Peso> pesi, Casuale& caso) {
  std::uint32_t totale = 0;
  for (const Peso& uno : pesi) totale += uno.peso;
  std::uint32_t tiro = caso.sotto(totale);
  for (const Peso& uno : pesi) {
    if (tiro < uno.peso) return uno.causale;
    tiro -= uno.peso;
  }
  return pesi.back().causale;
}

// Rounded to the cent, half up.
std::int64_t percento(std::int64_t importo, std::int64_t aliquota) { return (importo * aliquota + 50) / 100; }

bool unaDi(std::string_view causale, std::initializer_list<std::string_view> elenco) {
  for (std::string_view una : elenco) {
    if (una == causale) return true;
  }
  return false;
}

}  // namespace

void ImportiConto::aggiungi(const ImportiConto& altri) {
  onorario += altri.onorario;
  quotaNonSoggetta += altri.quotaNonSoggetta;
  nonSoggette += altri.nonSoggette;
  regimeConvenzionale += altri.regimeConvenzionale;
  ritenutaAcconto += altri.ritenutaAcconto;
  ritenutaImposta += altri.ritenutaImposta;
  contributo += altri.contributo;
  contributoPercipiente += altri.contributoPercipiente;
}

std::string_view causaleTipica(TipoPercipiente tipo, Casuale& caso) {
  switch (tipo) {
    case TipoPercipiente::Persona:
      return pesata(kPersone, caso);
    case TipoPercipiente::Ditta:
      return pesata(kDitte, caso);
    case TipoPercipiente::PersonaEstera:
      return pesata(kPersoneEstere, caso);
    case TipoPercipiente::DittaEstera:
      return pesata(kDitteEstere, caso);
  }
  return {};
}

ImportiConto inventaCompenso(std::string_view causale, bool residente, Casuale& caso) {
  ImportiConto c;
  // Many small fees and few large ones.
  c.onorario = caso.tra(15000, 200000);
  if (caso.percento(20)) c.onorario += caso.tra(0, 1500000);
  if (!residente) {
    if (caso.percento(25)) {
      c.regimeConvenzionale = c.onorario;  // exempt by treaty
      c.onorario = 0;
    }
    c.ritenutaImposta = percento(c.onorario, 30);
    return c;
  }
  if (causale == "N") {
    c.nonSoggette = c.onorario;  // sport: exempt up to a yearly sum
    c.onorario = caso.percento(40) ? caso.tra(10000, 300000) : 0;
    c.ritenutaImposta = percento(c.onorario, 23);
  } else if (unaDi(causale, {"Q", "R", "S", "T", "U"})) {
    c.quotaNonSoggetta = percento(c.onorario, caso.percento(30) ? 80 : 50);
    c.ritenutaAcconto = percento(c.onorario - c.quotaNonSoggetta, 23);
  } else if (causale == "V") {
    c.quotaNonSoggetta = percento(c.onorario, 22);
    c.ritenutaImposta = percento(c.onorario - c.quotaNonSoggetta, 23);
  } else if (causale == "W") {
    c.ritenutaAcconto = percento(c.onorario, 4);
  } else if (causale == "B") {
    c.nonSoggette = percento(c.onorario, 25);
    c.onorario -= c.nonSoggette;
    c.ritenutaAcconto = percento(c.onorario, 20);
  } else {
    c.ritenutaAcconto = percento(c.onorario, 20);
    if (unaDi(causale, {"M", "O"}) && caso.percento(35)) c.nonSoggette = caso.tra(500, 30000);
    if (causale == "M") {
      c.contributo = percento(c.onorario, 28);
      c.contributoPercipiente = (c.contributo + 1) / 3;
    }
  }
  return c;
}

}  // namespace cu
