#pragma once

#include <map>
#include <optional>
#include <set>
#include <vector>

#include "intake/archivio_letto.h"
#include "intake/piano.h"

namespace cu::intake {

// Whether the plan writes the row.
bool scritta(const Piano& piano, const RigaPiano& riga);

// The accounts whose payments a plan changes, before and after, and what is wrong with them: A01 to A04, R13.
class ContiToccati {
 public:
  ContiToccati(Piano& piano, const ArchivioLetto& archivio) : piano_(piano), archivio_(archivio) {}

  // Once all rows are judged. Rows of accounts that cannot be as planned change their state.
  void calcola();

 private:
  // New payees, whose ids fall from -1, follow the others in their order.
  struct PerPercipiente {
    bool operator()(const ChiaveConto& uno, const ChiaveConto& altro) const {
      if (uno.idAnagrafica < 0 && altro.idAnagrafica < 0 && uno.idAnagrafica != altro.idAnagrafica)
        return uno.idAnagrafica > altro.idAnagrafica;
      if ((uno.idAnagrafica < 0) != (altro.idAnagrafica < 0)) return altro.idAnagrafica < 0;
      return uno < altro;
    }
  };
  struct Conto {
    schede::Importi primaDiTutto{};  // the sum of the payments that are there
    schede::Importi dopo{};
    std::int32_t codice = 0;
    std::size_t compensi = 0;       // that are there
    std::size_t conCodice = 0;      // of those, that rows give a code or take away
    std::set<std::int32_t> codici;  // that rows give; 0 empties it
    std::vector<std::size_t> righe;
    bool aggiungeSomme = false;
    bool dueCodici = false;
  };
  using Conti = std::map<ChiaveConto, Conto, PerPercipiente>;

  static ChiaveConto chiave(const schede::SchedaCompenso& scheda);
  void raccogli();
  void sommaEsistenti();
  void applicaRighe();
  static void decidiCodice(Conto& conto);
  void corretti(const ChiaveConto& chiave, Conto& conto);
  void controlla(const ChiaveConto& chiave, const Conto& conto);
  void scrivi();
  void segnala(const ChiaveConto& chiave, const Conto& conto, Codice codice, const std::string& testo,
               bool sulleRighe);
  const ContoLetto* letto(const ChiaveConto& chiave) const;

  Piano& piano_;
  const ArchivioLetto& archivio_;
  Conti conti_;
};

}  // namespace cu::intake
