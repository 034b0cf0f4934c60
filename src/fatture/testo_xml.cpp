#include "fatture/testo_xml.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "fatture/errore.h"

namespace cu::fatture {
namespace {

using namespace std::string_view_literals;

// The line of the first byte that is not valid UTF-8; 0 for a valid text.
std::size_t rigaNonUtf8(std::string_view byte) {
  std::size_t riga = 1;
  for (std::size_t i = 0; i < byte.size();) {
    const std::size_t prima = i;
    const char32_t punto = nextCodePoint(byte, i);
    if (punto == 0xfffd && i == prima + 1) return riga;
    if (punto == U'\n') ++riga;
  }
  return 0;
}

// "windows-1252" of <?xml version="1.0" encoding="windows-1252"?>, in lower case; "" for none.
std::string codificaDichiarata(std::string_view byte) {
  constexpr std::string_view kChiave = "encoding";
  const std::string_view dichiarazione = byte.substr(0, std::min(byte.find("?>"), byte.size()));
  if (!byte.starts_with("<?xml")) return {};
  std::size_t i = dichiarazione.find(kChiave);
  if (i == std::string_view::npos) return {};
  i = dichiarazione.find_first_of("\"'", i);
  if (i == std::string_view::npos) return {};
  const std::size_t fine = dichiarazione.find(dichiarazione[i], i + 1);
  if (fine == std::string_view::npos) return {};
  return lowerAscii(dichiarazione.substr(i + 1, fine - i - 1));
}

// Two bytes a unit, two units for a character of the higher planes.
std::string daUtf16(std::string_view byte, bool altoPrima, const Posto& posto) {
  const auto danneggiato = [&posto] {
    throw ErroreFattura("F03", posto, "I caratteri del documento sono danneggiati");
  };
  const auto unita = [&](std::size_t dove) {
    const auto primo = static_cast<unsigned char>(byte[dove]);
    const auto secondo = static_cast<unsigned char>(byte[dove + 1]);
    return static_cast<char32_t>(altoPrima ? primo << 8U | secondo : secondo << 8U | primo);
  };
  if (byte.size() % 2 != 0) danneggiato();
  std::string testo;
  testo.reserve(byte.size() / 2);
  for (std::size_t i = 0; i < byte.size(); i += 2) {
    char32_t punto = unita(i);
    if (punto >= 0xD800 && punto < 0xE000) {
      const char32_t altra = punto < 0xDC00 && i + 2 < byte.size() ? unita(i + 2) : 0;
      if (altra < 0xDC00 || altra >= 0xE000) danneggiato();
      punto = 0x10000U + ((punto - 0xD800U) << 10U) + (altra - 0xDC00U);
      i += 2;
    }
    if (i > 0 || punto != 0xFEFF) appendUtf8(testo, punto);
  }
  return testo;
}

// Latin-9: eight characters differ from those of equal number.
std::string da885915(std::string_view byte) {
  constexpr auto kAltri = std::to_array<std::pair<unsigned char, char32_t>>({{0xA4, 0x20AC},
                                                                             {0xA6, 0x0160},
                                                                             {0xA8, 0x0161},
                                                                             {0xB4, 0x017D},
                                                                             {0xB8, 0x017E},
                                                                             {0xBC, 0x0152},
                                                                             {0xBD, 0x0153},
                                                                             {0xBE, 0x0178}});
  std::string testo;
  for (const char c : byte) {
    const auto numero = static_cast<unsigned char>(c);
    const auto* const altro =
        std::find_if(kAltri.begin(), kAltri.end(), [numero](const auto& uno) { return uno.first == numero; });
    appendUtf8(testo, altro == kAltri.end() ? numero : altro->second);
  }
  return testo;
}

}  // namespace

std::string testoXml(std::string_view byte, const Posto& posto) {
  if (byte.starts_with("\xff\xfe"sv) || byte.starts_with("<\0"sv)) return daUtf16(byte, false, posto);
  if (byte.starts_with("\xfe\xff"sv) || byte.starts_with("\0<"sv)) return daUtf16(byte, true, posto);
  if (byte.starts_with("\xef\xbb\xbf"sv)) byte.remove_prefix(3);
  while (!byte.empty() && byte.front() != '<') byte.remove_prefix(1);
  const std::size_t riga = rigaNonUtf8(byte);
  if (riga == 0) return std::string(byte);
  const std::string codifica = codificaDichiarata(byte);
  constexpr auto kConosciute = std::to_array<std::string_view>(
      {"windows-1252", "cp1252", "iso-8859-1", "latin1", "iso-8859-15", "us-ascii"});
  if (std::find(kConosciute.begin(), kConosciute.end(), codifica) == kConosciute.end()) {
    Posto dove = posto;
    dove.riga = riga;
    throw ErroreFattura("F03", dove,
                        "Il testo non è in " + (codifica.empty() ? std::string("UTF-8") : codifica) +
                            ", come il documento dichiara");
  }
  // What is declared as one of the smaller sets has the characters of Windows-1252 when it has any others.
  return codifica == "iso-8859-15" ? da885915(byte) : da1252(byte);
}

}  // namespace cu::fatture
