#pragma once

namespace cu {

class Clock;
class FileSystem;
class FrontEnd;
struct Globali;
class UtilitaSuite;

// What the making of a file needs of its surroundings; all outlive it.
struct AmbienteTelematico {
  const Globali& globali;
  UtilitaSuite& utilita;
  FileSystem& files;
  FrontEnd& frontEnd;
  const Clock& clock;
};

}  // namespace cu
