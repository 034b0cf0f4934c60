#pragma once

#include <string>
#include <string_view>

namespace cu {

// What a file is by its first bytes: "un documento PDF", "un'immagine PNG"; empty where they may be a text.
std::string naturaDi(std::string_view inizio);
inline constexpr std::size_t kInizioFile = 512;

// Whether the bytes may begin a telematic file: its first record has A and fourteen blanks.
bool cominciaComeRecordA(std::string_view inizio);

}  // namespace cu
