#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

// The columns of the tables that can be imported, each of its facts once: reading, templates, export and
// reports derive from here. docs/importazione.md describes them.
namespace cu::intake {

// What a table lists.
enum class Elenco : std::uint8_t { Aziende, Percipienti, Compensi };

enum class ColonnaAzienda : std::uint8_t {
  CodiceFiscale,
  PartitaIva,
  Denominazione,
  Nome,
  Indirizzo,
  Cap,
  Comune,
  Provincia,
  Telefono,
  Fax,
  Email,
  CodiceAttivita,
  RappresentanteCodiceFiscale,
  RappresentanteCognome,
  RappresentanteNome,
  RappresentanteCarica,
  CodiceFiscaleSocieta,
  EventoEccezionale,
  IntermediarioCodiceFiscale,
  Impegno,
  DataImpegno,
  CodiciPropri,
};

enum class ColonnaPercipiente : std::uint8_t {
  Codice,
  CodiceFiscale,
  PartitaIva,
  Cognome,
  Nome,
  PersonaFisica,
  Sesso,
  DataNascita,
  ComuneNascita,
  ProvinciaNascita,
  NazioneNascita,
  Indirizzo,
  Cap,
  Comune,
  Provincia,
  Nazione,
  Email,
  Telefono,
  Fax,
  NonResidente,
  Schumacker,
  CodiceFiscaleEstero,
  CodiceFiscaleRappresentante,
  CategoriaParticolare,
  EventoEccezionale,
  EntePrevidenziale,
  CodiceFiscaleEnte,
  CodiceEnte,
  CategoriaEnte,
  CodiceAziendaENPAM,
  CodiceAziendaENPAPI,
  CodiciPropri,
};

enum class ColonnaCompenso : std::uint8_t {
  CodicePercipiente,
  CodiceFiscale,
  PartitaIva,
  Causale,
  DataPagamento,
  NumeroDocumento,
  DataDocumento,
  Onorario,
  QuotaNonSoggetta,
  PercentualeImponibile,
  SommeNonSoggette,
  SommeRegimeConvenzionale,
  RitenutaAcconto,
  RitenutaImposta,
  AliquotaRitenuta,
  ContributoPrevidenziale,
  ContributoDitta,
  ContributoPercipiente,
  CodiceNonSoggette,
  Lordo,
  Imponibile,
  Netto,
  Tipo,
  Riferimento,
};

// What a cell of the column is, and the value that a row has for it:
enum class TipoColonna : std::uint8_t {
  Testo,          // text
  Codice,         // text, upper case: a code of a list
  CodiceFiscale,  // text, upper case, without blanks, full stops and hyphens
  PartitaIva,     // text, likewise, without "IT", padded to 11 digits
  Cap,            // text, padded to 5 digits
  Sesso,          // text, "M" or "F"
  Importo,        // decimal with two places
  Percentuale,    // decimal from 0 to 100
  Data,           // date
  Logico,         // integer, 0 or 1
};

// Whether a table has to have the column, and a row a value for it.
enum class Obbligo : std::uint8_t {
  Nessuno,
  Sempre,
  UnaDelleChiavi,  // one of those with this mark at least
  UnoDegliImporti,
  SeNonPersona,  // companies: unless it is a natural person
  SeItaliano,    // payees: unless the row is foreign or gives a VAT number
};

struct Colonna {
  std::uint8_t indice = 0;  // its rank in the enumeration
  std::string_view nome;
  std::array<std::string_view, 3> altriNomi{};  // "" for none
  TipoColonna tipo = TipoColonna::Testo;
  Obbligo obbligo = Obbligo::Nessuno;
  bool somma = false;          // several columns of the file add up
  std::string_view esempio{};  // in the template's row
  std::string_view ammessi{};  // what it accepts, in words
  bool rara = false;           // neither in the template nor, without values, in an export
};

// Of a text.
inline constexpr std::size_t kMassimoCaratteri = 255;

// The columns of a kind of table in the order of the enumeration.
std::span<const Colonna> colonne(Elenco elenco);
inline const Colonna& colonna(ColonnaAzienda c) {
  return colonne(Elenco::Aziende)[static_cast<std::size_t>(c)];
}
inline const Colonna& colonna(ColonnaPercipiente c) {
  return colonne(Elenco::Percipienti)[static_cast<std::size_t>(c)];
}
inline const Colonna& colonna(ColonnaCompenso c) {
  return colonne(Elenco::Compensi)[static_cast<std::size_t>(c)];
}

// By name or alias, compared without case, accents, blanks, _ and full stops.
std::optional<std::uint8_t> cercaColonna(Elenco elenco, std::string_view intestazione);

// "aziende", "percipienti", "compensi"; and "companies", "payees", "payments".
std::string_view nome(Elenco elenco);
std::string_view nomeInglese(Elenco elenco);
std::optional<Elenco> elencoDaNome(std::string_view nome);
std::optional<Elenco> elencoDaNomeInglese(std::string_view nome);

}  // namespace cu::intake
