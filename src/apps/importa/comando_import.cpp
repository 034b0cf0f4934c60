#include <iostream>
#include <utility>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/importa/database_importa.h"
#include "apps/importa/passi_import.h"
#include "apps/importazione/esecuzione.h"
#include "apps/importazione/file_importato.h"
#include "apps/importazione/mappe_personali.h"
#include "suite/lettore_toml.h"
#include "suite/orologio.h"

namespace cu {
namespace {

using intake::Lettura;
using intake::Mappatura;
using intake::Piano;

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

}  // namespace

int comandoImport(const OpzioniImport& opzioni) {
  try {
    const Date oggi = OrologioSistema().today();
    verificaResoconto(opzioni);
    std::vector<Lettura> letture = leggiTutti(opzioni, oggi);
    DatabaseSuite database = apriDatabase(opzioni.database);
    const intake::RichiestaPiano richiesta = richiestaDi(opzioni, database.ownConnection(), oggi);
    const Piano piano = intake::pianifica(database.ownConnection(), std::move(letture), richiesta);
    return concludi(opzioni, database, piano);
  } catch (const UsoSbagliato& errore) {
    return rifiutaUso(errore);
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
