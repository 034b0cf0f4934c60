#pragma once

#include "host/clock.h"
#include "host/conversioni.h"
#include "host/filesystem.h"
#include "host/progress.h"
#include "host/session.h"

namespace cu::fornitura {

// What the operations need of their surroundings; all of it outlives them.
struct Intorno {
  Ambito ambito;
  HostFactory& factory;
  const Conversioni& utilita;
  FileSystem& files;
  const Clock& clock;
  ProgressSink& avanzamento;
  TextViewer& visore;
};

}  // namespace cu::fornitura
