#pragma once

#include <string>

namespace cu {

// The locks of an embedded database belong to the process, not to the connection: closing any other
// descriptor of its file releases them all, and with them another program's protection from this one. No file
// of a database that this process uses is therefore opened in any other way than by the engine.

// Whether a path leads, also through a link, to the database's file or to one of the engine's files beside
// it, or has the name that one of these would have. Opens nothing.
bool belongsToDatabase(const std::string& path, const std::string& database);

// The same for every database that this process has opened or was told of, until it ends.
bool belongsToOwnDatabase(const std::string& path);

// The name of the file that a path leads to, also through a link that dangles: the engine keeps its files
// beside that one.
std::string realFileName(const std::string& path);

// Tells of a database that is going to be used. Every connection does it for its own.
void rememberOwnDatabase(const std::string& database);

}  // namespace cu
