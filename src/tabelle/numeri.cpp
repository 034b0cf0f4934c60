#include "tabelle/numeri.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "base/ascii.h"
#include "base/date.h"
#include "base/text.h"

namespace cu::tabelle {
namespace {

constexpr int kCifre = 15;
constexpr std::int64_t kSecondi = 86400;

std::optional<double> numeroDi(std::string_view scritto) {
  scritto = trim(scritto);
  if (scritto.starts_with('+')) scritto.remove_prefix(1);
  double valore = 0;
  const auto [fine, errore] = std::from_chars(scritto.data(), scritto.data() + scritto.size(), valore);
  if (errore != std::errc() || fine != scritto.data() + scritto.size() || !std::isfinite(valore)) {
    return std::nullopt;
  }
  return valore;
}

bool soloCifre(std::string_view testo) {
  for (const char c : testo) {
    if (!isDigit(c)) return false;
  }
  return !testo.empty();
}

// Digits with the point after the first `intere` of them, which may be outside.
std::string conPunto(std::string cifre, int intere) {
  if (intere <= 0) return "0." + std::string(static_cast<std::size_t>(-intere), '0') + cifre;
  const auto posto = static_cast<std::size_t>(intere);
  if (posto >= cifre.size()) return cifre + std::string(posto - cifre.size(), '0');
  return cifre.insert(posto, 1, '.');
}

// The seconds since the first moment of day 0, rounded; nullopt beyond the year 9999.
std::optional<std::int64_t> secondiDi(std::string_view scritto) {
  const auto valore = numeroDi(scritto);
  if (!valore || *valore < 0 || *valore >= Date::kLast + 1) return std::nullopt;
  return std::llround(*valore * static_cast<double>(kSecondi));
}

std::string dueCifre(std::int64_t numero) { return (numero < 10 ? "0" : "") + fromInteger(numero); }

std::string ora(std::int64_t secondi) {
  return dueCifre(secondi / 3600) + ':' + dueCifre(secondi / 60 % 60) + ':' + dueCifre(secondi % 60);
}

// The first section of a format's code, in lower case, without what is shown as it is written. A count of
// hours, minutes or seconds in brackets is kept.
std::string soloSimboli(std::string_view codice) {
  std::string simboli;
  for (std::size_t i = 0; i < codice.size() && codice[i] != ';'; ++i) {
    const char c = codice[i];
    if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == '"') {
      i = codice.find('"', i + 1);
    } else if (c == '[') {
      const std::size_t fine = codice.find(']', i);
      const std::string dentro = lowerAscii(codice.substr(i + 1, fine == codice.npos ? 0 : fine - i - 1));
      if (!dentro.empty() && dentro.find_first_not_of("hms") == dentro.npos) simboli += dentro;
      i = fine;
    } else {
      simboli += lowerAscii(std::string_view(&c, 1));
    }
    if (i == codice.npos) break;
  }
  for (const std::string_view parola : {"general", "am/pm", "a/p"}) {
    const std::size_t dove = simboli.find(parola);
    if (dove != std::string::npos) simboli.replace(dove, parola.size(), parola == "general" ? "" : "h");
  }
  return simboli;
}

}  // namespace

Formato formatoDiCodice(std::string_view codice) {
  const std::string simboli = soloSimboli(codice);
  const auto ha = [&](char c) { return simboli.find(c) != std::string::npos; };
  if (ha('d') || ha('y')) return Formato::Data;
  if (ha('h') || ha('s')) return Formato::Ora;
  if (ha('m')) return Formato::Data;
  return ha('%') ? Formato::Percentuale : Formato::Numero;
}

Formato formatoPredefinito(int numero) {
  if (numero == 9 || numero == 10) return Formato::Percentuale;
  if ((numero >= 14 && numero <= 17) || numero == 22) return Formato::Data;
  if ((numero >= 18 && numero <= 21) || (numero >= 45 && numero <= 47)) return Formato::Ora;
  return Formato::Numero;
}

std::optional<std::string> testoDiNumero(std::string_view scritto, int potenza) {
  scritto = trim(scritto);
  const bool meno = scritto.starts_with('-');
  const std::string_view senzaSegno = scritto.substr(meno ? 1 : 0);
  if (potenza == 0 && soloCifre(senzaSegno)) {
    const std::size_t prima = senzaSegno.find_first_not_of('0');
    if (prima == std::string_view::npos) return "0";
    return (meno ? "-" : "") + std::string(senzaSegno.substr(prima));
  }
  const auto valore = numeroDi(scritto);
  if (!valore) return std::nullopt;
  if (*valore == 0) return "0";
  std::array<char, 40> lettere{};
  const auto esito = std::to_chars(lettere.data(), lettere.data() + lettere.size(), std::fabs(*valore),
                                   std::chars_format::scientific, kCifre - 1);
  const std::string_view scientifico(lettere.data(), static_cast<std::size_t>(esito.ptr - lettere.data()));
  const std::size_t e = scientifico.find('e');
  std::string cifre(1, scientifico[0]);
  cifre += scientifico.substr(2, e - 2);
  cifre.erase(cifre.find_last_not_of('0') + 1);
  const std::int64_t esponente =
      (scientifico[e + 1] == '-' ? -1 : 1) * leadingInteger(scientifico.substr(e + 2));
  return (*valore < 0 ? "-" : "") + conPunto(cifre, static_cast<int>(esponente) + 1 + potenza);
}

std::optional<std::string> testoDiData(std::string_view scritto, bool dal1904) {
  // Days from 30 December 1899, as Date counts them, to 1 January 1904.
  constexpr std::int64_t kPrimo1904 = 1462;
  const auto secondi = secondiDi(scritto);
  if (!secondi) return std::nullopt;
  std::int64_t giorno = *secondi / kSecondi;
  if (dal1904) {
    giorno += kPrimo1904;
  } else {
    if (giorno == 0 || giorno == 60) return std::nullopt;
    if (giorno < 60) ++giorno;  // before the day that never was
  }
  if (giorno > Date::kLast) return std::nullopt;
  const std::string iso = Date::fromSerial(static_cast<std::int32_t>(giorno)).toIso();
  return *secondi % kSecondi == 0 ? iso : iso + 'T' + ora(*secondi % kSecondi);
}

std::optional<std::string> testoDiOra(std::string_view scritto) {
  const auto secondi = secondiDi(scritto);
  if (!secondi || *secondi >= kSecondi) return std::nullopt;
  return ora(*secondi);
}

}  // namespace cu::tabelle
