#include <algorithm>
#include <array>
#include <iostream>
#include <map>

#include "apps/comune/aziende_database.h"
#include "apps/comune/codici_uscita.h"
#include "apps/comune/modello_del_profilo.h"
#include "apps/comune/registro_programma.h"
#include "apps/comune/tavola.h"
#include "apps/comune/terminale.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/json_confronto.h"
#include "apps/esame/json_lettura.h"
#include "apps/esame/registro_del_profilo.h"
#include "riscontro/stato.h"
#include "suite/utilita.h"

namespace cu {
namespace {

using riscontro::Operazione;
using riscontro::VoceStato;

constexpr ParoleConfronto kParole = {"accettato", "nei conti"};

nlohmann::ordered_json json(const VoceStato& voce) {
  return {{"payee", voce.percipiente},
          {"name", voce.nome},
          {"reason", voce.causale},
          {"state", voce.stato},
          {"operation", riscontro::nome(voce.operazione)},
          {"protocol", voce.accettata ? voce.accettata->protocollo : std::string()},
          {"progressive", voce.accettata ? voce.accettata->progressivo : std::string()},
          {"rejection", voce.motivo},
          {"boxes", jsonCaselle(voce.caselle)}};
}

void scrivi(const VoceStato& voce) {
  std::cout << suUnaRiga(voce.nome) << " (" << voce.percipiente << "), causale " << voce.causale << ": "
            << (voce.stato.empty() ? "mai scritta" : voce.stato);
  if (!voce.motivo.empty()) std::cout << " (" << voce.motivo << ")";
  std::cout << ", operazione " << riscontro::nome(voce.operazione) << '\n';
  for (const lettura::CasellaDiversa& casella : voce.caselle) {
    std::cout << "  modulo " << casella.modulo << ", " << casella.campo << ": " << kParole.vecchio << " \""
              << casella.vecchio << "\", " << kParole.nuovo << " \"" << casella.nuovo << "\"\n";
  }
}

bool haAzienda(Connection& connessione, std::int32_t idAzienda) {
  const std::vector<AziendaTrovata> aziende = aziendeDelDatabase(connessione);
  return std::any_of(aziende.begin(), aziende.end(),
                     [&](const AziendaTrovata& azienda) { return azienda.azienda == idAzienda; });
}

}  // namespace

int comandoStatus(const OpzioniStatus& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  RegistroDelProfilo registro(profilo);
  Terminale terminale;
  const UtilitaItaliana utilita(terminale, profilo.documenti);
  const std::vector<VoceStato> voci = riscontro::statoEsercizio(
      *registro, {profilo.sessione.azienda, opzioni.anno, modelloDi(profilo)}, utilita);
  if (voci.empty() && !haAzienda(registro->connessione(), profilo.sessione.azienda)) {
    std::cerr << "L'azienda " << profilo.sessione.azienda << ", indicata dal profilo, non è nel database.\n";
    return kRifiutato;
  }
  if (opzioni.json) {
    nlohmann::ordered_json lista = nlohmann::ordered_json::array();
    for (const VoceStato& voce : voci) lista.push_back(json(voce));
    std::cout << lista.dump(-1, ' ', false, kNonUtf8) << '\n';
    return kRiuscito;
  }
  std::map<Operazione, std::size_t> quante;
  for (const VoceStato& voce : voci) {
    scrivi(voce);
    ++quante[voce.operazione];
  }
  std::cout << "Certificazioni " << voci.size();
  for (const auto& [operazione, numero] : quante)
    std::cout << ", " << riscontro::nome(operazione) << " " << numero;
  std::cout << ".\n";
  return kRiuscito;
}

}  // namespace cu
