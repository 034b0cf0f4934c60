#include <filesystem>
#include <iostream>
#include <utility>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/importa/database_importa.h"
#include "apps/importazione/esecuzione.h"
#include "apps/importazione/file_importato.h"
#include "apps/importazione/mappe_personali.h"
#include "apps/importazione/resoconto.h"
#include "base/text.h"
#include "suite/lettore_toml.h"
#include "suite/orologio.h"

namespace cu {
namespace {

using intake::Lettura;
using intake::Mappatura;
using intake::Piano;

// What the command line says about reading takes precedence over a profile.
void applicaOpzioni(const OpzioniImport& opzioni, Mappatura& mappatura) {
  if (!opzioni.foglio.empty()) mappatura.lettura.foglio = opzioni.foglio;
  if (!opzioni.separatore.empty()) mappatura.lettura.separatore = opzioni.separatore.front();
  if (!opzioni.caratteri.empty()) {
    mappatura.lettura.caratteri =
        tabelle::caratteriDaNome(opzioni.caratteri).value_or(tabelle::Caratteri::Riconosciuti);
  }
  if (!opzioni.decimali.empty()) mappatura.decimali = opzioni.decimali.front();
  if (opzioni.date == "dmy") mappatura.date = intake::OrdineData::GiornoMeseAnno;
  if (opzioni.date == "mdy") mappatura.date = intake::OrdineData::MeseGiornoAnno;
  if (opzioni.date == "ymd") mappatura.date = intake::OrdineData::AnnoMeseGiorno;
}

std::optional<Mappa> mappaIndicata(const OpzioniImport& opzioni) {
  if (opzioni.mappa.empty()) return std::nullopt;
  Mappa mappa = leggiMappa(opzioni.mappa);
  if (mappa.elenco != opzioni.elenco) {
    throw ErroreProfilo(unaRiga(opzioni.mappa) + ": formato: valore non ammesso, atteso \"" +
                        std::string(intake::nome(opzioni.elenco)) + '"');
  }
  return mappa;
}

Lettura leggiUno(const OpzioniImport& opzioni, const std::optional<Mappa>& indicata,
                 const std::string& percorso, Date oggi) {
  const FileImportatoInMemoria file = leggiFileImportato(percorso);
  Mappatura mappatura;
  if (indicata) {
    mappatura = indicata->mappatura;
  } else if (auto trovata = cercaMappa(cartellaMappe(), opzioni.elenco, file.byte, file.nome)) {
    std::cerr << file.nome << ": letto con la mappatura " << trovata->file << '\n';
    mappatura = std::move(trovata->mappa.mappatura);
  }
  applicaOpzioni(opzioni, mappatura);
  Lettura lettura = intake::leggiFile(file.byte, file.nome, opzioni.elenco, mappatura, oggi);
  lettura.sha256 = file.sha256;
  return lettura;
}

std::vector<Lettura> leggiTutti(const OpzioniImport& opzioni, Date oggi) {
  const std::optional<Mappa> indicata = mappaIndicata(opzioni);
  std::vector<Lettura> letture;
  for (const std::string& percorso : opzioni.file) {
    letture.push_back(leggiUno(opzioni, indicata, percorso, oggi));
  }
  if (opzioni.saltaFileIllegibili) tralasciaIllegibili(letture);
  return letture;
}

// A report that cannot be written is reported before anything is.
void verificaResoconto(const OpzioniImport& opzioni) {
  const std::string& file = opzioni.resoconto;
  if (file.empty()) return;
  for (const std::string& letto : opzioni.file) {
    if (stessoFile(file, letto)) throw UsoSbagliato("--report: " + file + " è uno dei file da importare");
  }
  if (stessoFile(file, opzioni.mappa)) throw UsoSbagliato("--report: " + file + " è la mappatura");
  rifiutaDatabase("--report", file, opzioni.database);
  const std::filesystem::path cartella = std::filesystem::absolute(file).parent_path();
  if (!canCreateFile(cartella.string()))
    throw UsoSbagliato("--report: non si può scrivere in " + cartella.string());
}

}  // namespace

int comandoImport(const OpzioniImport& opzioni) {
  try {
    const Date oggi = OrologioSistema().today();
    verificaResoconto(opzioni);
    std::vector<Lettura> letture = leggiTutti(opzioni, oggi);
    DatabaseSuite database = apriDatabase(opzioni.database);
    intake::RichiestaPiano richiesta;
    if (opzioni.elenco != intake::Elenco::Aziende) {
      richiesta.idAzienda = aziendaDi(database.ownConnection(), opzioni.azienda);
    }
    richiesta.anno = opzioni.anno;
    richiesta.diversi = opzioni.diversi;
    richiesta.accettati = opzioni.accettati;
    richiesta.databaseEstraneo = opzioni.databaseEstraneo;
    richiesta.oggi = oggi;
    const Piano piano = intake::pianifica(database.ownConnection(), std::move(letture), richiesta);
    scriviMessaggi(piano, std::cerr);
    const EsecuzionePiano eseguita =
        eseguiPiano(database, piano, {.applica = opzioni.applica, .utente = "cuctl"});
    for (const std::string& rifiuto : eseguita.rifiuti) std::cerr << rifiuto << '\n';
    const EsitoImportazione& esito = eseguita.esito;
    // Said before the report is written: what is applied stays, whatever happens to the report.
    std::cout << dettoEsito(piano, esito) << '\n';
    if (!opzioni.resoconto.empty()) scriviResoconto(opzioni.resoconto, piano, esito);
    return esito.riuscita ? kRiuscito : kRifiutato;
  } catch (const UsoSbagliato& errore) {
    return rifiutaUso(errore);
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
