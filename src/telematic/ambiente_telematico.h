#pragma once

#include <cstdint>
#include <string>

#include "modello/modello.h"

namespace cu {

class Clock;
class Conversioni;
class DatabaseHost;
class FileSystem;
class ProgressSink;
class TextViewer;

// The surroundings required to make a file, all of which outlive the generation, and its rows.
struct AmbienteTelematico {
  DatabaseHost& database;
  const Conversioni& utilita;
  FileSystem& files;
  ProgressSink& avanzamento;
  TextViewer& visore;
  const Clock& clock;
  std::string tabella;    // the work table
  std::int32_t anno = 0;  // tax year
  const modello::Modello& modello = modello::kModello;
};

}  // namespace cu
