#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "apps/esame/confronti.h"

namespace cu {

// A certificate that was compared.
struct Confrontata {
  std::string percipiente;
  std::string nome;
  std::string causale;
  std::string stato;  // "equal", "different", ...
  std::vector<lettura::CasellaDiversa> caselle;
};
// The words of the outcomes other than equal.
struct ParoleEsiti {
  const char* diverso;
  const char* soloVecchio;
  const char* soloNuovo;
};
const char* detto(EsitoConfronto esito, const ParoleEsiti& parole);  // "equal" where it is
Confrontata confrontata(const Coppia& coppia, const ParoleEsiti& stati);
nlohmann::ordered_json jsonCaselle(const std::vector<lettura::CasellaDiversa>& caselle);
nlohmann::ordered_json jsonConfrontata(const Confrontata& confrontata);

// "ROSSI MARCO (RSSMRC71C08L781I), causale A: diversa" and a line for each box. Nothing of equal ones.
struct ParoleConfronto {
  const char* vecchio;  // "nel file"
  const char* nuovo;
};
void scriviConfrontata(const Confrontata& confrontata, const char* stato, const ParoleConfronto& parole,
                       std::ostream& uscita);

// The list, and whether all are equal.
class ListaConfronto {
 public:
  explicit ListaConfronto(bool json) : json_(json) {}
  void aggiungi(const Confrontata& confrontata, const char* stato, const ParoleConfronto& parole);
  // What differs in the heads of the file: an entry without a payee.
  void testate(const std::vector<lettura::CasellaDiversa>& caselle, const ParoleConfronto& parole);
  // The end of the list, and the sum of it in words.
  void fine(const char* diverse);
  bool uguali() const { return diverse_ == 0 && !testate_; }

 private:
  void scrivi(const Confrontata& confrontata);

  bool json_;
  bool prima_ = true;
  std::size_t tutte_ = 0;
  std::size_t diverse_ = 0;
  bool testate_ = false;
};

}  // namespace cu
