#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace cu {

// Whom a presence check before the telematic file concerns.
enum class SoggettoRequisito : std::uint8_t {
  Ogni,
  PersonaFisica,
  NonPersonaFisica,
  NatoInItalia,
  NonResidente
};

// A datum of the company or of a payee without which no file is made.
struct Requisito {
  int numero = 0;  // of the check: 1 to 3 are those of the screen
  std::string_view colonna;
  SoggettoRequisito soggetto = SoggettoRequisito::Ogni;
  std::string_view campo;
  std::string_view messaggio;
  std::string_view denominazione;  // the column with the name of the row's subject
};

// In place of the company's name the log shows the blank field itself, except in the first row.
inline constexpr std::array<Requisito, 8> kRequisitiAzienda = {{
    {4, "CodFisc", SoggettoRequisito::Ogni, "Codice fiscale", "Codice fiscale o partita IVA non presente",
     "AnagAz"},
    {5, "ComuneAz", SoggettoRequisito::Ogni, "Comune sede", "Comune sede non presente", "ComuneAz"},
    {6, "SiglaProvinciaAz", SoggettoRequisito::Ogni, "Provincia sede", "Provincia sede non presente",
     "SiglaProvinciaAz"},
    {7, "NomeAz", SoggettoRequisito::PersonaFisica, "Nome azienda", "Nome azienda non presente", "NomeAz"},
    {8, "CodiceFiscaleRapp", SoggettoRequisito::NonPersonaFisica, "Codice fiscale rappresentante",
     "Codice fiscale del rappresentante non presente", "CodiceFiscaleRapp"},
    {9, "CodiceCarica", SoggettoRequisito::NonPersonaFisica, "Codice carica rappresentante",
     "Codice carica del rappresentante non presente", "CodiceCarica"},
    {10, "AnagraficaRapp", SoggettoRequisito::NonPersonaFisica, "Cognome rappresentante",
     "Cognome del rappresentante non presente", "AnagraficaRapp"},
    {11, "NomeRapp", SoggettoRequisito::NonPersonaFisica, "Nome rappresentante",
     "Nome del rappresentante non presente", "NomeRapp"},
}};

inline constexpr std::array<Requisito, 7> kRequisitiPercipiente = {{
    {12, "CodiceFiscale", SoggettoRequisito::Ogni, "Codice fiscale", "Codice fiscale non presente",
     "AnagPercipiente"},
    {13, "Anagrafica", SoggettoRequisito::Ogni, "Cognome", "Cognome non presente", "AnagPercipiente"},
    {14, "Nome", SoggettoRequisito::PersonaFisica, "Nome", "Nome non presente", "AnagPercipiente"},
    {15, "Sesso", SoggettoRequisito::PersonaFisica, "Sesso", "Sesso non presente", "AnagPercipiente"},
    {16, "DataNascita", SoggettoRequisito::PersonaFisica, "Data di nascita", "Data di nascita non presente",
     "AnagPercipiente"},
    {17, "ComuneNascita", SoggettoRequisito::NatoInItalia, "Comune/Nazione di nascita",
     "Comune/Nazione di nascita non presente", "AnagPercipiente"},
    {18, "PrefissoInternazionaleRes", SoggettoRequisito::NonResidente, "Codice nazione residenza",
     "Codice nazione di residenza non presente", "AnagPercipiente"},
}};

}  // namespace cu
