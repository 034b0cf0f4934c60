#pragma once

#include <cstdint>

#include "schede/schede.h"
#include "schede/tabelle_suite.h"

// Records as rows of their tables, and back.
namespace cu::schede {

// The values of a row: what is empty is null.
Value testoONullo(const std::string& testo);
Value idONullo(std::int32_t id);
Value giornoONullo(Date giorno);
Value flag(bool valore);

Riga rigaAnagrafica(const SchedaAnagrafica& scheda);
SchedaAnagrafica anagraficaDa(const CellView* riga);
Riga rigaPercipiente(const SchedaPercipiente& scheda);
SchedaPercipiente percipienteDa(const CellView* riga, SchedaAnagrafica anagrafica);
Riga rigaCompenso(const SchedaCompenso& scheda);
SchedaCompenso compensoDa(const CellView* riga);

std::int32_t idIn(const CellView& cella);
std::int32_t idIn(const Riga& riga, std::size_t colonna);

}  // namespace cu::schede
