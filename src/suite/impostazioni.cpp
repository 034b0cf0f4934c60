#include "suite/impostazioni.h"

#include <filesystem>
#include <sstream>

#include "base/error.h"
#include "base/text.h"
#include "suite/platform_file.h"
#include "toml/toml.h"

namespace cu {
namespace {

// TOML accepts only UTF-8.
std::string comeUtf8(std::string_view testo) {
  std::string valido;
  valido.reserve(testo.size());
  for (std::size_t at = 0; at < testo.size();) appendUtf8(valido, nextCodePoint(testo, at));
  return valido;
}

// The table under the key, created where it is missing; null when the key has another type.
toml::table* tabellaIn(toml::table& madre, std::string_view chiave) {
  const std::string nome = comeUtf8(chiave);
  if (!madre.contains(nome)) madre.insert(nome, toml::table());
  return madre.get_as<toml::table>(nome);
}

std::string comeTesto(const toml::node& valore) {
  if (const auto* testo = valore.as_string()) return testo->get();
  if (const auto* intero = valore.as_integer()) return fromInteger(intero->get());
  if (const auto* vero = valore.as_boolean()) return vero->get() ? "1" : "0";
  std::ostringstream altro;
  altro << toml::node_view(valore);
  return altro.str();
}

void creaCartella(const std::string& file) {
  const auto cartella = std::filesystem::path(file).parent_path();
  if (!cartella.empty()) createFolders(cartella.string());
}

}  // namespace

struct ImpostazioniToml::Contenuto {
  toml::table radice;
};

ImpostazioniToml::ImpostazioniToml(std::string file, FileSystem& files,
                                   std::function<void(const std::string&)> avviso)
    : file_(std::move(file)), files_(files), avviso_(std::move(avviso)) {}

void ImpostazioniToml::avvisa(const std::string& testo) {
  if (testo == ultimoAvviso_) return;
  ultimoAvviso_ = testo;
  if (avviso_) avviso_(testo);
}

ImpostazioniToml::Contenuto ImpostazioniToml::leggi(bool mettiDaParte) {
  if (!files_.fileExists(file_)) return {};
  toml::parse_result letto = toml::parse(files_.readAll(file_), std::string_view(file_));
  if (letto) return {std::move(letto).table()};
  if (!mettiDaParte) {
    avvisa("Il file delle impostazioni " + file_ + " è danneggiato: valgono le impostazioni predefinite.");
    return {};
  }
  std::string accanto;
  int numero = 0;
  do {
    accanto = file_ + ".danneggiato-" + fromInteger(++numero);
  } while (files_.fileExists(accanto));
  files_.rename(file_, accanto);
  avvisa("Il file delle impostazioni " + file_ + " era danneggiato: è stato conservato come " + accanto +
         ".");
  return {};
}

void ImpostazioniToml::scrivi(const Contenuto& contenuto) {
  std::ostringstream flusso;
  constexpr auto kForma = toml::toml_formatter::default_flags & ~toml::format_flags::allow_literal_strings;
  flusso << toml::toml_formatter(contenuto.radice, kForma);
  const std::string testo = std::move(flusso).str() + "\n";
  // Never writes a file that cannot be parsed.
  if (!toml::parse(testo))
    throw FileError(kErrorDeviceIo, "Le impostazioni non si possono scrivere: " + file_);
  files_.replace(file_, testo);
}

std::string ImpostazioniToml::get(std::string_view application, std::string_view section,
                                  std::string_view name, std::string_view otherwise) {
  try {
    const Contenuto contenuto = leggi(false);
    const toml::table* const chiave = contenuto.radice.get_as<toml::table>(application);
    const toml::table* const sezione = chiave == nullptr ? nullptr : chiave->get_as<toml::table>(section);
    const toml::node* const valore = sezione == nullptr ? nullptr : sezione->get(name);
    return valore == nullptr ? std::string(otherwise) : comeTesto(*valore);
  } catch (const FileError& error) {
    avvisa("Il file delle impostazioni non si può leggere: valgono le impostazioni predefinite. " +
           error.description());
    return std::string(otherwise);
  }
}

void ImpostazioniToml::set(std::string_view application, std::string_view section, std::string_view name,
                           std::string_view value) {
  creaCartella(file_);
  const FileLock blocco(file_ + ".lock");
  Contenuto contenuto = leggi(true);
  toml::table* const chiave = tabellaIn(contenuto.radice, application);
  toml::table* const sezione = chiave == nullptr ? nullptr : tabellaIn(*chiave, section);
  if (sezione == nullptr) {
    throw FileError(kErrorPathAccess, "Nel file delle impostazioni " + file_ + " \"" + comeUtf8(application) +
                                          "\"." + comeUtf8(section) + " non è una sezione.");
  }
  const std::string nome = comeUtf8(name);
  const std::string valore = comeUtf8(value);
  // Most runs choose what was chosen before, and a durable write waits for the disk.
  const auto* const presente = sezione->get_as<std::string>(nome);
  if (presente != nullptr && presente->get() == valore) return;
  sezione->insert_or_assign(nome, valore);
  scrivi(contenuto);
}

void ImpostazioniToml::deleteSection(std::string_view application, std::string_view section) {
  if (section.empty() || !files_.fileExists(file_)) return;
  const FileLock blocco(file_ + ".lock");
  Contenuto contenuto = leggi(true);
  toml::table* const chiave = contenuto.radice.get_as<toml::table>(application);
  if (chiave == nullptr || !chiave->contains(section)) return;
  chiave->erase(section);
  scrivi(contenuto);
}

}  // namespace cu
