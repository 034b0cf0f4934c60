#include "apps/comune/parole_database.h"

#include <array>
#include <string_view>

#include "base/error.h"

namespace cu {
namespace {

// What follows the beginning of a remedy is for commands alone.
struct RimedioDatabase {
  std::string_view comando;
  std::string_view finestra;
};
constexpr auto kRimediDatabase = std::to_array<RimedioDatabase>({
    {" non esiste. Correggere l'indirizzo nel profilo",
     " non c'è: è stato spostato, rinominato o eliminato, oppure il disco o la rete dove si trova non è "
     "collegato. "
     "Rimetterlo al suo posto e riprovare, scegliere un altro database nella finestra di avvio, oppure "
     "ripristinarne lì una copia di sicurezza."},
    {" non è un database. Correggere l'indirizzo nel profilo",
     " non è un database. Scegliere un altro file nella finestra di avvio, oppure ripristinare lì una copia "
     "di "
     "sicurezza."},
    {" Verificare con «cuctl check»",
     " Scegliere un altro database nella finestra di avvio, o crearne uno con «Nuovo archivio»."},
});

}  // namespace

std::string dettoInFinestra(const std::exception& errore) {
  std::string testo = asError(errore).description();
  if (dynamic_cast<const DatabaseError*>(&errore) == nullptr) return testo;
  for (const RimedioDatabase& uno : kRimediDatabase) {
    const std::size_t dove = testo.find(uno.comando);
    if (dove != std::string::npos) return testo.substr(0, dove) + std::string(uno.finestra);
  }
  return testo;
}

}  // namespace cu
