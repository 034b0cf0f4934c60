#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace cu {

// The help's own words in Italian.
void parlaItaliano(CLI::App& programma);
CLI::App& aggiungiComando(CLI::App& programma, const std::string& nome, const std::string& spiegazione);

// What is wrong with a command line, on one line.
std::string erroreUso(const CLI::App& programma, const CLI::ParseError& errore);

// An option given without anything in it, as a script does whose variable is empty, is not taken for one that
// was not given. CLI::ValidationError.
void rifiutaVuoti(const CLI::App& programma);

// Checks with an Italian message.
CLI::Validator fra(int minimo, int massimo);

}  // namespace cu
