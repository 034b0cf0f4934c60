#pragma once

#include <string_view>

#include "controls/frontend.h"
#include "controls/print_control.h"
#include "controls/utility.h"
#include "host/clock.h"
#include "host/filesystem.h"
#include "host/session.h"
#include "host/settings.h"

namespace cu {

// The program's own name, and its title where the session has none.
inline constexpr std::string_view kNomeProgramma = "Autocomposizione";

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
