#include "intake/data_cella.h"

#include <array>

#include "base/ascii.h"
#include "base/text.h"
#include "tabelle/numeri.h"

namespace cu::intake {
namespace {

constexpr int kPrimoAnno = 1900;
constexpr int kUltimoAnno = 2199;

std::optional<Date> giorno(int anno, int mese, int giorno) {
  if (anno < kPrimoAnno || anno > kUltimoAnno) return std::nullopt;
  return Date::fromYmd(anno, mese, giorno);
}

DataScritta certa(std::optional<Date> data) {
  if (!data || data->year() < kPrimoAnno || data->year() > kUltimoAnno) return {};
  DataScritta scritta;
  scritta.forma = DataScritta::Forma::Certa;
  scritta.certa = *data;
  return scritta;
}

int secolo(int anno, int ultimoAnno) {
  const int recente = 2000 + anno;
  return recente <= ultimoAnno ? recente : recente - 100;
}

bool cifre(std::string_view testo) { return testo.find_first_not_of("0123456789") == std::string_view::npos; }

int numero(std::string_view testo) { return static_cast<int>(leadingInteger(testo)); }

// A time behind the day does not count: "05/03/2017 00:00:00".
std::string_view senzaOra(std::string_view testo) {
  const std::size_t duePunti = testo.find(':');
  if (duePunti == std::string_view::npos) return testo;
  const std::size_t prima = testo.find_last_of(" T", duePunti);
  return prima == std::string_view::npos ? testo : trim(testo.substr(0, prima));
}

// The parts between blanks, slashes, full stops and hyphens; no more than four.
struct Parti {
  std::array<std::string_view, 4> testi;
  std::size_t quante = 0;
};

Parti dividiData(std::string_view testo) {
  Parti parti;
  while (!testo.empty() && parti.quante < parti.testi.size()) {
    const std::size_t fine = testo.find_first_of(" /.-");
    parti.testi[parti.quante++] = testo.substr(0, fine);
    if (fine == std::string_view::npos) return parti;
    testo = testo.substr(fine + 1);
    if (testo.empty()) parti.quante = parti.testi.size();
  }
  return parti;
}

// By the first three letters of its name.
int mese(std::string_view parola) {
  constexpr std::string_view kMesi = "gen feb mar apr mag giu lug ago set ott nov dic";
  constexpr std::array<std::string_view, 12> kNomi = {"gennaio",   "febbraio", "marzo",    "aprile",
                                                      "maggio",    "giugno",   "luglio",   "agosto",
                                                      "settembre", "ottobre",  "novembre", "dicembre"};
  const std::string piccola = lowerAscii(parola);
  for (std::size_t i = 0; i < kNomi.size(); ++i) {
    if (piccola == kNomi[i] || piccola == kMesi.substr(i * 4, 3)) return static_cast<int>(i) + 1;
  }
  return 0;
}

// "20170305" or "05032017", of which only one is a day of these centuries.
DataScritta ottoCifre(std::string_view testo) {
  const auto iso = giorno(numero(testo.substr(0, 4)), numero(testo.substr(4, 2)), numero(testo.substr(6, 2)));
  if (iso) return certa(iso);
  DataScritta scritta;
  scritta.forma = DataScritta::Forma::TreNumeri;
  scritta.a = numero(testo.substr(0, 2));
  scritta.b = numero(testo.substr(2, 2));
  scritta.c = numero(testo.substr(4, 4));
  return scritta;
}

DataScritta treParti(const Parti& parti, int ultimoAnno) {
  const auto& [primo, secondo, terzo, oltre] = parti.testi;
  const bool corto = terzo.size() == 2;
  if (terzo.empty() || (terzo.size() != 4 && terzo.size() != 2 && primo.size() != 4)) return {};
  if (const int nome = mese(secondo); nome > 0 && cifre(primo) && cifre(terzo) && primo.size() <= 2) {
    const int anno = corto ? secolo(numero(terzo), ultimoAnno) : numero(terzo);
    return certa(giorno(anno, nome, numero(primo)));
  }
  if (!cifre(primo) || !cifre(secondo) || !cifre(terzo) || primo.empty() || secondo.empty()) return {};
  if (secondo.size() > 2) return {};
  if (primo.size() == 4 && terzo.size() <= 2) {
    return certa(giorno(numero(primo), numero(secondo), numero(terzo)));
  }
  if (primo.size() > 2) return {};
  DataScritta scritta;
  scritta.forma = DataScritta::Forma::TreNumeri;
  scritta.a = numero(primo);
  scritta.b = numero(secondo);
  scritta.c = numero(terzo);
  scritta.annoCorto = corto;
  return scritta;
}

}  // namespace

DataScritta leggiScritta(std::string_view testo, tabelle::Genere genere, bool dal1904, int ultimoAnno) {
  constexpr std::size_t kCifreSeriale = 5;
  if (genere == tabelle::Genere::Numero || (testo.size() == kCifreSeriale && cifre(testo))) {
    const auto data = tabelle::testoDiData(testo, dal1904);
    return data ? certa(Date::parseIso(*data)) : DataScritta();
  }
  if (genere == tabelle::Genere::Data) return certa(Date::parseIso(testo));
  testo = senzaOra(testo);
  if (testo.size() == 8 && cifre(testo)) return ottoCifre(testo);
  const Parti parti = dividiData(testo);
  return parti.quante == 3 ? treParti(parti, ultimoAnno) : DataScritta();
}

std::optional<Date> risolta(const DataScritta& scritta, OrdineData ordine, int ultimoAnno) {
  if (scritta.forma == DataScritta::Forma::Nessuna) return std::nullopt;
  if (scritta.forma == DataScritta::Forma::Certa) return scritta.certa;
  const auto anno = [&](int valore) { return scritta.annoCorto ? secolo(valore, ultimoAnno) : valore; };
  switch (ordine) {
    case OrdineData::GiornoMeseAnno:
      return giorno(anno(scritta.c), scritta.b, scritta.a);
    case OrdineData::MeseGiornoAnno:
      return giorno(anno(scritta.c), scritta.a, scritta.b);
    case OrdineData::AnnoMeseGiorno:
      break;
  }
  // Three numbers begin with a year only where all have two digits.
  return scritta.annoCorto ? giorno(anno(scritta.a), scritta.b, scritta.c) : std::nullopt;
}

void OrdineColonna::osserva(const DataScritta& scritta, int ultimoAnno) {
  if (scritta.forma != DataScritta::Forma::TreNumeri) return;
  const auto giornoPrima = risolta(scritta, OrdineData::GiornoMeseAnno, ultimoAnno);
  const auto mesePrima = risolta(scritta, OrdineData::MeseGiornoAnno, ultimoAnno);
  if (giornoPrima && mesePrima) {
    if (*giornoPrima != *mesePrima) ++incerte_;
  } else if (giornoPrima) {
    ++soloGiornoPrima_;
  } else if (mesePrima) {
    ++soloMesePrima_;
  }
}

std::optional<OrdineData> OrdineColonna::deciso() const {
  if (soloGiornoPrima_ == soloMesePrima_ && (incerte_ > 0 || soloGiornoPrima_ > 0)) return std::nullopt;
  return soloMesePrima_ > soloGiornoPrima_ ? OrdineData::MeseGiornoAnno : OrdineData::GiornoMeseAnno;
}

}  // namespace cu::intake
