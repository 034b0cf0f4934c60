#include <utf8proc.h>

#include "base/text.h"
#include "tabelle/lettura.h"

namespace cu::tabelle {
namespace {

// A typed apostrophe in place of an accent, and the characters that a copied text has for it.
bool apostrofo(char32_t c) {
  return c == U'\'' || c == U'`' || c == U'\u2019' || c == U'\u2018' || c == U'\u00B4';
}

bool senzaPeso(char32_t c) {
  if (c == U'_' || c == U'.') return true;
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(c))) {
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
    case UTF8PROC_CATEGORY_ZS:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
      return true;
    default:
      return false;
  }
}

// Decomposed, the compatible characters too, and without regard to case.
void aggiungiScomposto(std::u32string& testo, char32_t c) {
  // One letter, as it always was: fingerprints of headings are kept in files.
  if (c == U'\u00DF' || c == U'\u1E9E') {
    testo += U'\u00DF';
    return;
  }
  constexpr int kMassimo = 32;  // the longest decomposition has 18 characters
  utf8proc_int32_t pezzi[kMassimo];
  int classe = UTF8PROC_BOUNDCLASS_START;
  const auto opzioni =
      static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT | UTF8PROC_CASEFOLD);
  const utf8proc_ssize_t quanti =
      utf8proc_decompose_char(static_cast<utf8proc_int32_t>(c), pezzi, kMassimo, opzioni, &classe);
  for (utf8proc_ssize_t i = 0; i < quanti; ++i) testo += static_cast<char32_t>(pezzi[i]);
}

std::u32string ridotto(const std::u32string& testo) {
  std::u32string scomposto;
  for (const char32_t c : testo) {
    if (!apostrofo(c)) aggiungiScomposto(scomposto, c);
  }
  std::erase_if(scomposto, senzaPeso);
  return scomposto;
}

}  // namespace

std::string normalizza(std::string_view intestazione) {
  // What a decomposition or a folding brings forth may be reduced further: a wide apostrophe becomes a plain
  // one.
  constexpr int kVolte = 8;
  std::u32string testo;
  for (std::size_t i = 0; i < intestazione.size();) testo += nextCodePoint(intestazione, i);
  for (int volta = 0; volta < kVolte; ++volta) {
    const std::u32string esito = ridotto(testo);
    if (esito == testo) break;
    testo = esito;
  }
  std::string utf8;
  for (const char32_t c : testo) appendUtf8(utf8, c);
  return utf8;
}

}  // namespace cu::tabelle
