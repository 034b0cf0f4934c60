#include "apps/esame/operazioni_registro.h"

#include <filesystem>
#include <utility>

#include "apps/comune/sessione_comando.h"
#include "apps/esame/impronta.h"
#include "apps/esame/registro_del_profilo.h"
#include "archive/codici_pubblicati.h"
#include "archive/schema.h"
#include "base/text.h"
#include "data/transazione.h"
#include "schede/conteggio.h"
#include "suite/orologio.h"

namespace cu {

std::size_t aggiungiTabelle(const Profilo::Database& database) {
  const auto connessione = apriConnessione(database);
  Transazione transazione(*connessione);
  const std::size_t create = creaRegistro(*connessione);
  transazione.conferma();
  return create;
}

Result<std::size_t> aggiungiCodici(const Profilo::Database& database) {
  const auto connessione = apriConnessione(database);
  if (!schede::archivioProprio(*connessione)) {
    return Result<std::size_t>::refused({"archivio-altrui",
                                         "Il database non è stato creato da questo programma: le sue causali "
                                         "e i suoi codici sono della suite, "
                                         "che li aggiorna.",
                                         ""});
  }
  Transazione transazione(*connessione);
  const std::size_t aggiunti = aggiungiCodiciPubblicati(*connessione);
  transazione.conferma();
  return aggiunti;
}

namespace {

std::string dettoInvio(const riscontro::Invio& invio) {
  return "Invio " + fromInteger(invio.id) + " (" + invio.nome + "): ";
}

// "2018-03-05 10:30:00" and "2018-03-05" are the fifth of March.
Date giornoDi(const std::string& momento) { return Date::parseIso(momento.substr(0, 10)).value_or(Date()); }
std::string inItaliano(const std::string& momento) { return giornoDi(momento).toItalian(); }

// What a person should look at before the day is written; empty where all is well.
std::string dubbi(const riscontro::Invio& invio, Date suo, Date oggi) {
  std::string testo;
  const auto aggiungi = [&testo](const std::string& frase) { testo += (testo.empty() ? "" : " ") + frase; };
  if (!invio.dataInvio.empty()) {
    aggiungi("Il file " + invio.nome + " è già segnato come inviato il " + inItaliano(invio.dataInvio) +
             ": il giorno diventerebbe il " + suo.toItalian() + ".");
  }
  if (suo > oggi) aggiungi("Il " + suo.toItalian() + " deve ancora venire.");
  if (suo < giornoDi(invio.momento)) {
    aggiungi("Il " + suo.toItalian() + " il file non c'era ancora: è stato scritto il " +
             inItaliano(invio.momento) + ".");
  }
  return testo;
}

EsitoInvio nonRegistrato(const std::string& file, const char* nulla) {
  return {false, file + ": non è fra i file scritti per questa azienda, o è cambiato da allora. " + nulla,
          std::nullopt};
}

}  // namespace

EsitoInvio segnaInviato(const Profilo& profilo, const std::string& file, std::optional<Date> giorno,
                        const std::function<bool(const std::string& avviso)>& conferma) {
  constexpr const char* kNulla = "Non è stato segnato nulla.";
  const std::string impronta = improntaFile(file);
  RegistroDelProfilo registro(profilo);
  const auto invio = registro->cerca(impronta);
  if (!invio || invio->idAzienda != profilo.sessione.azienda) return nonRegistrato(file, kNulla);
  const Date oggi = orologio(profilo)->today();
  const Date suo = giorno.value_or(oggi);
  const std::string prima = invio->dataInvio.empty() ? std::string() : inItaliano(invio->dataInvio);
  if (!prima.empty() && (!giorno || suo.toItalian() == prima)) {
    return {true, dettoInvio(*invio) + "già segnato come inviato il " + prima + ".", *invio};
  }
  const std::string avviso = dubbi(*invio, suo, oggi);
  if (!avviso.empty() && !conferma(avviso)) return {false, kNulla, *invio};
  Transazione transazione(registro->connessione());
  registro->segnaInviato(invio->id, suo);
  transazione.conferma();
  const std::string fatto = prima.empty()
                                ? "segnato come inviato il " + suo.toItalian()
                                : "giorno dell'invio corretto, " + suo.toItalian() + " invece di " + prima;
  return {true, dettoInvio(*invio) + fatto + ", certificazioni " + fromInteger(invio->certificazioni) + ".",
          *invio, true};
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
               fatto.file.push_back(
                   {file, dopoScrittura(propria, surroundings.clock(),
                                        {file.percorso, file.tipo, richiesta.anno, profilo.sessione.azienda,
                                         &terminale, intorno.modello})});
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
