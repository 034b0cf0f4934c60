#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/importazione/mappa_toml.h"

namespace cu {

// The fingerprint of a heading: the SHA-256 of its names as they are compared, joined by line ends.
std::string improntaIntestazione(const tabelle::Tabella& tabella);

// The folder of a person's mapping profiles, below the one for configuration; it need not exist.
std::string cartellaMappe();
// The files of the profiles in a folder, sorted; none for a folder that is not there.
std::vector<std::string> profiliDi(const std::string& cartella);

struct MappaTrovata {
  std::string file;
  Mappa mappa;
};
// The profile of the folder that has the fingerprint of the bytes' heading, in the order of the names. Each
// profile says itself where the heading is. nullopt without one; ErroreProfilo for one that is meant and
// wrong.
std::optional<MappaTrovata> cercaMappa(const std::string& cartella, intake::Elenco elenco,
                                       std::string_view byte, const std::string& nome);

// Writes a profile into the folder, which is created, under a name of its own that it returns; one with the
// same fingerprint is replaced.
std::string salvaMappa(const std::string& cartella, const Mappa& mappa);

}  // namespace cu
