#include "apps/importazione/file_scelto.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "apps/comune/file_letto.h"
#include "apps/importazione/mappe_personali.h"
#include "base/text.h"
#include "intake/corrispondenza.h"
#include "suite/profilo.h"
#include "tabelle/errore.h"

namespace cu {
namespace {

std::vector<std::string> fogliNominati(const FileImportatoInMemoria& contenuto) {
  std::vector<std::string> nomi;
  try {
    std::vector<tabelle::Foglio> fogli = tabelle::fogliDi(contenuto.byte, contenuto.nome);
    std::stable_partition(fogli.begin(), fogli.end(),
                          [](const tabelle::Foglio& uno) { return !uno.nascosto; });
    for (tabelle::Foglio& uno : fogli) nomi.push_back(std::move(uno.nome));
  } catch (const tabelle::ErroreTabella&) {
    // Reading the table reports it.
    nomi.clear();
  }
  return nomi;
}

}  // namespace

FileScelto caricaFile(const std::string& percorso, intake::Elenco elenco, const std::string& cartellaMappe) {
  FileScelto file;
  file.percorso = percorso;
  file.nome = std::filesystem::path(percorso).filename().string();
  try {
    file.contenuto = std::make_shared<const FileImportatoInMemoria>(leggiFileImportato(percorso));
  } catch (const FileIlleggibile& errore) {
    file.guasto = errore.description();
    return file;
  }
  file.fogli = fogliNominati(*file.contenuto);
  cercaProfilo(file, elenco, cartellaMappe);
  return file;
}

void cercaProfilo(FileScelto& file, intake::Elenco elenco, const std::string& cartellaMappe) {
  if (!file.leggibile()) return;
  file.mappatura = {};
  file.profilo.clear();
  file.nota.clear();
  try {
    auto trovata = cercaMappa(cartellaMappe, elenco, file.contenuto->byte, file.nome);
    if (trovata) {
      file.profilo = trovata->file;
      file.mappatura = std::move(trovata->mappa.mappatura);
    }
  } catch (const Error& errore) {
    file.nota = "Un profilo non si può usare: " + errore.description();
  } catch (const ErroreProfilo& errore) {
    file.nota = std::string("Un profilo non si può usare: ") + errore.what();
  }
  rileggiTabella(file);
}

void rileggiTabella(FileScelto& file) {
  file.tabella.reset();
  file.impronta.clear();
  if (!file.leggibile()) return;
  file.guasto.clear();
  try {
    file.tabella = std::make_shared<const tabelle::Tabella>(
        tabelle::leggiTabella(file.contenuto->byte, file.nome, file.mappatura.lettura));
    file.impronta = improntaIntestazione(*file.tabella);
  } catch (const tabelle::ErroreTabella& errore) {
    file.guasto = errore.description();
  }
}

bool paionoFatture(const std::string& percorso) {
  constexpr std::array<std::string_view, 4> kDiFatture = {".xml", ".p7m", ".zip", ".pem"};
  std::error_code errore;
  if (std::filesystem::is_directory(percorso, errore)) return true;
  const std::string fine = lowerAscii(std::filesystem::path(percorso).extension().string());
  return std::find(kDiFatture.begin(), kDiFatture.end(), fine) != kDiFatture.end();
}

std::string nomeMostrato(const std::string& percorso) {
  std::filesystem::path intero(percorso);
  if (!intero.has_filename()) intero = intero.parent_path();
  return intero.filename().string();
}

std::optional<intake::Elenco> elencoProbabile(const tabelle::Tabella& tabella) {
  constexpr std::array kElenchi = {intake::Elenco::Aziende, intake::Elenco::Percipienti,
                                   intake::Elenco::Compensi};
  intake::Elenco migliore = intake::Elenco::Compensi;
  bool certo = false;
  std::pair<std::ptrdiff_t, std::ptrdiff_t> note;  // found, and required ones that are not missing
  for (const intake::Elenco elenco : kElenchi) {
    const intake::Corrispondenza trovate = intake::abbina(tabella, elenco, {});
    const std::ptrdiff_t mancano =
        std::count_if(trovate.messaggi.begin(), trovate.messaggi.end(),
                      [](const intake::Messaggio& uno) { return uno.codice == intake::Codice::C01; });
    const std::pair sue(std::ssize(trovate.colonne), -mancano);
    if (sue.first == 0 || sue < note) continue;
    certo = sue != note;
    migliore = elenco;
    note = sue;
  }
  return certo ? std::optional(migliore) : std::nullopt;
}

intake::Lettura leggiRigheDi(const FileScelto& file, intake::Elenco elenco, Date oggi) {
  intake::Lettura lettura = file.tabella != nullptr
                                ? intake::leggiRighe(*file.tabella, elenco, file.mappatura, oggi)
                                : intake::leggiFile(file.leggibile() ? file.contenuto->byte : std::string(),
                                                    file.nome, elenco, file.mappatura, oggi);
  if (file.leggibile()) {
    lettura.dimensione = file.contenuto->byte.size();
    lettura.sha256 = file.contenuto->sha256;
  }
  return lettura;
}

}  // namespace cu
