#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/date.h"
#include "base/decimal.h"

namespace cu::schede {

// A person or a firm. Places are ids; 0 is none. Luoghi has their names.
struct SchedaAnagrafica {
  std::int32_t id = 0;     // 0 as long as it is not written
  std::string anagrafica;  // surname, or the firm's name
  std::string nome;
  bool personaFisica = false;
  std::string codiceFiscale;
  std::string partitaIva;
  std::string email;
  std::string telefono;
  std::string fax;
  std::string cap;
  std::string indirizzo;
  std::string sesso;  // "M", "F" or ""
  Date nascita;       // day 0 for none
  std::int32_t idComuneNascita = 0;
  std::int32_t idNazionalita = 0;  // the country of birth
  std::int32_t idComune = 0;
  std::int32_t idNazione = 0;

  friend bool operator==(const SchedaAnagrafica&, const SchedaAnagrafica&) = default;
};

// "Rossi Mario", "Studio Prova S.r.l."
inline std::string nominativo(const SchedaAnagrafica& anagrafica) {
  return anagrafica.nome.empty() ? anagrafica.anagrafica : anagrafica.anagrafica + " " + anagrafica.nome;
}

struct SchedaPercipiente {
  std::int32_t idAzienda = 0;
  SchedaAnagrafica anagrafica;
  std::string codice;
  bool nonResidente = false;
  bool schumacker = false;
  std::string codiceFiscaleRappresentante;
  std::string codiceFiscaleEstero;
  std::string codiceEnpam;
  std::string codiceEnpapi;
  std::int32_t idCategoriaParticolare = 0;
  std::int32_t idEventoEccezionale = 0;
  std::int32_t idEnte = 0;
  std::int32_t idCategoriaEnte = 0;

  friend bool operator==(const SchedaPercipiente&, const SchedaPercipiente&) = default;
};

struct SchedaAzienda {
  std::int32_t id = 0;  // 0 as long as it is not written
  std::int32_t idFiliale = 0;
  SchedaAnagrafica sede;
  SchedaAnagrafica rappresentante;  // without a name where there is none
  std::int32_t idCarica = 0;
  std::string codiceFiscaleSocieta;
  std::int32_t idEventoEccezionale = 0;
  std::string codiceAttivita;
  std::string intermediario;
  std::int32_t impegno = 0;  // 1 prepared by the taxpayer, 2 by the intermediary; 0 for none
  Date dataImpegno;
  int primoAnno = 0;  // the years for which the activity is kept; a year without it gives no certificates
  int ultimoAnno = 0;

  friend bool operator==(const SchedaAzienda&, const SchedaAzienda&) = default;
};

// The amounts of a payment, in the order of the account's columns.
enum class Importo : std::uint8_t {
  Onorario,
  QuotaNonSoggetta,
  SommeNonSoggette,
  RegimeConvenzionale,
  RitenutaAcconto,
  RitenutaImposta,
  ContributoPrevidenziale,  // the payer's part and the payee's
  ContributoPercipiente,
};
inline constexpr std::size_t kImporti = 8;
using Importi = std::array<Decimal, kImporti>;
constexpr std::size_t posto(Importo importo) { return static_cast<std::size_t>(importo); }

struct SchedaCompenso {
  std::int32_t id = 0;  // 0 as long as it is not written
  std::int32_t idAzienda = 0;
  std::int32_t idAnagrafica = 0;
  std::int32_t idCausale = 0;
  Date pagamento;
  std::string numero;
  Date documento;  // day 0 for none
  Importi importi{};

  friend bool operator==(const SchedaCompenso&, const SchedaCompenso&) = default;
};

}  // namespace cu::schede
