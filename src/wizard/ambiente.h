#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/frontend.h"
#include "controls/print_control.h"
#include "controls/utility.h"
#include "data/database.h"
#include "host/clock.h"
#include "host/filesystem.h"
#include "host/modi.h"
#include "host/session.h"
#include "host/settings.h"
#include "modello/modello.h"

namespace cu {

// A telematic file that the wizard has just written.
struct FileCreato {
  std::string percorso;
  Comunicazione tipo = Comunicazione::Ordinaria;
  std::int32_t anno = 0;
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
  // Called with each file and a connection that is not traced; may be empty.
  std::function<void(const FileCreato& file, Connection& connessione)> dopoFile = {};
  const modello::Modello& modello = modello::kModello;  // the form of the files
};

}  // namespace cu
