#include <filesystem>
#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/elenco_luoghi.h"
#include "apps/comune/file_letto.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/json_lettura.h"
#include "apps/esame/natura_file.h"
#include "apps/esame/testo_rilievi.h"

namespace cu {
namespace {

// What a file plainly is by its first bytes, where it is no telematic file; "" for any other.
std::string naturaEstranea(const std::string& percorso) {
  std::error_code errore;
  if (!std::filesystem::is_regular_file(percorso, errore)) return {};  // a pipe can be read once
  FileLetto file(percorso);
  std::string inizio(kInizioFile, '\0');
  inizio.resize(file.leggi(inizio.data(), inizio.size()));
  return naturaDi(inizio);
}

// Every line of such a file is a finding: their number is enough for a person.
void scriviEsame(const std::string& percorso, const lettura::Rilievi& rilievi) {
  const std::string natura = naturaEstranea(percorso);
  std::string cheCosa;
  if (natura.empty()) {
    scriviRilievi(percorso, rilievi, std::cout);
  } else {
    cheCosa = "questo è " + natura + ", non un file telematico della Certificazione Unica; ";
  }
  std::cout << percorso << ": " << cheCosa << dettoConteggio(rilievi) << ".\n";
}

}  // namespace

int comandoValidate(const OpzioniValidate& opzioni) {
  const ElencoLuoghi luoghi;
  nlohmann::ordered_json tutti = nlohmann::ordered_json::array();
  int codice = kRiuscito;
  for (const std::string& percorso : opzioni.file) {
    nlohmann::ordered_json json = {{"file", percorso}};
    try {
      FileLetto file(percorso);
      const lettura::Esito esito = lettura::esamina(file, &luoghi);
      const bool male = esito.rilievi.errori() > 0 || (opzioni.severo && esito.rilievi.avvisi() > 0);
      if (male && codice == kRiuscito) codice = kRifiutato;
      if (opzioni.json) {
        json["findings"] = jsonRilievi(esito.rilievi);
        json["counts"] = jsonConteggi(esito.rilievi);
        tutti.push_back(std::move(json));
      } else {
        scriviEsame(percorso, esito.rilievi);
      }
    } catch (const FileIlleggibile& errore) {
      std::cerr << errore.what() << '\n';
      codice = kUsoSbagliato;
    }
  }
  if (opzioni.json)
    std::cout << nlohmann::ordered_json{{"files", std::move(tutti)}}.dump(-1, ' ', false, kNonUtf8) << '\n';
  return codice;
}

}  // namespace cu
