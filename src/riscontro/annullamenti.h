#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/date.h"
#include "riscontro/registro.h"

namespace cu::riscontro {

// A supply of annulments, made from what is on record alone: the accounts may not have the certificates any
// more. Sender and agent are those of the supply that is given.
struct FornituraAnnullamenti {
  Invio invio;                          // recordA and recordB of 1898 characters
  std::vector<Registrata> certificate;  // as accepted, with their cells
  Date firma;
};

// The lines of the file, each of 1898 bytes in Windows-1252 and without its end.
std::vector<std::string> righeAnnullamenti(const FornituraAnnullamenti& fornitura);

}  // namespace cu::riscontro
