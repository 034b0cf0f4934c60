#pragma once

#include "controls/frontend.h"
#include "controls/print_control.h"
#include "controls/utility.h"
#include "host/clock.h"
#include "host/filesystem.h"
#include "host/session.h"
#include "host/settings.h"

namespace cu {

// The surroundings of the wizard, passed by the program that builds it.
struct Ambiente {
  FrontEnd& frontEnd;
  HostFactory& factory;
  UtilitaSuite& utilita;
  Settings& settings;
  Clock& clock;
  FileSystem& files;
  const ReportCatalogue& reports;
};

}  // namespace cu
