#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "data/database.h"
#include "host/conversioni.h"
#include "lettura/certificato.h"
#include "modello/modello.h"

namespace cu::riscontro {

// Whose accounts, and of which year.
struct Esercizio {
  std::int32_t idAzienda = 0;
  std::int32_t anno = 0;
  const modello::Modello& modello = modello::kModello;  // the form of its file
};

// A certificate as the accounts give it: cells and modules as a file of that year would hold them, without
// the signature. The number is its place in the order of the file; line, protocol and progressive are empty.
struct Conto {
  lettura::Certificato certificato;
  std::int64_t idAnagrafica = 0;
  std::int64_t idCausale = 0;
  std::string protocollo;  // of what a correction of it would refer to, as the accounts have it
  std::string progressivo;
};

// Reads all accounts of the year in the order of the file. Nothing is written, and the work table is not
// touched. Errors of the database rise as they are.
void leggiConti(Connection& connessione, const Esercizio& esercizio, const Conversioni& utilita,
                const std::function<void(Conto)>& ricevi);

// The fiscal code of a company, as its file and the file's name have it.
std::string codiceFiscaleAzienda(Connection& connessione, std::int32_t idAzienda);

}  // namespace cu::riscontro
