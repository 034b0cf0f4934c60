#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "fatture/fattura.h"

namespace cu::fatture {

// A document while it is read. The first two parties are the file's, of which each document gets a copy.
struct InLettura {
  Fattura testata;
  Fattura corpo;
  bool nelCorpo = false;
  Posto posto;  // of the element that is being read

  Fattura& corrente() { return nelCorpo ? corpo : testata; }
  void rileva(std::string codice, std::string testo, bool avviso = false);
};

// The elements of an invoice that are read, by their path below the root without prefixes of namespaces.
// Each function returns false for a path that is not among them.

// An element that holds others and may occur more than once, at its beginning. Raises ErroreFattura F05.
bool apriGruppo(InLettura& lettura, std::string_view percorso, const Limiti& limiti);
// An element with a text: whether it is read, and reading it. What is not as it has to be becomes a message.
bool campoLetto(std::string_view percorso);
void metti(InLettura& lettura, std::string_view percorso, std::string_view testo);

// What is missing in a document whose elements have all been read, as messages.
void verificaDocumento(InLettura& lettura);

}  // namespace cu::fatture
