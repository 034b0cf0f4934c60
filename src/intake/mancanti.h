#pragma once

#include <string>
#include <vector>

#include "intake/piano.h"
#include "schede/luoghi.h"
#include "telematic/requisiti.h"

namespace cu::intake {

// A presence check before the telematic file that a record does not pass.
using Mancanza = const Requisito*;

std::vector<Mancanza> mancanze(const schede::SchedaAzienda& azienda, const schede::Luoghi& luoghi);
std::vector<Mancanza> mancanze(const schede::SchedaPercipiente& percipiente, const schede::Luoghi& luoghi);

}  // namespace cu::intake
