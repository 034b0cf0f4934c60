#pragma once

#include <cstdint>
#include <string>

#include "data/database.h"
#include "host/clock.h"
#include "host/modi.h"
#include "host/progress.h"
#include "lettura/rilievi.h"
#include "modello/modello.h"

namespace cu {

// What follows a telematic file that was just written: it is read again and checked, and kept on record where
// the database has the tables for that.
struct FileAppenaScritto {
  std::string percorso;
  Comunicazione tipo = Comunicazione::Ordinaria;
  std::int32_t anno = 0;  // of the payments
  std::int32_t idAzienda = 0;
  ProgressSink* avanzamento = nullptr;
  const modello::Modello& modello = modello::kModello;
};

struct DopoScrittura {
  lettura::Rilievi rilievi;
  bool letto = false;  // whether the file could be read again to its end
  bool registrato = false;
  std::string guasto;  // why it could not be read or kept; "" where nothing went wrong
};

// The connection is one that is not traced. Never raises: the file stays, whatever happens here.
DopoScrittura dopoScrittura(Connection& connessione, const Clock& orologio, const FileAppenaScritto& file);

}  // namespace cu
