#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "lettura/esame.h"

namespace cu {

// A file's name may hold bytes that are no UTF-8: each becomes U+FFFD.
inline constexpr auto kNonUtf8 = nlohmann::ordered_json::error_handler_t::replace;

// What the reader finds, as docs/automazione.md describes it.
nlohmann::ordered_json jsonRilievo(const lettura::Rilievo& rilievo);
nlohmann::ordered_json jsonRilievi(const lettura::Rilievi& rilievi);  // the list
nlohmann::ordered_json jsonConteggi(
    const lettura::Rilievi& rilievi);  // by code, of the rules that were broken
nlohmann::ordered_json jsonCertificato(const lettura::Certificato& certificato);
// "ordinaria", "annullamento", "sostituzione" or the two together.
std::string tipoFornitura(bool annullamenti, bool sostituzioni);
nlohmann::ordered_json jsonFornitura(const lettura::Fornitura& fornitura, bool annullamenti,
                                     bool sostituzioni);

}  // namespace cu
