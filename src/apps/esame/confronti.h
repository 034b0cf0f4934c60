#pragma once

#include <cstdint>
#include <functional>
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
// have. False where the file does not give its year. Errors of the database rise as they are.
bool confrontaConConti(lettura::Sorgente& file, Connection& connessione, std::int32_t idAzienda,
                       const Conversioni& utilita, const RiceviCoppia& ricevi);

}  // namespace cu
