#pragma once

#include <string>

#include "base/error.h"
#include "tabelle/tabella.h"

namespace cu::tabelle {

// A file that cannot be read or written as a table:
//   F01  empty, or without the row of headings
//   F02  of a kind that is not read, or without the sheet
//   F03  damaged, encrypted, or not in the form of its kind
//   F04  with a document type definition
//   F05  beyond a limit
// The description is a line with place and code: 'compensi.csv, riga 14: ... (F03).'
class ErroreTabella : public Error {
 public:
  // `testo` is a sentence without its full stop.
  ErroreTabella(std::string codice, Posto posto, std::string testo);

  const std::string& codice() const { return codice_; }
  const Posto& posto() const { return posto_; }
  const std::string& testo() const { return testo_; }

 private:
  std::string codice_;
  Posto posto_;
  std::string testo_;
};

}  // namespace cu::tabelle
