#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "modello/modello.h"
#include "modello/regole.h"
#include "worklist/colonne.h"

namespace cu {

// Checks the work table against a form.

constexpr bool concorda(Tipo tipo, modello::Genere genere) {
  switch (genere) {
    case modello::Genere::Importo:
      return tipo == Tipo::Importo;
    case modello::Genere::Testo:
      return tipo == Tipo::Descrizione || tipo == Tipo::Note;
    case modello::Genere::Flag:
      return tipo == Tipo::SiNo || tipo == Tipo::Importo;
    case modello::Genere::Elenco:
    case modello::Genere::Numero:
      break;
  }
  return tipo == Tipo::Int;
}

constexpr const ColonnaLavoro* colonnaLavoro(std::span<const ColonnaLavoro> colonne, std::string_view nome) {
  const auto trovata =
      std::find_if(colonne.begin(), colonne.end(), [nome](const ColonnaLavoro& c) { return c.nome == nome; });
  return trovata == colonne.end() ? nullptr : &*trovata;
}

// The columns of the amounts of module 1, and those written back, are in the work table with their type.
constexpr bool concordaLavoro(const modello::Modello& modello, std::span<const ColonnaLavoro> colonne) {
  for (const modello::Campo& campo : modello.campi) {
    const bool somme = record(campo.quadro) == modello::Record::H;
    if (!inModulo(campo, true) || (!somme && campo.riscrittura == modello::Riscrittura::No)) continue;
    const bool propria = campo.riscrittura == modello::Riscrittura::Propria;
    for (const modello::Colonna& sua : modello::ColonneDiCampo(campo)) {
      const ColonnaLavoro* const colonna = colonnaLavoro(propria ? kColonneProprie : colonne, sua.nome);
      if (colonna == nullptr || !concorda(colonna->tipo, sua.genere)) return false;
    }
    for (const std::string_view& altra : campo.altre) {
      if (somme && !altra.empty() && colonnaLavoro(colonne, altra) == nullptr) return false;
    }
  }
  return true;
}

// The gross amount is loaded as the sum of its addends in the account and in the further modules.
constexpr bool concordaLordo(std::span<const ColonnaLavoro> colonne) {
  const ColonnaLavoro* const lordo = colonnaLavoro(colonne, modello::kLordo);
  std::string_view resto = lordo == nullptr ? std::string_view() : lordo->sorgente;
  const auto segue = [&resto](std::string_view pezzo) {
    const bool inizia = resto.starts_with(pezzo);
    if (inizia) resto.remove_prefix(pezzo.size());
    return inizia;
  };
  for (const std::string_view addendo : modello::kAddendiLordoDelConto) {
    if (!segue("ISNULL(") || !segue(addendo) || !segue(",0) + ")) return false;
  }
  return segue("ISNULL((SELECT SUM(ISNULL(") && segue(modello::kAddendoLordoDelModulo) && segue(",0)) FROM ");
}

}  // namespace cu
