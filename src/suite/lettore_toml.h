#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "suite/profilo.h"
#include "toml/toml.h"

namespace cu {

// Reads the keys of one table. Anything invalid raises ErroreProfilo with the file, the dotted key and the
// expected value.
class LettoreToml {
 public:
  LettoreToml(const toml::table& tabella, std::string file, std::string prefisso = {})
      : tabella_(tabella), file_(std::move(file)), prefisso_(std::move(prefisso)) {}

  // Rejects any other key.
  void soloChiavi(std::initializer_list<std::string_view> chiavi) const;
  bool presente(std::string_view chiave) const { return tabella_.contains(chiave); }

  LettoreToml sezione(std::string_view chiave) const;
  std::int32_t intero(std::string_view chiave, std::int32_t minimo) const;
  std::int32_t intero(std::string_view chiave, std::int32_t minimo, std::int32_t altrimenti) const {
    return presente(chiave) ? intero(chiave, minimo) : altrimenti;
  }
  bool vero(std::string_view chiave) const;
  bool vero(std::string_view chiave, bool altrimenti) const {
    return presente(chiave) ? vero(chiave) : altrimenti;
  }
  std::string testo(std::string_view chiave) const;
  std::string testo(std::string_view chiave, std::string_view altrimenti) const {
    return presente(chiave) ? testo(chiave) : std::string(altrimenti);
  }
  std::string percorso(std::string_view chiave, const std::string& cartella) const;
  // A text of `minimo` to `massimo` characters.
  std::string segno(std::string_view chiave, std::size_t minimo) const;
  const toml::node& nodo(std::string_view chiave, std::string_view atteso) const;

  [[noreturn]] void rifiuta(std::string_view chiave, std::string_view difetto, std::string_view atteso) const;
  const std::string& file() const { return file_; }

 private:
  const toml::table& tabella_;
  std::string file_;
  std::string prefisso_;
};

// Resolves a relative path against the folder; returns any other unchanged.
std::string completa(const std::string& percorso, const std::string& cartella);

// The bytes of a file, 1 MiB at most. Raises ErroreProfilo.
std::string leggiTestoToml(const std::string& file);

// One line: control characters are replaced by blanks.
std::string unaRiga(std::string_view testo);

}  // namespace cu
