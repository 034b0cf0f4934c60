#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace cu {

// The help's own words in Italian.
void parlaItaliano(CLI::App& programma);
CLI::App& aggiungiComando(CLI::App& programma, const std::string& nome, const std::string& spiegazione);

// What is wrong with a command line, on one line.
std::string erroreUso(const CLI::ParseError& errore);

// Checks with an Italian message.
CLI::Validator fra(int minimo, int massimo);

}  // namespace cu
