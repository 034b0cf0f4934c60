#pragma once

#include <utility>

#include "base/error.h"
#include "fatture/fattura.h"

namespace cu::fatture {

// A file that cannot be read as a document: F01 empty, F02 of a kind that is not read, F03 damaged, F04 with
// a document type definition, F05 beyond a limit.
class ErroreFattura : public Error {
 public:
  explicit ErroreFattura(Rilievo rilievo)
      : Error(kErrorBadFile, detto(rilievo)), rilievo_(std::move(rilievo)) {}
  ErroreFattura(std::string codice, Posto posto, std::string testo)
      : ErroreFattura(Rilievo{std::move(codice), std::move(posto), std::move(testo), false}) {}

  const Rilievo& rilievo() const { return rilievo_; }

 private:
  Rilievo rilievo_;
};

}  // namespace cu::fatture
