#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace cu::schede {

struct VoceElenco {
  std::int32_t id = 0;
  std::string codice;
  std::string nome;
};

// A short list of codes of a database, in the order of the ids.
class ElencoCodici {
 public:
  ElencoCodici() = default;
  // `nome` may be empty: the list has codes only.
  ElencoCodici(Connection& connessione, std::string_view tabella, std::string_view id,
               std::string_view codice, std::string_view nome);

  const VoceElenco* diCodice(std::string_view codice) const;  // without case and blanks at the ends
  const VoceElenco* diId(std::int32_t id) const;
  const std::string& codice(std::int32_t id) const;  // "" for an unknown id
  const std::vector<VoceElenco>& voci() const { return voci_; }
  std::string codici() const;  // "A, B, C", for messages

 private:
  std::vector<VoceElenco> voci_;
};

// A social security body: its codes are not unique by themselves.
struct Ente {
  std::int32_t id = 0;
  std::string codiceFiscale;
  std::string nome;
  std::string codice;
};

// The lists of codes that records refer to.
struct Elenchi {
  explicit Elenchi(Connection& connessione);

  ElencoCodici causali;
  ElencoCodici categorie;
  ElencoCodici eventi;
  ElencoCodici cariche;
  ElencoCodici nonSoggette;
  ElencoCodici categorieEnti;
  std::vector<Ente> enti;

  const Ente* ente(std::int32_t id) const;
};

}  // namespace cu::schede
