#pragma once

#include "host/clock.h"
#include "host/conversioni.h"
#include "host/filesystem.h"
#include "host/progress.h"
#include "host/session.h"
#include "modello/modello.h"

namespace cu::fornitura {

// The surroundings of the operations; all of them outlive the operations.
struct Intorno {
  Ambito ambito;
  HostFactory& factory;
  const Conversioni& utilita;
  FileSystem& files;
  const Clock& clock;
  ProgressSink& avanzamento;
  TextViewer& visore;
  const modello::Modello& modello = modello::kModello;  // the form of the files
};

}  // namespace cu::fornitura
