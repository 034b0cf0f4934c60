#pragma once

#include <cstdint>
#include <string>

#include "data/inserimento.h"
#include "intake/piano.h"
#include "schede/scrittura.h"

namespace cu::intake {

// The history's tables, as far as their ids are given like those of others.
extern const schede::TabellaSuite kImportazione;

// Keeps each row that a batch writes, within the batch's own transaction.
class DiarioLotto : public schede::Diario {
 public:
  // Writes the batch itself and its files first.
  DiarioLotto(Connection& connessione, std::int32_t id, const Piano& piano, const std::string& utente,
              const std::string& momento);

  void inserita(const schede::TabellaSuite& tabella, const schede::Riga& riga) override;
  void cambiata(const schede::TabellaSuite& tabella, const schede::Riga& prima,
                const schede::Riga& dopo) override;
  void tolta(const schede::TabellaSuite& tabella, const schede::Riga& riga) override;

  // Of the rows of Compenso written from now on.
  void riferimento(std::string valore) { riferimento_ = std::move(valore); }
  void chiudi() { righe_.chiudi(); }

 private:
  void scrivi(const schede::TabellaSuite& tabella, const schede::Riga& riga, std::string_view operazione,
              const std::string& prima, const std::string& dopo);

  std::int32_t id_;
  std::int64_t numero_ = 0;
  std::string riferimento_;
  Inserimento righe_;
};

}  // namespace cu::intake
