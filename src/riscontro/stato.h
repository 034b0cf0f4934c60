#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/conversioni.h"
#include "lettura/confronto.h"
#include "riscontro/conti.h"
#include "riscontro/registro.h"

// Where each certificate of a year is between the accounts and the authority, and what follows.
namespace cu::riscontro {

enum class Operazione : std::uint8_t { Nuova, Sostituzione, Annullamento, Nessuna, Attesa };
std::string_view nome(Operazione operazione);  // "nuova"

struct VoceStato {
  std::string percipiente;
  std::string nome;
  std::string causale;
  std::string stato;  // of the last thing that happened to it; "" where nothing was written yet
  Operazione operazione = Operazione::Nuova;
  std::vector<lettura::CasellaDiversa> caselle;  // what changed since it was accepted
  std::string motivo;                            // of the last rejection, until something is accepted
  std::optional<Conto> conto;                    // none where the accounts do not have it any more
  std::optional<Registrata> accettata;           // what the authority holds now
};

// The certificates of the accounts in the order of the file, then those accepted that are missing there.
// `letti` is called after each account, and may raise.
std::vector<VoceStato> statoEsercizio(Registro& registro, const Esercizio& esercizio,
                                      const Conversioni& utilita,
                                      const std::function<void(std::size_t conti)>& letti = {});

}  // namespace cu::riscontro
