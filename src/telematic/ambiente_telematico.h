#pragma once

#include <cstdint>
#include <string>

namespace cu {

class Clock;
class Conversioni;
class DatabaseHost;
class FileSystem;
class ProgressSink;
class TextViewer;

// What the making of a file needs of its surroundings, all of which outlive it, and the rows that it takes.
struct AmbienteTelematico {
  DatabaseHost& database;
  const Conversioni& utilita;
  FileSystem& files;
  ProgressSink& avanzamento;
  TextViewer& visore;
  const Clock& clock;
  std::string tabella;    // the work table
  std::int32_t anno = 0;  // tax year
};

}  // namespace cu
