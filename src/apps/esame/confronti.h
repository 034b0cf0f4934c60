#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "data/database.h"
#include "host/conversioni.h"
#include "lettura/confronto.h"
#include "lettura/esame.h"

namespace cu {

enum class EsitoConfronto : std::uint8_t { Uguale, Diverso, SoloVecchio, SoloNuovo };

// A certificate and its counterpart; null where there is none. Both live until the call returns.
struct Coppia {
  const lettura::Certificato* vecchio = nullptr;
  const lettura::Certificato* nuovo = nullptr;
  EsitoConfronto esito = EsitoConfronto::Uguale;
  std::vector<lettura::CasellaDiversa> caselle;

  const lettura::Certificato& uno() const { return nuovo != nullptr ? *nuovo : *vecchio; }
};
using RiceviCoppia = std::function<void(const Coppia&)>;

// The certificates of two files, in the order of the new one; then those that it does not have.
void confrontaFile(lettura::Sorgente& vecchio, lettura::Sorgente& nuovo, const RiceviCoppia& ricevi);

// A file (the old side) and the accounts of its year, in their order; then those that the accounts do not
// have. Returns how many errors the file itself has; nothing where it does not give its year. Errors of the
// database rise as they are.
std::optional<std::size_t> confrontaConConti(lettura::Sorgente& file, Connection& connessione,
                                             std::int32_t idAzienda, const Conversioni& utilita,
                                             const RiceviCoppia& ricevi);

}  // namespace cu
