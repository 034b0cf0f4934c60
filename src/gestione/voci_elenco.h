#pragma once

#include <string>
#include <string_view>

#include "controls/listbox.h"
#include "controls/picker.h"
#include "controls/selector.h"
#include "gestione/contesto.h"

namespace cu {

// The entries of a list of the database with an empty one before them: id and text in the first two columns
// of the query. `lista` names the program's own list with what the codes mean; "" for none.
void riempiVoci(ListBox& elenco, Connection& connessione, std::string_view domanda,
                std::string_view lista = {});
void riempiNazioni(ListBox& elenco, Connection& connessione);
void riempiEventi(ListBox& elenco, Connection& connessione);
void riempiCategorie(ListBox& elenco, Connection& connessione);
void riempiEnti(ListBox& elenco, Connection& connessione);
void riempiCategorieEnti(ListBox& elenco, Connection& connessione);

// The id chosen, and back; 0 for the empty entry.
std::int32_t idScelto(const ListBox& elenco);
void scegliId(ListBox& elenco, std::int32_t id);
std::int32_t idScelto(const Picker& comune);

void collegaComune(Picker& comune, const ContestoGestione& contesto);
void collegaCarica(Selector& carica, Connection& connessione);
void collegaCausale(Selector& causale, Connection& connessione);
void collegaPercipiente(Selector& percipiente, Connection& connessione, std::int32_t idAzienda);

}  // namespace cu
