#pragma once

#include <string>

#include "host/clock.h"
#include "sqlite/database_copy.h"
#include "suite/profilo.h"

// Copies of an embedded database and their way back, for the commands and the windows. A server has tools of
// its own: nothing here is for its databases, and DatabaseError says so.
namespace cu {

// Copies the database into a file, which is one of nobody else unless it may be replaced. Raises as
// backUpDatabase does.
DatabaseCopy copiaDatabase(const Profilo::Database& database, const std::string& file, bool sostituisci,
                           const CopyObserver& avanzamento = {});

// Whether a file is a database of this program, of a version that it knows; otherwise DatabaseError. The
// engine may write in it: a copy of the copy is examined.
void esaminaCopia(const std::string& file);

// Puts a copy in the place of the database, which may be missing; the former one stays beside it as `tenuto`.
// Returns whether there was one. Raises as restoreDatabase does.
bool ripristinaDatabase(const Profilo::Database& database, const std::string& copia,
                        const std::string& tenuto, const CopyObserver& avanzamento = {});

// Names that no file has: of a new copy in a folder, and of the database that a copy replaces, beside it.
// They begin with the database's name, and have the moment: "studio-2027-03-05-103000.db".
std::string nomeCopia(const std::string& database, const std::string& cartella, const Clock& orologio);
std::string nomeTenuto(const std::string& database, const Clock& orologio);

// "41 tabelle, 12.345 righe, 3,2 MB"
std::string dettaCopia(const DatabaseCopy& copia);

}  // namespace cu
