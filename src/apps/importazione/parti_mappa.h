#pragma once

#include <string>
#include <string_view>

#include "intake/colonne.h"
#include "intake/mappatura.h"
#include "suite/lettore_toml.h"

// What the profiles for tables and those for invoices have in common.
namespace cu {

// Raises ErroreProfilo with the place.
toml::table interpretaMappa(std::string_view testo, const std::string& file);

// The column of the list that a key means; any other key is rejected.
const intake::Colonna& colonnaDi(const LettoreToml& chiavi, intake::Elenco elenco, std::string_view chiave);
// Where its values come from.
intake::Fonte leggiFonte(const LettoreToml& colonne, std::string_view chiave, const intake::Colonna& colonna);
void scriviFonte(toml::table& colonne, std::string_view nome, const intake::Fonte& fonte);

// The section "lettura": how a table is read.
void leggiModoDiLettura(const LettoreToml& chiavi, intake::Mappatura& mappatura);
toml::table scriviModoDiLettura(const intake::Mappatura& mappatura);

}  // namespace cu
