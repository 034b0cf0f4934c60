#include "tabelle/caratteri.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "tabelle/errore.h"

namespace cu::tabelle {
namespace {

using namespace std::string_view_literals;

constexpr std::pair<std::string_view, Caratteri> kNomi[] = {
    {"utf-8", Caratteri::Utf8},
    {"utf8", Caratteri::Utf8},
    {"utf-16", Caratteri::Utf16Le},
    {"utf-16le", Caratteri::Utf16Le},
    {"utf16", Caratteri::Utf16Le},
    {"utf-16be", Caratteri::Utf16Be},
    {"windows-1252", Caratteri::Windows1252},
    {"cp1252", Caratteri::Windows1252},
    {"ansi", Caratteri::Windows1252},
    {"iso-8859-1", Caratteri::Windows1252},  // whose other characters are control characters
    {"latin1", Caratteri::Windows1252},
};

// Returns the offset of the first byte that is not UTF-8.
std::optional<std::size_t> primoNonUtf8(std::string_view testo) {
  for (std::size_t i = 0; i < testo.size();) {
    if ((static_cast<unsigned char>(testo[i]) & 0x80U) == 0) {
      ++i;
      continue;
    }
    const std::size_t inizio = i;
    // A replacement character that is in the text is three bytes long, one made of an invalid byte is one.
    if (nextCodePoint(testo, i) == 0xFFFD && i - inizio < 3) return inizio;
  }
  return std::nullopt;
}

std::size_t rigaDi(std::string_view testo, std::size_t dove) {
  std::size_t riga = 1;
  for (std::size_t i = 0; i < dove; ++i) {
    if (testo[i] == '\n' || (testo[i] == '\r' && (i + 1 >= testo.size() || testo[i + 1] != '\n'))) ++riga;
  }
  return riga;
}

[[noreturn]] void nonIn(std::string_view nome, std::size_t riga, const std::string& caratteri) {
  throw ErroreTabella("F03", {std::string(nome), {}, riga, 0},
                      "Il testo ha byte che non sono " + caratteri +
                          ": salvare il file di nuovo o indicare il set di caratteri");
}

TestoDecodificato comeUtf8(std::string_view byte, std::string_view nome) {
  if (const auto dove = primoNonUtf8(byte)) nonIn(nome, rigaDi(byte, *dove), "UTF-8");
  return {std::string(byte), "utf-8"};
}

TestoDecodificato comeUtf16(std::string_view byte, bool prima, std::string_view nome) {
  TestoDecodificato esito{{}, prima ? "utf-16be"sv : "utf-16le"sv};
  esito.utf8.reserve(byte.size() / 2);
  const auto unita = [&](std::size_t i) {
    const auto a = static_cast<unsigned char>(byte[i]);
    const auto b = static_cast<unsigned char>(byte[i + 1]);
    return static_cast<char32_t>(prima ? (a << 8U) | b : (b << 8U) | a);
  };
  for (std::size_t i = 0; i < byte.size(); i += 2) {
    const char32_t primo = i + 1 < byte.size() ? unita(i) : 0xDC00;
    if (primo < 0xD800 || primo > 0xDFFF) {
      appendUtf8(esito.utf8, primo);
      continue;
    }
    const char32_t secondo = primo < 0xDC00 && i + 3 < byte.size() ? unita(i + 2) : 0;
    if (secondo < 0xDC00 || secondo > 0xDFFF) nonIn(nome, rigaDi(esito.utf8, esito.utf8.size()), "UTF-16");
    appendUtf8(esito.utf8, 0x10000 + ((primo - 0xD800) << 10U) + (secondo - 0xDC00));
    i += 2;
  }
  return esito;
}

}  // namespace

std::optional<Caratteri> caratteriDaNome(std::string_view nome) {
  const std::string minuscolo = lowerAscii(nome);
  for (const auto& [scritto, caratteri] : kNomi) {
    if (minuscolo == scritto) return caratteri;
  }
  return std::nullopt;
}

TestoDecodificato decodifica(std::string_view byte, Caratteri caratteri, std::string_view nome) {
  if (byte.starts_with("\xef\xbb\xbf"sv)) return comeUtf8(byte.substr(3), nome);
  if (byte.starts_with("\xff\xfe"sv)) return comeUtf16(byte.substr(2), false, nome);
  if (byte.starts_with("\xfe\xff"sv)) return comeUtf16(byte.substr(2), true, nome);
  switch (caratteri) {
    case Caratteri::Utf8:
      return comeUtf8(byte, nome);
    case Caratteri::Utf16Le:
    case Caratteri::Utf16Be:
      return comeUtf16(byte, caratteri == Caratteri::Utf16Be, nome);
    case Caratteri::Riconosciuti:
      if (!primoNonUtf8(byte)) return {std::string(byte), "utf-8"};
      break;
    case Caratteri::Windows1252:
      break;
  }
  return {da1252(byte), "windows-1252"};
}

}  // namespace cu::tabelle
