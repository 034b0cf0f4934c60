#pragma once

#include <cstdint>
#include <string>

#include "shell/context/filtri.h"

namespace cu {

class UtilitaSuite;

// The statements of the work table, each as it is sent.

std::string fnNomeTabellaLavoro(std::int32_t idUtente);
std::string fnEliminaTabella(const std::string& nome);
std::string fnCreaTabella(const std::string& nome);

// The SELECT that fills it, with the filter of the first step.
std::string fnSelectCompensi(const Filtri& filtri, std::int32_t idAzienda, const UtilitaSuite& utilita);

}  // namespace cu
