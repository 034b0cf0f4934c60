#include <filesystem>
#include <iostream>
#include <utility>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/importa/database_importa.h"
#include "apps/importa/passi_import.h"
#include "apps/importazione/esecuzione.h"
#include "apps/importazione/file_importato.h"
#include "apps/importazione/mappa_fatture.h"
#include "apps/importazione/mappe_personali.h"
#include "base/text.h"
#include "intake/lettura_fatture.h"
#include "schede/aziende.h"
#include "schede/elenchi.h"
#include "suite/orologio.h"

namespace cu {
namespace {

using intake::FontePagamento;

void verificaOpzioni(const OpzioniImportFatture& opzioni) {
  verificaResoconto(opzioni.comuni);
  const std::string& resoconto = opzioni.comuni.resoconto;
  if (stessoFile(resoconto, opzioni.date))
    throw UsoSbagliato("--report: " + resoconto + " è la tabella delle date");
  for (const std::string& percorso : opzioni.comuni.file) {
    // One that a person names and that is not there is a mistake in the command line.
    if (!std::filesystem::is_directory(percorso)) const FileLetto apribile(percorso);
  }
}

std::string codiceFiscaleDi(Connection& connessione, std::int32_t idAzienda) {
  for (const schede::SchedaAzienda& azienda : schede::Aziende(connessione).tutte()) {
    if (azienda.id == idAzienda) return azienda.sede.codiceFiscale;
  }
  return {};
}

MappaFattureTrovata mappaPer(const OpzioniImport& opzioni, Connection& connessione, std::int32_t idAzienda) {
  const std::string azienda = codiceFiscaleDi(connessione, idAzienda);
  if (!opzioni.mappa.empty()) {
    MappaFatture scelta = leggiMappaFatture(opzioni.mappa);
    if (!scelta.azienda.empty() && !equalsNoCase(scelta.azienda, trim(azienda)))
      throw UsoSbagliato("--map: " + opzioni.mappa + " è di un'altra azienda, " + scelta.azienda);
    return {opzioni.mappa, std::move(scelta)};
  }
  auto trovata = cercaMappaFatture(cartellaMappe(), azienda);
  if (!trovata) return {};
  std::cerr << "Fatture lette con la mappatura " << trovata->file << '\n';
  return std::move(*trovata);
}

// A profile with a reason that no payment can have is wrong, whether a document of this import needs it or
// not.
void verificaCausali(const MappaFattureTrovata& trovata, Connection& connessione) {
  const schede::Elenchi elenchi(connessione);
  const auto verifica = [&](const std::string& chiave, const std::string& causale) {
    if (causale.empty() || elenchi.causali.diCodice(causale) != nullptr) return;
    throw UsoSbagliato(trovata.file + ": " + chiave + ": valore non ammesso, " + causale +
                       ", atteso uno fra " + elenchi.causali.codici());
  };
  const MappaFatture& mappa = trovata.mappa;
  verifica("colonne.Causale", mappa.causaleForfettari);
  for (const auto& [scritta, causale] : mappa.causali) verifica("valori.Causale." + scritta, causale);
  for (const auto& [chi, causale] : mappa.causaliPercipienti)
    verifica("percipienti." + chi + ".causale", causale);
}

// The dates, and what is wrong with their table.
std::vector<intake::Messaggio> leggiTavola(const OpzioniImportFatture& opzioni, intake::Mappatura mappatura,
                                           Date oggi, intake::OpzioniFatture& fatture) {
  if (opzioni.fonte != FontePagamento::Tavola) return {};
  applicaOpzioni(opzioni.comuni, mappatura);
  const FileImportatoInMemoria file = leggiFileImportato(opzioni.date);
  intake::TavolaDate tavola = intake::leggiDate(file.byte, file.nome, mappatura, oggi);
  fatture.date = std::move(tavola.date);
  return std::move(tavola.messaggi);
}

}  // namespace

int comandoImportFatture(const OpzioniImportFatture& opzioni) {
  try {
    const Date oggi = OrologioSistema().today();
    verificaOpzioni(opzioni);
    DatabaseSuite database = apriDatabase(opzioni.comuni.database);
    Connection& connessione = database.ownConnection();
    intake::RichiestaPiano richiesta = richiestaDi(opzioni.comuni, connessione, oggi);
    const MappaFattureTrovata trovata = mappaPer(opzioni.comuni, connessione, richiesta.idAzienda);
    const MappaFatture& mappa = trovata.mappa;
    verificaCausali(trovata, connessione);
    applicaMappa(mappa, richiesta.fatture);
    richiesta.fatture.fonte = opzioni.fonte;
    richiesta.fatture.giorno = opzioni.giorno.value_or(Date());
    std::vector<intake::Messaggio> messaggi = leggiTavola(opzioni, mappa.date, oggi, richiesta.fatture);
    intake::LettureFatture lette =
        intake::leggiFatture(opzioni.comuni.file, oggi, nullptr, limitiDellaRaccolta());
    if (opzioni.comuni.saltaFileIllegibili) tralasciaIllegibili(lette.letture);
    for (const auto& [che, quanti] : lette.ignorati)
      std::cerr << "Tralasciati: " << quanti << " (" << che << ")\n";
    intake::Piano piano = intake::pianifica(connessione, std::move(lette.letture), richiesta);
    piano.messaggi.insert(piano.messaggi.begin(), messaggi.begin(), messaggi.end());
    return concludi(opzioni.comuni, database, piano);
  } catch (const UsoSbagliato& errore) {
    return rifiutaUso(errore);
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
