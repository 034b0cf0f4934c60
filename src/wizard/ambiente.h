#pragma once

#include "controls/frontend.h"
#include "controls/print_control.h"
#include "controls/utility.h"
#include "host/clock.h"
#include "host/filesystem.h"
#include "host/modi.h"
#include "host/session.h"
#include "host/settings.h"

namespace cu {

// Everything around the wizard, handed over by the program that builds it.
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
