#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <optional>
#include <string>

#include "apps/comune/connessioni.h"
#include "base/date.h"

namespace cu {

// Sets the help's texts in Italian.
void parlaItaliano(CLI::App& programma);
// --version, which ends the program as --help does.
void aggiungiVersione(CLI::App& programma, const std::function<std::string()>& versione);
CLI::App& aggiungiComando(CLI::App& programma, const std::string& nome, const std::string& spiegazione);

// The command of a command line in words, such as "import payments"; empty without one.
std::string nomeComando(const CLI::App& programma);
// The option --log of every command, and its value in a command line; empty where it is absent.
void aggiungiRegistro(CLI::App& comando);
std::string fileRegistro(const CLI::App& programma);

// The options for a database's address and connection.
void aggiungiIndirizzo(CLI::App& comando, OpzioniDatabase& database);

// The word of the line that should be a command and is none, in a sentence.
std::optional<std::string> comandoIgnoto(const CLI::App& programma);

// The error in a command line, as one line.
std::string erroreUso(const CLI::App& programma, const CLI::ParseError& errore);

// Rejects an option with an empty value (such as a script's unset variable), which would otherwise count as
// absent. Raises CLI::ValidationError.
void rifiutaVuoti(const CLI::App& programma);

// Checks with an Italian message.
CLI::Validator fra(int minimo, int massimo);

// An option with a date, read as it is parsed, so that a wrong one is wrong usage.
CLI::Option* aggiungiData(CLI::App& comando, const std::string& nome, std::optional<Date>& dove,
                          const std::string& spiegazione);

}  // namespace cu
