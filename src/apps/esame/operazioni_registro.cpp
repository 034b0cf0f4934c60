#include "apps/esame/operazioni_registro.h"

#include <filesystem>
#include <utility>

#include "apps/comune/sessione_comando.h"
#include "apps/esame/impronta.h"
#include "apps/esame/registro_del_profilo.h"
#include "archive/schema.h"
#include "base/text.h"
#include "data/transazione.h"
#include "suite/orologio.h"

namespace cu {

std::size_t aggiungiTabelle(const Profilo::Database& database) {
  const auto connessione = apriConnessione(database);
  Transazione transazione(*connessione);
  const std::size_t create = creaRegistro(*connessione);
  transazione.conferma();
  return create;
}

namespace {

std::string dettoInvio(const riscontro::Invio& invio) {
  return "Invio " + fromInteger(invio.id) + " (" + invio.nome + "): ";
}

EsitoInvio nonRegistrato(const std::string& file, const char* nulla) {
  return {false, file + ": non è fra i file scritti per questa azienda, o è cambiato da allora. " + nulla,
          std::nullopt};
}

}  // namespace

EsitoInvio segnaInviato(const Profilo& profilo, const std::string& file, std::optional<Date> giorno) {
  const std::string impronta = improntaFile(file);
  RegistroDelProfilo registro(profilo);
  const auto invio = registro->cerca(impronta);
  if (!invio || invio->idAzienda != profilo.sessione.azienda) {
    return nonRegistrato(file, "Non è stato segnato nulla.");
  }
  EsitoInvio esito{true, {}, *invio};
  const std::string quale = dettoInvio(*invio);
  if (!invio->dataInvio.empty()) {
    esito.testo = quale + "già segnato come inviato il " +
                  Date::parseIso(invio->dataInvio).value_or(Date()).toItalian() + ".";
    return esito;
  }
  const Date suo = giorno.value_or(orologio(profilo)->today());
  Transazione transazione(registro->connessione());
  registro->segnaInviato(invio->id, suo);
  transazione.conferma();
  esito.testo = quale + "segnato come inviato il " + suo.toItalian() + ", certificazioni " +
                fromInteger(invio->certificazioni) + ".";
  return esito;
}

EsitoInvio togliDalRegistro(const Profilo& profilo, const std::string& file,
                            const std::function<bool(const std::string& avviso)>& conferma) {
  constexpr const char* kNulla = "Non è stato tolto nulla.";
  const std::string impronta = improntaFile(file);
  RegistroDelProfilo registro(profilo);
  const auto invio = registro->cerca(impronta);
  if (!invio || invio->idAzienda != profilo.sessione.azienda) return nonRegistrato(file, kNulla);
  const auto inviato = [&] {
    return EsitoInvio{
        false,
        dettoInvio(*invio) +
            "le sue certificazioni risultano inviate. Un file inviato resta nel registro e attende la "
            "ricevuta. " +
            kNulla,
        *invio};
  };
  if (!registro->soloScritto(invio->id)) return inviato();
  if (!conferma("Il file " + invio->nome + " (certificazioni " + fromInteger(invio->certificazioni) +
                ") verrebbe tolto dal registro, come se non fosse stato scritto.")) {
    return {false, kNulla, *invio};
  }
  if (!registro->togli(invio->id)) return inviato();
  // A run that was repeated has written the same bytes again.
  for (auto altro = registro->cerca(impronta);
       altro && altro->idAzienda == invio->idAzienda && registro->togli(altro->id);
       altro = registro->cerca(impronta)) {
  }
  return {true,
          dettoInvio(*invio) + "tolto dal registro, certificazioni " + fromInteger(invio->certificazioni) +
              ". Il file resta nella sua cartella: non va inviato.",
          *invio};
}

EsitoCorreggi correggi(const Profilo& profilo, const RichiestaCorreggi& richiesta) {
  EsitoCorreggi fatto;
  Terminale terminale;
  terminale.avanzamento = richiesta.avanzamento;
  Surroundings surroundings(profilo, terminale);
  SessioneComando sessione(surroundings, terminale);
  sessione.esegui([&] {
    const fornitura::Intorno intorno = sessione.intorno();
    Connection& propria = intorno.ambito.database->ownConnection();
    riscontro::Registro registro(propria);
    if (!registro.presente()) throw SenzaRegistro();
    Compensi compensi(surroundings.utilita(), terminale);
    const auto esito = riscontro::scriviCorrezioni(
        intorno, compensi, registro,
        {.anno = richiesta.anno,
         .cartella = std::filesystem::absolute(richiesta.cartella).string(),
         .cartellaDocumenti = sessione.testi().text(1264),
         .firma = richiesta.firma.value_or(surroundings.clock().today()),
         .prosegue = [&richiesta](const Finding& avviso) { return richiesta.prosegue(avviso.text); },
         .continua = richiesta.continua,
         .scritto =
             [&](const riscontro::FileCorretto& file) {
               fatto.file.push_back({file, dopoScrittura(propria, surroundings.clock(),
                                                         {file.percorso, file.tipo, richiesta.anno,
                                                          profilo.sessione.azienda, &terminale})});
             }});
    if (!esito->mancanti.empty()) {
      const auto log = surroundings.factory().createLogGrid();
      fornitura::riempiLog(*log, 0, esito->mancanti);
      log->show(0);
    } else {
      for (const Finding& rifiuto : esito.refusals) {
        if (!rifiuto.text.empty()) fatto.messaggi.push_back(rifiuto.text);
      }
    }
    fatto.interrotto = esito->interrotto;
    fatto.riuscito = static_cast<bool>(esito) && !esito->interrotto;
  });
  fatto.registri = std::move(terminale.registri);
  for (std::string& messaggio : terminale.messaggi) fatto.messaggi.push_back(std::move(messaggio));
  fatto.riuscito = fatto.riuscito && fatto.messaggi.empty();
  return fatto;
}

const char* dettaFornitura(Comunicazione tipo) {
  switch (tipo) {
    case Comunicazione::Ordinaria:
      return "Certificazioni nuove";
    case Comunicazione::Annullamento:
      return "Annullamenti";
    case Comunicazione::Sostituzione:
    case Comunicazione::Nessuna:
      break;
  }
  return "Sostituzioni";
}

}  // namespace cu
