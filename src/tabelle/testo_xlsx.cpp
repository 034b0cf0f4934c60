#include "tabelle/testo_xlsx.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "base/text.h"

namespace cu::tabelle {
namespace {

constexpr std::size_t kLungaSequenza = 7;

// The unit that "_xHHHH_" at the head of the text means.
std::optional<std::uint16_t> sequenza(std::string_view testo) {
  if (testo.size() < kLungaSequenza || !testo.starts_with("_x") || testo[kLungaSequenza - 1] != '_') {
    return std::nullopt;
  }
  std::uint16_t unita = 0;
  const char* const fine = testo.data() + kLungaSequenza - 1;
  const auto letta = std::from_chars(testo.data() + 2, fine, unita, 16);
  if (letta.ec != std::errc() || letta.ptr != fine) return std::nullopt;
  return unita;
}

bool primaMeta(char32_t unita) { return unita >= 0xD800 && unita < 0xDC00; }
bool secondaMeta(char32_t unita) { return unita >= 0xDC00 && unita < 0xE000; }

}  // namespace

std::string senzaSequenze(const std::string& utf8) {
  if (utf8.find("_x") == std::string::npos) return utf8;
  const std::string_view scritto = utf8;
  std::string testo;
  for (std::size_t i = 0; i < scritto.size();) {
    const auto unita = sequenza(scritto.substr(i));
    if (!unita) {
      testo += scritto[i++];
      continue;
    }
    i += kLungaSequenza;
    if (!primaMeta(*unita)) {
      appendUtf8(testo, secondaMeta(*unita) ? U'?' : *unita);
      continue;
    }
    const auto altra = sequenza(scritto.substr(i));
    if (altra && secondaMeta(*altra)) {
      appendUtf8(testo, 0x10000U + ((*unita - 0xD800U) << 10U) + (*altra - 0xDC00U));
      i += kLungaSequenza;
    } else {
      testo += '?';
    }
  }
  return testo;
}

std::string leggiTestoXlsx(LettoreXml& xml, std::string_view elemento) {
  std::string testo;
  bool dentro = false;
  while (xml.avanza() && !xml.fine(elemento)) {
    if (xml.inizio("rPh")) {
      xml.salta();
    } else if (xml.inizio("t")) {
      dentro = true;
    } else if (xml.fine("t")) {
      dentro = false;
    } else if (dentro && xml.testo()) {
      testo += xml.caratteri();
    }
  }
  return senzaSequenze(testo);
}

}  // namespace cu::tabelle
