#pragma once

#include <CLI/CLI.hpp>
#include <ostream>
#include <string>
#include <vector>

namespace cu {

// What can be written where an option or an argument takes a value, by the name of its type: words written in
// lower case or digits ("1|2|3"), files by their extension ("FILE.csv|FILE.xlsx") or of any name ("FILE"),
// and the names of types whose values are known here ("TABELLA", "CAUSALE").
struct Proposta {
  std::vector<std::string> parole;
  std::vector<std::string> estensioni;
  bool cartelle = false;
  bool file = false;       // of any name
  bool indirizzo = false;  // of a database

  bool vuota() const { return parole.empty() && estensioni.empty() && !cartelle && !file && !indirizzo; }
};
Proposta propostaDi(const CLI::Option& opzione);

// The commands and options that a help shows.
std::vector<const CLI::App*> comandiMostrati(const CLI::App& comando);
std::vector<const CLI::Option*> opzioniMostrate(const CLI::App& comando);
// The arguments without a name, in their order.
std::vector<const CLI::Option*> argomentiMostrati(const CLI::App& comando);
// "--help" and "-h".
std::vector<std::string> nomiScritti(const CLI::Option& opzione);
bool prendeValore(const CLI::Option& opzione);

// The completion of a program's command line, as a script of the shell.
void scriviBash(const CLI::App& programma, std::ostream& uscita);
void scriviZsh(const CLI::App& programma, std::ostream& uscita);

}  // namespace cu
