#include "intake/diario_lotto.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "intake/lettura_fatture.h"
#include "schede/testo_riga.h"

namespace cu::intake {
namespace {

constexpr std::array<schede::ColonnaSuite, 1> kColonneImportazione = {
    {{"IDImportazione", schede::TipoColonna::Intero}}};

// The size of a file as an amount, which holds what an int does not.
Decimal comeImporto(std::uint64_t dimensione) {
  constexpr std::uint64_t kMassimo = 900000000000000;
  return Decimal::fromInteger(static_cast<std::int64_t>(std::min(dimensione, kMassimo)));
}

}  // namespace

const schede::TabellaSuite kImportazione{"CuImportazione", 1, kColonneImportazione};

DiarioLotto::DiarioLotto(Connection& connessione, std::int32_t id, const Piano& piano,
                         const std::string& utente, const std::string& momento)
    : id_(id),
      righe_(
          connessione, "CuImportazioneRiga",
          {"IDImportazione", "Numero", "Tabella", "Chiave", "Operazione", "Prima", "Dopo", "Riferimento"}) {
  Inserimento lotto(connessione, "CuImportazione",
                    {"IDImportazione", "IDAzienda", "Elenco", "Momento", "Utente", "Stato", "Nuovi", "Uguali",
                     "Diversi", "DaDecidere", "Errori", "Esclusi"});
  lotto.intero(id).id(piano.elenco == Elenco::Aziende ? 0 : piano.richiesta.idAzienda);
  lotto.testo(nome(piano.elenco)).testo(momento).testo(utente).testo("applicata");
  for (const std::size_t quante : piano.conteggi()) lotto.intero(static_cast<std::int64_t>(quante));
  lotto.riga();
  lotto.chiudi();
  Inserimento file(connessione, "CuImportazioneFile",
                   {"IDImportazione", "Numero", "Nome", "Foglio", "Dimensione", "Impronta"});
  std::int64_t numero = 0;
  std::vector<std::pair<std::int64_t, const std::string*>> contenuti;
  for (const Lettura& lettura : *piano.letture) {
    // Nothing of it was imported: mended, it is a file like any other.
    if (lettura.illeggibile()) continue;
    file.intero(id).intero(++numero).testo(lettura.file).testo(lettura.foglio);
    file.importo(comeImporto(lettura.dimensione)).testo(lettura.sha256.empty() ? "-" : lettura.sha256).riga();
    const std::string* const contenuto = lettura.fatture ? &lettura.fatture->sha256Contenuto : nullptr;
    if (contenuto != nullptr && !contenuto->empty() && *contenuto != lettura.sha256)
      contenuti.emplace_back(numero, contenuto);
  }
  file.chiudi();
  Inserimento suoi(connessione, "CuImportazioneContenuto", {"IDImportazione", "Numero", "Impronta"});
  for (const auto& [quale, impronta] : contenuti) suoi.intero(id).intero(quale).testo(*impronta).riga();
  suoi.chiudi();
}

void DiarioLotto::scrivi(const schede::TabellaSuite& tabella, const schede::Riga& riga,
                         std::string_view operazione, const std::string& prima, const std::string& dopo) {
  righe_.intero(id_).intero(++numero_).testo(tabella.nome).testo(schede::testoChiave(tabella, riga));
  righe_.testo(operazione).testo(prima).testo(dopo);
  righe_.testo(&tabella == &schede::kCompenso ? std::string_view(riferimento_) : std::string_view()).riga();
}

void DiarioLotto::inserita(const schede::TabellaSuite& tabella, const schede::Riga& riga) {
  scrivi(tabella, riga, "inserita", {}, schede::testoRiga(riga));
}

void DiarioLotto::cambiata(const schede::TabellaSuite& tabella, const schede::Riga& prima,
                           const schede::Riga& dopo) {
  scrivi(tabella, dopo, "cambiata", schede::testoRiga(prima), schede::testoRiga(dopo));
}

void DiarioLotto::tolta(const schede::TabellaSuite& tabella, const schede::Riga& riga) {
  scrivi(tabella, riga, "tolta", schede::testoRiga(riga), {});
}

}  // namespace cu::intake
