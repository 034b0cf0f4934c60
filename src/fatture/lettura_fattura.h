#pragma once

#include <string>
#include <string_view>

#include "fatture/fattura.h"

namespace cu::fatture {

// Reads a file as electronic invoices come: XML or an envelope of it, recognised by content. Elements are
// read by their local names, whatever their namespaces, and no schema is required. Notifications of the
// exchange system and the metadata of its files are recognised. Raises nothing: a file that cannot be read
// gives a value of the kind Illeggibile that has its message (F01 to F05), and what is wrong with one
// document (C01, C02, V01, V03, V04, V05, V09) is among the messages of that document, the others being
// whole.
Letto leggiFattura(std::string_view byte, const std::string& nome, const Limiti& limiti = {});
// The same for one that could not even be opened.
Letto letturaFallita(const std::string& nome, const Rilievo& rilievo);

}  // namespace cu::fatture
