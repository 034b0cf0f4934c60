#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/frontend.h"
#include "controls/print_control.h"
#include "controls/utility.h"
#include "host/clock.h"
#include "host/filesystem.h"
#include "host/modi.h"
#include "host/session.h"
#include "host/settings.h"

namespace cu {

// A telematic file that was just written.
struct FileFatto {
  std::string percorso;
  Comunicazione tipo = Comunicazione::Ordinaria;
  std::int32_t anno = 0;  // of the payments
  std::int32_t idAzienda = 0;
  DatabaseHost& database;
};

// The surroundings of the wizard, passed by the program that builds it.
struct Ambiente {
  FrontEnd& frontEnd;
  HostFactory& factory;
  UtilitaSuite& utilita;
  Settings& settings;
  Clock& clock;
  FileSystem& files;
  const ReportCatalogue& reports;
  // Reads the file again, and returns a sentence on what was found in it, or "". Never raises. May be empty.
  std::function<std::string(const FileFatto& file)> dopoIlFile = {};
};

}  // namespace cu
