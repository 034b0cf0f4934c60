#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fatture/fattura.h"

namespace cu::fatture {

enum class Forma : std::uint8_t { Vuota, Xml, Zip, Busta, Altra };

// Recognises by its content what a file is, never by its name. Busta: a signed envelope in DER or BER, or one
// or more of them in base64 or PEM, or an XML text in base64.
Forma forma(std::string_view byte);

struct BustaAperta {
  std::string contenuto;  // begins as an XML text does
  int strati = 0;         // envelopes and encodings taken away; 0 for a plain text
  std::vector<Rilievo> rilievi;
};

// Takes away the envelopes of a document: CAdES in DER, BER, base64 or PEM, one within another. Signatures
// are not verified: the content of an accounting document is wanted, and certificates expire within years.
// Where an envelope is damaged but the document within is whole, it is cut out, with a warning (F03). Raises
// ErroreFattura: F01, F02, F03, F05.
BustaAperta apriBusta(std::string_view byte, const Posto& posto, const Limiti& limiti = {});

// 64 digits.
std::string sha256(std::string_view byte);

}  // namespace cu::fatture
