#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "lettura/esame.h"
#include "reporting/file_form.h"

namespace cu::strumenti {

// The form of a certificate as the file has it. `sostituto` gives the signer and the intermediary.
reporting::FormOfFile moduloDi(const lettura::Certificato& certificato, const lettura::Sostituto& sostituto,
                               std::int32_t anno);
std::unique_ptr<reporting::PreviewPages> disegna(const lettura::Certificato& certificato,
                                                 const lettura::Sostituto& sostituto, std::int32_t anno,
                                                 std::vector<reporting::FormPlace>* posti = nullptr);

// A cell with its place, for a table.
struct CasellaMostrata {
  int modulo = 0;  // 0 for record D
  std::string codice;
  std::string nome;  // of the box; "" where the form of the year does not have it
  std::string testo;
};
std::vector<CasellaMostrata> caselleDi(const lettura::Certificato& certificato, std::int32_t anno,
                                       const modello::Modello& modello = modello::kModello);
// "AU001004" is "4 - Ammontare lordo corrisposto".
std::string nomeCasella(const std::string& codice, std::int32_t anno,
                        const modello::Modello& modello = modello::kModello);

}  // namespace cu::strumenti
