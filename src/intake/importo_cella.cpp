#include "intake/importo_cella.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "base/ascii.h"
#include "base/text.h"

namespace cu::intake {
namespace {

constexpr std::size_t kCifreIntere = 11;  // an amount is below 10^11
constexpr std::size_t kGruppo = 3;

// What is left of an amount when sign and currency are taken away.
struct Spoglio {
  std::string_view cifre;
  bool negativo = false;
  bool estero = false;
  bool storto = false;  // with two signs, or a parenthesis alone
};

bool togliInizio(std::string_view& testo, std::string_view parte) {
  if (!equalsNoCase(testo.substr(0, parte.size()), parte)) return false;
  testo = trim(testo.substr(parte.size()));
  return true;
}

bool togliFine(std::string_view& testo, std::string_view parte) {
  if (testo.size() < parte.size() || !equalsNoCase(testo.substr(testo.size() - parte.size()), parte)) {
    return false;
  }
  testo = trim(testo.substr(0, testo.size() - parte.size()));
  return true;
}

bool togliValuta(std::string_view& testo) {
  for (const std::string_view segno : {"€", "euro", "eur"}) {
    if (togliInizio(testo, segno) || togliFine(testo, segno)) return true;
  }
  return false;
}

bool togliValutaEstera(std::string_view& testo) {
  for (const std::string_view segno : {"$", "£", "¥", "usd", "gbp", "chf", "jpy", "us$"}) {
    if (togliInizio(testo, segno) || togliFine(testo, segno)) return true;
  }
  return false;
}

bool togliMeno(std::string_view& testo) {
  return togliInizio(testo, "-") || togliInizio(testo, "\u2212") || togliFine(testo, "-") ||
         togliFine(testo, "\u2212");
}

Spoglio spoglia(std::string_view testo) {
  Spoglio esito;
  esito.cifre = trim(testo);
  bool valuta = togliValuta(esito.cifre);
  if (esito.cifre.starts_with('(') && esito.cifre.ends_with(')') && esito.cifre.size() > 1) {
    esito.negativo = true;
    esito.cifre = trim(esito.cifre.substr(1, esito.cifre.size() - 2));
    esito.storto = esito.cifre.empty();
  } else if (esito.cifre != "-") {
    esito.negativo = togliMeno(esito.cifre);
    if (!esito.negativo) togliInizio(esito.cifre, "+");
  }
  if (!valuta) valuta = togliValuta(esito.cifre);
  if (!valuta) esito.estero = togliValutaEstera(esito.cifre);
  return esito;
}

// The mark and the digits before and after it, where there is exactly one mark.
struct Divisa {
  char segno = 0;
  std::size_t prima = 0;
  std::size_t dopo = 0;
};

std::optional<Divisa> dividi(std::string_view cifre) {
  const std::size_t dove = cifre.find_first_of(".,");
  if (dove == std::string_view::npos) return Divisa{0, cifre.size(), 0};
  if (cifre.find_first_of(".,", dove + 1) != std::string_view::npos) return std::nullopt;
  return Divisa{cifre[dove], dove, cifre.size() - dove - 1};
}

// One to three digits, the first no zero, and three behind the mark.
bool sembraMigliaia(std::string_view cifre, const Divisa& divisa) {
  return divisa.dopo == kGruppo && divisa.prima >= 1 && divisa.prima <= kGruppo && cifre.front() != '0';
}

bool soloCifre(std::string_view testo) { return std::all_of(testo.begin(), testo.end(), isDigit); }

// Takes the thousands marks away; false where they part no groups of three.
bool unisciGruppi(std::string_view intero, char migliaia, std::string& unito) {
  std::size_t gruppo = 0;
  bool primo = true;
  for (const char c : intero) {
    if (c != migliaia) {
      unito += c;
      ++gruppo;
      continue;
    }
    if (gruppo == 0 || gruppo > kGruppo || (!primo && gruppo != kGruppo)) return false;
    primo = false;
    gruppo = 0;
  }
  return primo || gruppo == kGruppo;
}

ImportoLetto compone(std::string_view intero, std::string_view frazione, bool negativo, int decimali) {
  constexpr int kScala = 4;
  while (intero.starts_with('0')) intero.remove_prefix(1);
  if (intero.size() > kCifreIntere) return {EsitoImporto::Grande, {}, false};
  std::int64_t valore = 0;
  for (const char c : intero) valore = valore * 10 + (c - '0');
  for (int i = 0; i < decimali; ++i) {
    const auto posto = static_cast<std::size_t>(i);
    valore = valore * 10 + (posto < frazione.size() ? frazione[posto] - '0' : 0);
  }
  const std::string_view resto =
      frazione.substr(std::min(frazione.size(), static_cast<std::size_t>(decimali)));
  if (!resto.empty() && resto.front() >= '5') ++valore;
  std::int64_t limite = 1;
  for (std::size_t i = 0; i < kCifreIntere + static_cast<std::size_t>(decimali); ++i) limite *= 10;
  if (valore >= limite) return {EsitoImporto::Grande, {}, false};
  for (int i = decimali; i < kScala; ++i) valore *= 10;
  const bool arrotondato = resto.find_first_not_of('0') != std::string_view::npos;
  return {EsitoImporto::Letto, Decimal::fromScaled(negativo ? -valore : valore), arrotondato};
}

// By the one mark that there may be.
ImportoLetto leggiSenzaSegno(const Spoglio& spoglio, const SegniImporto& segni, int decimali) {
  const std::string_view cifre = spoglio.cifre;
  const std::optional<Divisa> divisa = dividi(cifre);
  if (!divisa) {
    const bool altro = cifre.find_first_not_of("0123456789.,'") != std::string_view::npos;
    return {altro ? EsitoImporto::Altro : EsitoImporto::Migliaia, {}, false};
  }
  const std::string_view intero = cifre.substr(0, divisa->prima);
  const std::string_view frazione = divisa->segno == 0 ? std::string_view() : cifre.substr(divisa->prima + 1);
  if (!soloCifre(frazione) || (divisa->segno != 0 && frazione.empty())) return {};
  if (!soloCifre(intero)) {
    const bool altro = intero.find_first_not_of("0123456789'") != std::string_view::npos;
    return {altro ? EsitoImporto::Altro : EsitoImporto::Migliaia, {}, false};
  }
  if (intero.empty() && frazione.empty()) return {};
  if (sembraMigliaia(cifre, *divisa)) {
    const bool certo = divisa->segno == ',' ? !segni.puntoVisto : segni.puntoVisto && !segni.virgolaVista;
    if (!certo) return {EsitoImporto::Incerto, {}, false};
  }
  return compone(intero, frazione, spoglio.negativo, decimali);
}

ImportoLetto leggiConSegno(const Spoglio& spoglio, char mark, const SegniImporto& segni, int decimali) {
  const std::size_t dove = spoglio.cifre.find(mark);
  const std::string_view intero = spoglio.cifre.substr(0, dove);
  const bool con = dove != std::string_view::npos;
  const std::string_view frazione = con ? spoglio.cifre.substr(dove + 1) : std::string_view();
  if (!soloCifre(frazione) || (con && frazione.empty())) return {};
  std::string unito;
  if (segni.migliaia) {
    if (!unisciGruppi(intero, *segni.migliaia, unito)) return {};
  } else {
    unito = intero;
  }
  if (!soloCifre(unito)) {
    const bool altro = unito.find_first_not_of("0123456789.,'") != std::string::npos;
    return {altro ? EsitoImporto::Altro : EsitoImporto::Migliaia, {}, false};
  }
  if (unito.empty() && frazione.empty()) return {};
  return compone(unito, frazione, spoglio.negativo, decimali);
}

}  // namespace

void SegniImporto::osserva(std::string_view testo) {
  const Spoglio spoglio = spoglia(testo);
  const std::optional<Divisa> divisa = dividi(spoglio.cifre);
  if (!divisa || divisa->segno == 0 || divisa->dopo == 0) return;
  if (spoglio.cifre.find_first_not_of("0123456789.,") != std::string_view::npos) return;
  if (sembraMigliaia(spoglio.cifre, *divisa)) return;
  (divisa->segno == ',' ? virgolaVista : puntoVisto) = true;
}

ImportoLetto leggiImporto(std::string_view testo, const SegniImporto& segni, int decimali) {
  const Spoglio spoglio = spoglia(testo);
  if (spoglio.cifre == "-") return {EsitoImporto::Trattino, {}, false};
  if (spoglio.storto || spoglio.cifre.empty()) return {};
  if (spoglio.estero) return {EsitoImporto::Valuta, {}, false};
  if (segni.decimali) return leggiConSegno(spoglio, *segni.decimali, segni, decimali);
  if (segni.migliaia) return leggiConSegno(spoglio, *segni.migliaia == ',' ? '.' : ',', segni, decimali);
  return leggiSenzaSegno(spoglio, segni, decimali);
}

}  // namespace cu::intake
