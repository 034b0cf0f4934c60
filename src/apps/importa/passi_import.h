#pragma once

#include "apps/importa/comandi_importa.h"
#include "intake/mappatura.h"
#include "suite/traccia.h"

// What imports of tables and of invoices have in common.
namespace cu {

// A report that cannot be written is reported before anything is. Raises UsoSbagliato.
void verificaResoconto(const OpzioniImport& opzioni);

// What the command line says about reading takes precedence over a profile.
void applicaOpzioni(const OpzioniImport& opzioni, intake::Mappatura& mappatura);

// UsoSbagliato for a company that the database does not have.
intake::RichiestaPiano richiestaDi(const OpzioniImport& opzioni, Connection& connessione, Date oggi);

// Tests or applies a plan, says what became of it and writes the report; returns the exit code.
int concludi(const OpzioniImport& opzioni, DatabaseSuite& database, const intake::Piano& piano);

}  // namespace cu
