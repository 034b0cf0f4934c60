#include "apps/esame/json_confronto.h"
#include "apps/esame/json_lettura.h"

#include <iostream>

namespace cu {

using nlohmann::ordered_json;

const char* detto(EsitoConfronto esito, const ParoleEsiti& parole) {
  switch (esito) {
    case EsitoConfronto::Uguale:
      break;
    case EsitoConfronto::Diverso:
      return parole.diverso;
    case EsitoConfronto::SoloVecchio:
      return parole.soloVecchio;
    case EsitoConfronto::SoloNuovo:
      return parole.soloNuovo;
  }
  return "equal";
}

Confrontata confrontata(const Coppia& coppia, const ParoleEsiti& stati) {
  const lettura::Certificato& certificato = coppia.uno();
  return {certificato.percipiente, certificato.nome, certificato.causale(), detto(coppia.esito, stati),
          coppia.caselle};
}

ordered_json jsonCaselle(const std::vector<lettura::CasellaDiversa>& caselle) {
  ordered_json lista = ordered_json::array();
  for (const lettura::CasellaDiversa& casella : caselle) {
    lista.push_back({{"module", casella.modulo},
                     {"field", casella.campo},
                     {"old", casella.vecchio},
                     {"new", casella.nuovo}});
  }
  return lista;
}

ordered_json jsonConfrontata(const Confrontata& confrontata) {
  return {{"payee", confrontata.percipiente},
          {"reason", confrontata.causale},
          {"state", confrontata.stato},
          {"boxes", jsonCaselle(confrontata.caselle)}};
}

namespace {

// The first records of a file have no module.
void scriviCaselle(const std::vector<lettura::CasellaDiversa>& caselle, const ParoleConfronto& parole,
                   std::ostream& uscita) {
  const auto valore = [](const std::string& testo) { return testo.empty() ? "niente" : "\"" + testo + "\""; };
  for (const lettura::CasellaDiversa& casella : caselle) {
    uscita << "  ";
    if (casella.modulo > 0) uscita << "modulo " << casella.modulo << ", ";
    uscita << casella.campo << ": " << parole.vecchio << " " << valore(casella.vecchio) << ", "
           << parole.nuovo << " " << valore(casella.nuovo) << '\n';
  }
}

}  // namespace

void scriviConfrontata(const Confrontata& confrontata, const char* stato, const ParoleConfronto& parole,
                       std::ostream& uscita) {
  uscita << confrontata.nome << " (" << confrontata.percipiente << "), causale " << confrontata.causale
         << ": " << stato << '\n';
  scriviCaselle(confrontata.caselle, parole, uscita);
}

void ListaConfronto::scrivi(const Confrontata& confrontata) {
  std::cout << (prima_ ? "[" : ",\n") << jsonConfrontata(confrontata).dump(-1, ' ', false, kNonUtf8);
  prima_ = false;
}

void ListaConfronto::aggiungi(const Confrontata& confrontata, const char* stato,
                              const ParoleConfronto& parole) {
  const bool uguale = confrontata.stato == "equal";
  ++tutte_;
  if (!uguale) ++diverse_;
  if (json_) {
    scrivi(confrontata);
  } else if (!uguale) {
    scriviConfrontata(confrontata, stato, parole, std::cout);
  }
}

void ListaConfronto::testate(const std::vector<lettura::CasellaDiversa>& caselle,
                             const ParoleConfronto& parole) {
  if (caselle.empty()) return;
  testate_ = true;
  if (json_) {
    scrivi({"", "", "", "different", caselle});
  } else {
    std::cout << "Frontespizio della fornitura: diverso\n";
    scriviCaselle(caselle, parole, std::cout);
  }
}

void ListaConfronto::fine(const char* diverse) {
  if (json_) {
    std::cout << (prima_ ? "[]\n" : "]\n");
  } else {
    std::cout << "Certificazioni " << tutte_ << ", " << diverse << " " << diverse_ << ".\n";
  }
}

}  // namespace cu
