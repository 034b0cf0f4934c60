#pragma once

#include <cstddef>
#include <string>

namespace cu::fatture::prova {

// Signs with a key that is made for it and thrown away. In DER, or with indefinite lengths and segments
// (BER).
std::string firmato(const std::string& contenuto, bool indefinita = false);
// A signature without its content.
std::string soloFirma(const std::string& contenuto);
std::string inPem(const std::string& busta);
std::string base64(const std::string& byte, std::size_t colonne = 0, const std::string& aCapo = "\n");
}  // namespace cu::fatture::prova
