#include "apps/importa/passi_import.h"

#include <filesystem>
#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/importa/database_importa.h"
#include "apps/importazione/esecuzione.h"
#include "apps/importazione/resoconto.h"
#include "suite/platform_file.h"

namespace cu {

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

void applicaOpzioni(const OpzioniImport& opzioni, intake::Mappatura& mappatura) {
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

intake::RichiestaPiano richiestaDi(const OpzioniImport& opzioni, Connection& connessione, Date oggi) {
  intake::RichiestaPiano richiesta;
  if (opzioni.elenco != intake::Elenco::Aziende)
    richiesta.idAzienda = aziendaDi(connessione, opzioni.azienda);
  richiesta.anno = opzioni.anno;
  richiesta.diversi = opzioni.diversi;
  richiesta.accettati = opzioni.accettati;
  richiesta.databaseEstraneo = opzioni.databaseEstraneo;
  richiesta.oggi = oggi;
  return richiesta;
}

int concludi(const OpzioniImport& opzioni, DatabaseSuite& database, const intake::Piano& piano) {
  scriviMessaggi(piano, std::cerr);
  const EsecuzionePiano eseguita =
      eseguiPiano(database, piano, {.applica = opzioni.applica, .utente = "cuctl"});
  for (const std::string& rifiuto : eseguita.rifiuti) std::cerr << rifiuto << '\n';
  const EsitoImportazione& esito = eseguita.esito;
  // Said before the report is written: what is applied stays, whatever happens to the report.
  std::cout << dettoEsito(piano, esito) << '\n';
  if (!opzioni.resoconto.empty()) scriviResoconto(opzioni.resoconto, piano, esito);
  return esito.riuscita ? kRiuscito : kRifiutato;
}

}  // namespace cu
