#include "suite/lettore_toml.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>

#include "base/text.h"

namespace cu {
namespace {

constexpr std::size_t kMaxLunghezzaCitata = 60;

std::string citata(std::string_view chiave) {
  const std::string breve(leftCodePoints(chiave, kMaxLunghezzaCitata));
  return unaRiga(breve.size() < chiave.size() ? breve + "..." : breve);
}

}  // namespace

std::string unaRiga(std::string_view testo) {
  std::string riga(testo);
  for (char& c : riga) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return riga;
}

std::string leggiTestoToml(const std::string& file) {
  constexpr std::size_t kMaxBytes = 1U << 20;
  const auto rifiuta = [&](const char* motivo) {
    throw ErroreProfilo(unaRiga(file) + ": " + motivo + ", atteso un profilo TOML leggibile");
  };
  std::error_code errore;
  if (std::filesystem::is_directory(file, errore)) rifiuta("è una cartella");
  if (!std::filesystem::exists(file, errore)) rifiuta("il file non esiste");
  std::ifstream flusso(file, std::ios::binary);
  if (!flusso) rifiuta("il file non si può leggere");
  // A profile is short: the memory of the longest one is not touched for it.
  constexpr std::size_t kBlocco = std::size_t{1} << 14U;
  std::string testo;
  while (flusso && testo.size() <= kMaxBytes) {
    const std::size_t prima = testo.size();
    testo.resize(prima + kBlocco);
    flusso.read(testo.data() + prima, static_cast<std::streamsize>(kBlocco));
    testo.resize(prima + static_cast<std::size_t>(flusso.gcount()));
  }
  if (flusso.bad()) rifiuta("il file non si può leggere");
  if (testo.size() > kMaxBytes) rifiuta("il file supera 1 MiB");
  return testo;
}

void LettoreToml::rifiuta(std::string_view chiave, std::string_view difetto, std::string_view atteso) const {
  throw ErroreProfilo(unaRiga(file_) + ": " + prefisso_ + citata(chiave) + ": " + std::string(difetto) +
                      ", atteso " + std::string(atteso));
}

void LettoreToml::soloChiavi(std::initializer_list<std::string_view> chiavi) const {
  for (const auto& [chiave, valore] : tabella_) {
    if (std::find(chiavi.begin(), chiavi.end(), chiave.str()) != chiavi.end()) continue;
    std::string note;
    for (const std::string_view nota : chiavi) {
      if (!note.empty()) note += ", ";
      note += nota;
    }
    rifiuta(chiave.str(), "chiave sconosciuta", "uno di questi nomi: " + note);
  }
}

const toml::node& LettoreToml::nodo(std::string_view chiave, std::string_view atteso) const {
  const toml::node* const trovato = tabella_.get(chiave);
  if (trovato == nullptr) rifiuta(chiave, "manca", atteso);
  return *trovato;
}

LettoreToml LettoreToml::sezione(std::string_view chiave) const {
  constexpr std::string_view kAtteso = "una sezione";
  const toml::table* const trovata = nodo(chiave, kAtteso).as_table();
  if (trovata == nullptr) rifiuta(chiave, "tipo sbagliato", kAtteso);
  return {*trovata, file_, prefisso_ + std::string(chiave) + "."};
}

std::int32_t LettoreToml::intero(std::string_view chiave, std::int32_t minimo) const {
  constexpr std::int64_t kMassimo = std::numeric_limits<std::int32_t>::max();
  const std::string atteso = "un numero intero da " + fromInteger(minimo) + " a " + fromInteger(kMassimo);
  const auto* const numero = nodo(chiave, atteso).as_integer();
  if (numero == nullptr) rifiuta(chiave, "tipo sbagliato", atteso);
  if (numero->get() < minimo || numero->get() > kMassimo) rifiuta(chiave, "valore non ammesso", atteso);
  return static_cast<std::int32_t>(numero->get());
}

bool LettoreToml::vero(std::string_view chiave) const {
  constexpr std::string_view kAtteso = "true o false";
  const auto* const valore = nodo(chiave, kAtteso).as_boolean();
  if (valore == nullptr) rifiuta(chiave, "tipo sbagliato", kAtteso);
  return valore->get();
}

std::string LettoreToml::testo(std::string_view chiave) const {
  constexpr std::string_view kAtteso = "un testo tra virgolette";
  const auto* const valore = nodo(chiave, kAtteso).as_string();
  if (valore == nullptr) rifiuta(chiave, "tipo sbagliato", kAtteso);
  return valore->get();
}

std::string LettoreToml::percorso(std::string_view chiave, const std::string& cartella) const {
  const std::string valore = testo(chiave);
  if (valore.empty() || valore.find('\0') != std::string::npos) {
    rifiuta(chiave, "valore non ammesso", "un percorso");
  }
  return completa(valore, cartella);
}

std::string completa(const std::string& percorso, const std::string& cartella) {
  const std::filesystem::path dato(percorso);
  return dato.is_absolute() ? percorso : (std::filesystem::path(cartella) / dato).lexically_normal().string();
}

std::string LettoreToml::segno(std::string_view chiave, std::size_t minimo) const {
  std::string valore = testo(chiave);
  const std::size_t lunghezza = codePoints(valore);
  if (lunghezza < minimo || lunghezza > 1) {
    rifiuta(chiave, "valore non ammesso", minimo == 0 ? "un solo carattere o nessuno" : "un solo carattere");
  }
  return valore;
}

}  // namespace cu
