#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "lettura/confronto.h"
#include "lettura/esame.h"
#include "riscontro/conti.h"
#include "riscontro/frontespizio.h"

// A telematic file against the accounts of its year.
namespace cu::riscontro {

// Protocol and progressive of what was accepted once.
using Riferimento = std::pair<std::string, std::string>;

// What a file is held against.
class ContiAttesi {
 public:
  virtual ~ContiAttesi() = default;
  virtual Frontespizio frontespizio(std::int32_t anno) = 0;
  virtual void conti(std::int32_t anno, const std::function<void(const Conto&)>& ricevi) = 0;
  // The references that a correction of a payee's certificate may have, as far as they are known.
  virtual std::vector<Riferimento> riferimenti(std::int32_t anno, const std::string& percipiente) = 0;
};

// The accounts of a company in a database. Errors of the database rise as they are.
class ContiDelDatabase : public ContiAttesi {
 public:
  ContiDelDatabase(Connection& connessione, std::int32_t idAzienda, const Conversioni& utilita,
                   const modello::Modello& modello = modello::kModello)
      : connessione_(connessione), idAzienda_(idAzienda), utilita_(utilita), modello_(modello) {}
  Frontespizio frontespizio(std::int32_t anno) override;
  void conti(std::int32_t anno, const std::function<void(const Conto&)>& ricevi) override;
  std::vector<Riferimento> riferimenti(std::int32_t anno, const std::string& percipiente) override;

 private:
  Connection& connessione_;
  std::int32_t idAzienda_;
  const Conversioni& utilita_;
  const modello::Modello& modello_;
  bool letti_ = false;
  std::vector<std::pair<std::string, Riferimento>> registrati_;  // by payee
};

struct EsitoVerifica {
  std::size_t errori = 0;                        // of the file itself
  std::vector<lettura::CasellaDiversa> testate;  // fields of records A and B; the file is the old side
};

// Calls with each certificate of the file (the old side) and its account, in the order of the accounts, then
// with those that the accounts do not have. Heads that differ are among the boxes. Nothing where the file
// does not give its year.
std::optional<EsitoVerifica> verifica(lettura::Sorgente& file, ContiAttesi& attesi,
                                      const lettura::RiceviCoppia& ricevi);

}  // namespace cu::riscontro
